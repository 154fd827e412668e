// The zoom view among the frame's windows: opening, saving, closing.

#include <gtest/gtest.h>

#include "repository/stored_content.h"
#include "testkit/model_text.h"
#include "testkit/test_frame.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/build_view.h"
#include "zoom/make_room.h"

using namespace orvent;
using platform::Answer;
using shell::Command;

namespace {

class ZoomCommand : public ::testing::Test {
  protected:
    ZoomCommand() {
        EXPECT_TRUE(frame.start());
        frame.run(Command::loadTestGraph);
        design = &stage.active();
    }

    void select(std::initializer_list<const char*> names) {
        design->SelectedLabels.Clear();
        for (const char* name : names) {
            design->SelectedLabels.Add(design->NamesColl.Item(name));
        }
    }

    zoom::ZoomForm* zoomInFront() { return dynamic_cast<zoom::ZoomForm*>(stage.desk.active()); }

    void expectAllready(Answer answer) {
        repository.messages.expect("You are allready Zooming on another Activity\nAre you sure you want to continue?",
                                   "Activity Zoom", platform::Icon::question, platform::Buttons::okCancel, answer);
    }
    void expectApply(Answer answer) { testkit::expectApply(repository.messages, "Sample", answer); }

    testkit::TestRepository repository;
    testkit::TestFrame stage{repository};
    shell::MDIForm1& frame = stage.frame;
    canvas::DrawForm* design = nullptr;
};

TEST_F(ZoomCommand, ActsOnOneSelectedActivity) {
    struct Row {
        std::initializer_list<const char*> selected;
        bool opens;
    };
    for (const Row& row :
         {Row{{}, false}, Row{{"RS1"}, false}, Row{{"Activity1", "Activity2"}, false}, Row{{"Activity2"}, true}}) {
        select(row.selected);
        design->CurrentNode = design->NamesColl.Item("RS1");  // on its way to the menu the pointer passed over it
        frame.run(Command::activityZoom);
        EXPECT_EQ(zoomInFront() != nullptr, row.opens);
    }
    EXPECT_EQ(design->CurrentNode, design->NamesColl.Item("Activity2"));
    EXPECT_EQ(zoomInFront()->Caption(), "Sample - Expand");
    EXPECT_EQ(stage.desk.revealed, std::vector<std::string>{"Activity2"});
    EXPECT_FALSE(design->Enabled());
    EXPECT_FALSE(frame.isEnabled(Command::createLdl));
    EXPECT_TRUE(frame.isEnabled(Command::zoomIn));
}

TEST_F(ZoomCommand, TheViewMenuSwitchesItsFilters) {
    EXPECT_FALSE(frame.isEnabled(Command::viewPartOf));
    select({"Activity2"});
    frame.run(Command::activityZoom);
    const zoom::ViewMarks& marks = zoomInFront()->marks;
    struct Row {
        Command command;
        bool zoom::ViewMarks::*mark;
    };
    for (const Row& row : {Row{Command::viewProvider, &zoom::ViewMarks::ViewProviderM},
                           Row{Command::viewPartOf, &zoom::ViewMarks::ViewPartOfM},
                           Row{Command::viewRegulator, &zoom::ViewMarks::ViewRegulatorM},
                           Row{Command::viewInstanceOf, &zoom::ViewMarks::ViewInstanceOfM},
                           Row{Command::viewDerived, &zoom::ViewMarks::ViewDerivedM},
                           Row{Command::viewAttributes, &zoom::ViewMarks::ViewAttributesM}}) {
        const bool former = marks.*row.mark;
        frame.run(row.command);
        EXPECT_NE(marks.*row.mark, former);
        EXPECT_EQ(frame.stateOf(row.command).checked, !former);
        frame.run(row.command);
        EXPECT_EQ(marks.*row.mark, former);
    }
}

TEST_F(ZoomCommand, WhatHelpsToReadItIsOfferedAndKept) {
    select({"Activity2"});
    frame.run(Command::activityZoom);
    zoom::ZoomForm& zoomed = *zoomInFront();
    ASSERT_TRUE(zoomed.offer()) << "the columns lie on each other";
    zoomed.answerOffer(true);
    EXPECT_FALSE(zoomed.offer());
    EXPECT_FALSE(zoom::boxesOverlap(zoomed));
    const canvas::LabelsD& input = *zoomed.nodeNamed("Activity2.IN.SONUM");
    EXPECT_FALSE(zoomed.rules().pathOf(zoomed, input).isEmpty());
    EXPECT_FALSE(zoomed.legend().empty());
    for (const Command command : {Command::lightPaths, Command::legend}) {
        EXPECT_EQ(frame.stateOf(command).checked, true);
        frame.run(command);
        EXPECT_EQ(frame.stateOf(command).checked, false);
    }
    EXPECT_TRUE(zoomed.rules().pathOf(zoomed, input).isEmpty());
    EXPECT_TRUE(zoomed.legend().empty());
    shell::OptionsData nextRun;
    LoadOptions(nextRun, repository.store, platform::ProgramFolder(""));
    EXPECT_FALSE(nextRun.sight.LightPathsM || nextRun.sight.LegendM);
}

TEST_F(ZoomCommand, ASecondZoomClosesTheFirst) {
    select({"Activity2"});
    frame.run(Command::activityZoom);
    const auto zoomOther = [&] { frame.ZoomActivity(design->slot(), design->NamesColl.Item("Activity1")); };
    expectAllready(Answer::cancel);
    zoomOther();
    expectAllready(Answer::ok);
    expectApply(Answer::cancel);
    zoomOther();
    EXPECT_EQ(zoomInFront()->central()->Caption(), "Activity2");
    EXPECT_FALSE(design->Enabled());
    expectAllready(Answer::ok);
    expectApply(Answer::no);
    zoomOther();
    EXPECT_EQ(zoomInFront()->central()->Caption(), "Activity1");
    EXPECT_EQ(stage.desk.windows.size(), 2U);
    expectApply(Answer::yes);
    EXPECT_TRUE(frame.close(*zoomInFront()));
    EXPECT_TRUE(design->Enabled());
}

TEST_F(ZoomCommand, WhatClosesAScenarioAsksItsZoomFirst) {
    select({"Activity2"});
    struct Row {
        std::function<void()> close;
        bool asksBefore = false;
    };
    for (const Row& row :
         {Row{[&] { frame.close(*design); }}, Row{[&] { frame.unload(); }},
          Row{[&] { frame.run(Command::loadTestGraph); }}, Row{[&] { frame.run(Command::changeUser); }, true}}) {
        const auto close = [&](Answer answer) {
            if (row.asksBefore) {
                testkit::expectLogin(repository.messages);
            }
            expectApply(answer);
            if (answer == Answer::no) {
                testkit::expectClose(repository.messages, "Sample");
            }
            row.close();
        };
        select({"Activity2"});
        frame.run(Command::activityZoom);
        close(Answer::cancel);
        EXPECT_TRUE(zoomInFront());
        close(Answer::no);
        EXPECT_FALSE(zoomInFront());
        if (!frame.scenario(10)) {
            frame.run(Command::loadTestGraph);
        }
        design = frame.scenario(10);
    }
    // A scenario that goes without being asked takes its zoom along.
    select({"Activity2"});
    frame.run(Command::activityZoom);
    frame.discardScenario(10);
    EXPECT_TRUE(stage.desk.windows.empty());
}

TEST_F(ZoomCommand, TheDesignCanvasCommandsWorkOnIt) {
    const std::string before = testkit::modelText(*design);
    select({"Activity2"});
    frame.run(Command::activityZoom);
    zoom::ZoomForm& zoomed = *zoomInFront();
    frame.run(Command::viewAttributes);
    frame.run(Command::selectAll);
    int visible = 0;
    for (const canvas::LabelsD& node : zoomed.Labels) {
        visible += node.Visible() ? 1 : 0;
        EXPECT_EQ(zoomed.SelectedLabels.Item(node.Index()) != nullptr, node.Visible()) << node.KeyName();
    }
    EXPECT_LT(visible, zoomed.Labels.Count());
    frame.run(Command::printScenario);
    EXPECT_EQ(stage.desk.prints, std::vector<std::string>{"Sample - Expand"});
    frame.run(Command::viewFit);
    EXPECT_EQ(stage.desk.viewChanges, std::vector{shell::ViewChange::fit});

    const canvas::Box former = zoomed.nodeNamed("Activity2.IN.SONUM")->box();
    repository.input.expect("ZOOM IN RATIO :", "Zooming IN", "", "1,5");
    frame.run(Command::zoomIn);
    const auto isZoomed = [&] {
        const canvas::Box& now = zoomed.nodeNamed("Activity2.IN.SONUM")->box();
        return now.Left == former.Left * 1.5F && now.Width == former.Width * 1.5F;
    };
    EXPECT_TRUE(isZoomed());
    EXPECT_LE(zoomed.PicForm.Width(), zoom::ZoomForm::kLargestPicture);
    zoom::ApplyZoomChanges(zoomed, true);
    EXPECT_TRUE(isZoomed()) << "applying leaves the picture as it is";
    EXPECT_EQ(testkit::modelText(*design), before);
}

TEST_F(ZoomCommand, AStoredScenarioThatIsDeletedMeanwhileIsStoredAnew) {
    stage.saved();
    stage.saveAs("First");
    select({"Activity2"});
    frame.run(Command::activityZoom);
    EXPECT_FALSE(repository::isUnsaved(*design)) << "to look is no change";
    zoom::ZoomForm& zoomed = *zoomInFront();
    zoomed.Labels.byIndex(zoomed.CentralActivityNo)->activity()->Act_Description = "Changed in the zoom";
    stage.remove("First");
    ASSERT_EQ(zoomInFront(), &zoomed);
    EXPECT_EQ(design->ScenarioID, 0);
    stage.saved();
    stage.host.atScenarios = [](repository::ViewScenarios& dialog) {
        dialog.changeName("Second");
        dialog.OKButton();
    };
    frame.run(Command::saveScenario);
    EXPECT_EQ(zoomed.Caption(), "Second - Expand");
    const std::string stored = testkit::modelText(*design);
    EXPECT_NE(stored.find("Changed in the zoom"), std::string::npos);
    stage.load("Second");
    EXPECT_NE(&stage.active(), design);
    EXPECT_EQ(testkit::modelText(stage.active()), stored);
}

}  // namespace
