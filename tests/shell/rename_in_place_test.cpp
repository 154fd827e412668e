// A node that is named in its box ends as one whose dialog got the name.

#include <gtest/gtest.h>

#include <algorithm>

#include "editors/item_prop.h"
#include "testkit/model_text.h"
#include "testkit/test_frame.h"

using namespace orvent;
using platform::Answer;
using shell::Command;

namespace {

enum class Way { dialog, box };

class RenameInPlace : public ::testing::Test {
  protected:
    RenameInPlace() {
        repository.messages.anyway = [this](const std::string& text) {
            told += text == "Properties Saved" ? "" : text + "|";
            return text.find("DO YOU WANT TO APPLY") != std::string::npos ? Answer::yes : Answer::ok;
        };
        EXPECT_TRUE(stage.frame.start());
        stage.host.atActivity = [this](editors::SetActProp& dialog) {
            dialog.txtName_Change(name);
            dialog.OK();
            dialog.end();
        };
        stage.host.atRecordSet = [this](editors::RecordSetProp& dialog) {
            dialog.txtRecordSetName_Change(name);
            dialog.OK();
            dialog.end();
        };
        stage.host.atItem = [this](editors::ItemProp& dialog) {
            dialog.changeName(name);
            dialog.OK_Click();
            dialog.end();
        };
    }

    void give(canvas::CanvasForm& form, canvas::LabelsD& node, Way way) {
        canvas::CanvasWindows& windows = stage.frame.pointerPorts().windows;
        way == Way::dialog ? windows.openProperties(form, node) : static_cast<void>(windows.rename(form, node, name));
    }

    /// The sample scenario after the node of that number got the name; with `zoomed` in the zoom of an activity, which
    /// is then applied.
    std::string after(int number, Way way, const std::string& zoomed = {}) {
        stage.frame.run(Command::loadTestGraph);
        canvas::DrawForm& design = stage.active();
        canvas::CanvasForm* form = &design;
        if (!zoomed.empty()) {
            stage.frame.pointerPorts().windows.openZoom(design, *design.nodeNamed(zoomed));
            form = stage.desk.active();
        }
        std::string text = "none";
        if (number <= form->Labels.Count()) {
            canvas::LabelsD& node = *form->Labels.at(number);
            const auto shown = stage.frame.pointerPorts().windows.nameInPlace(*form, node);
            text = shown ? "shown as " + *shown + "\n" : "no name\n";
            if (shown) {
                give(*form, node, way);
                text += testkit::modelText(*form);
            }
        }
        if (form != &design) {
            stage.frame.close(*form);
        }
        text += testkit::modelText(design);
        stage.frame.close(design);
        return text;
    }

    testkit::TestRepository repository;
    testkit::TestFrame stage{repository};
    std::string name = "Other", told;
};

TEST_F(RenameInPlace, IsWhatTheDialogDoes) {
    for (const char* zoomed : {"", "Activity2", "Activity4"}) {
        int named = 0;
        for (int number = 1;; ++number) {
            const std::string box = after(number, Way::box, zoomed);
            if (box.starts_with("none")) {
                break;
            }
            named += box.starts_with("shown") ? 1 : 0;
            const std::string dialog = after(number, Way::dialog, zoomed);
            const auto [at, other] = std::ranges::mismatch(dialog, box);
            const auto line = box.rfind('\n', static_cast<std::size_t>(other - box.begin())) + 1;
            ASSERT_TRUE(dialog == box) << zoomed << " " << number << ", dialog: " << dialog.substr(line, 100)
                                       << "\nbox: " << box.substr(line, 100);
        }
        EXPECT_GT(named, 8) << zoomed;
    }
}

/// The words that the dialogs have for a name; nothing changes.
TEST_F(RenameInPlace, TellsWhatIsWrongWithAName) {
    struct Case {
        const char *node, *name, *words;
    };
    stage.frame.run(Command::loadTestGraph);
    canvas::DrawForm& form = stage.active();
    const std::string before = testkit::modelText(form);
    for (const Case& row :
         {Case{"Activity2", "", "PLEASE GIVE THE ACTIVITY's NAME|"},
          Case{"Activity2", "A.B", "DOTS ARE NOT ALLLOWED IN NAMES|"}, Case{"RS1", " ", "PLEASE GIVE A VALID NAME|"},
          Case{"RS1", "A.B", "DOTS ARE NOT ALLLOWED IN NAMES|"}, Case{"RS1", "RS1", ""}}) {
        told.clear();
        const bool renamed = stage.frame.pointerPorts().windows.rename(form, *form.nodeNamed(row.node), row.name);
        EXPECT_EQ(told, row.words);
        EXPECT_EQ(renamed, told.empty());
        EXPECT_EQ(testkit::modelText(form), before);
    }
    told.clear();
    EXPECT_FALSE(stage.frame.pointerPorts().windows.rename(form, *form.nodeNamed("RS1"), "Activity2"));
    EXPECT_EQ(told, "THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!|");
    EXPECT_EQ(testkit::modelText(form), before);
    stage.frame.pointerPorts().windows.openZoom(form, *form.nodeNamed("Activity2"));
    canvas::CanvasForm& view = *stage.desk.active();
    told.clear();
    EXPECT_FALSE(stage.frame.pointerPorts().windows.rename(view, *view.nodeNamed("Activity2"), "RS1"));
    EXPECT_NE(told, "") << "whether the view shows RS1 or not";
    EXPECT_TRUE(stage.frame.pointerPorts().windows.rename(view, *view.nodeNamed("RS2"), "RS9"));
    EXPECT_TRUE(dynamic_cast<zoom::ZoomView&>(view).unapplied());
    stage.frame.close(view);
    stage.frame.close(form);
}

}  // namespace
