#include "analysis/text_export.h"

#include <string>
#include <vector>

#include "platform/fault.h"
#include "testkit/file_text.h"
#include "testkit/graph_builder.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"

namespace orvent::analysis {
namespace {

class TextExportTest : public testkit::CanvasTest {
  public:
    TextExportTest() {
        form.setCaption("Sales");
        catalogue.activityTypes.add("Copy");
        catalogue.activityTypes.add("Not null check");
    }

    /// The text with "\n" for its line ends; a line end of another kind fails.
    std::string lines() {
        std::string result;
        const std::string text = exporter.text(form);
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (text[at] == '\r') {
                EXPECT_EQ(text.at(at + 1), '\n');
                continue;
            }
            EXPECT_TRUE(text[at] != '\n' || text[at - 1] == '\r');
            result += text[at];
        }
        return result;
    }

    testkit::TemporaryFolder scratch;
    platform::ProgramFolder folder{scratch.path()};
    testkit::QuietProgress progress;
    entities::CatalogueTables catalogue;
    canvas::DrawForm form{ports.services()};
    testkit::GraphBuilder graph{form};
    TextExport exporter{ports.messages, folder, progress, catalogue};
};

TEST_F(TextExportTest, CopyOfOneAttribute) {
    graph.recordSet("RS1", {"AU_ID"});
    graph.activity("Activity1", {"AU_ID"}, {"AU_ID"});
    graph.edge("RS1", "Activity1");
    graph.feed("RS1.AU_ID", "Activity1.IN.AU_ID");
    graph.pass("Activity1", "AU_ID", "AU_ID");
    EXPECT_EQ(lines(),
              "2;5\n"
              "A;Activity1;{AU_ID};{AU_ID};2;Copy\n"
              "\n"
              "RS;RS1;{};{AU_ID};1;db_table\n"
              "\n"
              "Activity1.AU_ID:Activity1.AU_ID\n"
              "\n"
              "RS1.AU_ID:Activity1.AU_ID\n"
              "\n");
}

TEST_F(TextExportTest, EmptyListsBroughtOutputsAndNodesOfOtherKinds) {
    graph.recordSet("EMPTY");
    graph.activity("First", {}, {"First.Mark"}).Act_Type = 1;
    graph.activity("Second", {"IN1", "First.Mark"});
    graph.recordSet("OUT", {"A", "B"});
    graph.node("Remark", canvas::NodeTypeComment);
    graph.edge("First", "Second");
    graph.edge("First", "OUT");
    graph.edge("Remark", "OUT");
    graph.feed("First.OUT.First.Mark", "Second.IN.First.Mark");
    graph.feed("First.OUT.First.Mark", "OUT.B");
    graph.attribute("Second.IN.IN1").ProviderFor->Add("Second", entities::LinkInput, ".OUT.GONE");
    EXPECT_EQ(lines(),
              "4;8\n"
              "RS;EMPTY;{};};5;db_table\n"
              "\n"
              "A;Second;{IN1,First.Mark};};4;Copy\n"
              "\n"
              "RS;OUT;{};{A,B};3;db_table\n"
              "\n"
              "A;First;};{First.Mark};1;Not null check\n"
              "\n"
              "\n"
              "Second.IN1:Second.\n"
              "\n"
              "\n"
              "First.First.Mark:Second.First.Mark\n"
              "First.First.Mark:OUT.B\n"
              "\n");
}

TEST_F(TextExportTest, EmptyScenarioWritesOneLineAndTellsThePath) {
    ports.messages.expect(scratch.path().string() + "/Sales.txt Created");
    exporter.ExportText(form);
    EXPECT_EQ(testkit::fileText(scratch.path() / "Sales.txt"), "0;0\r\n");
}

TEST_F(TextExportTest, FaultsWriteNothing) {
    struct Case {
        const char* title;
        void (*spoil)(TextExportTest&);
    };
    const std::vector<Case> cases = {
        {"missing folder", [](TextExportTest& t) { std::filesystem::remove_all(t.scratch.path()); }},
        {"slash in the caption", [](TextExportTest& t) { t.form.setCaption("../Sales"); }},
        {"no type", [](TextExportTest& t) { t.graph.activity("Untyped").Act_Type = -1; }},
        {"unknown far node",
         [](TextExportTest& t) { t.graph.attribute("RS.A").ProviderFor->Add("GONE", 1, "GONE.IN.A"); }},
        {"far node without attributes",
         [](TextExportTest& t) {
             t.graph.node("Remark", canvas::NodeTypeComment);
             t.graph.attribute("RS.A").ProviderFor->Add("Remark", 1, "Remark.A");
         }},
    };
    graph.recordSet("RS", {"A"});
    for (const Case& c : cases) {
        SCOPED_TRACE(c.title);
        std::filesystem::create_directories(scratch.path());
        form.clear();
        form.setCaption("Sales");
        graph.recordSet("RS", {"A"});
        c.spoil(*this);
        EXPECT_THROW(exporter.ExportText(form), platform::Fault);
        EXPECT_EQ(testkit::fileText(scratch.path() / "Sales.txt"), "(no file)");
        EXPECT_EQ(testkit::fileText(scratch.path() / ".." / "Sales.txt"), "(no file)");
    }
}

}  // namespace
}  // namespace orvent::analysis
