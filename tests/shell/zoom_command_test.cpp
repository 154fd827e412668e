// The zoom view among the frame's windows: opening, saving, closing.

#include <gtest/gtest.h>

#include "testkit/test_frame.h"
#include "zoom/make_room.h"
#include "zoom/zoom_form.h"

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
    void expectApply(Answer answer) {
        repository.messages.expect("DO YOU WANT TO APPLY THE CHANGES TO SCENARIO Sample ?", "Closing Scenario",
                                   platform::Icon::question, platform::Buttons::yesNoCancel, answer);
    }
    void expectClosing() {
        repository.messages.expect("ARE YOU SURE YOU WANT TO CLOSE Sample ?", "Closing Scenario",
                                   platform::Icon::question, platform::Buttons::okCancel, Answer::ok);
    }

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
        frame.run(Command::activityZoom);
        EXPECT_EQ(zoomInFront() != nullptr, row.opens);
    }
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
    for (const auto& close :
         {std::function<void()>([&] { frame.close(*design); }), std::function<void()>([&] { frame.unload(); }),
          std::function<void()>([&] { frame.run(Command::loadTestGraph); })}) {
        select({"Activity2"});
        frame.run(Command::activityZoom);
        expectApply(Answer::cancel);
        close();
        EXPECT_TRUE(zoomInFront());
        expectApply(Answer::no);
        expectClosing();
        close();
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

TEST_F(ZoomCommand, SaveStoresTheScenarioBehindTheZoom) {
    select({"Activity2"});
    frame.run(Command::activityZoom);
    zoom::ZoomForm& zoomed = *zoomInFront();
    stage.saved();
    stage.host.atScenarios = [](repository::ViewScenarios& dialog) {
        dialog.changeName("Stored");
        dialog.OKButton();
    };
    frame.run(Command::saveScenario);
    EXPECT_EQ(zoomed.Caption(), "Stored - Expand");
    EXPECT_NE(zoomed.central()->activity()->NodeID, 0);
    // The second save finds all identifiers and inserts nothing again.
    stage.saved();
    frame.run(Command::saveScenario);
    EXPECT_EQ(zoomed.central()->activity()->NodeID, design->nodeNamed("Activity2")->activity()->NodeID);
}

}  // namespace
