#include "shell/mdi_form.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <sstream>

#include "repository/stored_content.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"
#include "testkit/second_form.h"
#include "testkit/test_frame.h"

namespace orvent::shell {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class Frame : public ::testing::Test {
  protected:
    void expectClose(const std::string& name, Answer answer) {
        testkit::expectClose(repository.messages, name, answer);
    }
    int open(std::string name) { return frame.frame.NewScenario(name); }

    testkit::TestRepository repository;
    testkit::TestFrame frame{repository};
};

TEST_F(Frame, StartLogsInLoadsTheCatalogueAndPlacesTheFrame) {
    EXPECT_TRUE(frame.frame.start());
    EXPECT_TRUE(frame.host.placed);
    EXPECT_GT(frame.frame.catalogue().tables.activityTypes.rows(), 12U);
    EXPECT_EQ(repository.store.values.at({"DB", "User"}), "anna");
    EXPECT_EQ(repository.progress.statuses.back(), "Ready");
    EXPECT_FALSE(frame.frame.isEnabled(Command::saveScenario));
    EXPECT_TRUE(frame.frame.isEnabled(Command::login));
}

TEST_F(Frame, ARepositoryThatIsGoneIsBlankAtTheLoginWhichEndsTheStartAndStaysStored) {
    std::filesystem::remove(repository.file());
    frame.host.atLogin = [this](repository::UserLogin& dialog) {
        EXPECT_EQ(dialog.txtRepos, "");
        dialog.txtUser = "anna";
        repository.messages.expect("UNABLE TO LOGIN!\nNO REPOSITORY SELECTED!!", "Unable To Login", Icon::warning);
        EXPECT_FALSE(dialog.Login());
    };
    EXPECT_FALSE(frame.frame.start());
    EXPECT_FALSE(frame.host.placed);
    EXPECT_EQ(repository.store.values.at({"DB", "ReposConnString"}), repository.settings.login.ReposConnString);
}

TEST_F(Frame, ConsistencyTellsWhatItChangedAsLongAsItsScenarioIsInFront) {
    frame.frame.start();
    canvas::DrawForm& form = *frame.frame.scenario(open("Loads"));
    testkit::GraphBuilder graph(form);
    graph.recordSet("SOURCE", {"ID"});
    graph.activity("Load", {"ID"}, {"ID"});
    graph.recordSet("TARGET", {"ID"});
    graph.feed("SOURCE.ID", "Load.IN.ID");
    graph.edge("Load", "TARGET");
    const auto check = [this](Answer answer) {
        repository.messages.expect(
            "This Action Will Delete All Non Consistent Provider Relationships!\nAre you Sure You Want to Continue?",
            "Checking Consistency", Icon::none, Buttons::okCancel, answer);
        frame.frame.run(Command::checkConsistency);
    };
    auto& progress = repository.progress;
    check(Answer::cancel);
    EXPECT_FALSE(progress.openStatus);
    check(Answer::ok);
    EXPECT_EQ(progress.statuses.back(), "Deleted: Load → TARGET. Drawn: SOURCE → Load");
    for (const auto& [row, node] : {std::pair(0, "TARGET"), std::pair(1, "Load"), std::pair(-1, "")}) {
        frame.desk.revealed = {""};
        frame.host.atEdgeChanges = [row = row](EdgeChangesForm& list) { list.chosen = row; };
        progress.openStatus();
        EXPECT_EQ(frame.desk.revealed.back(), node);
    }
    frame.frame.frontChanged();
    EXPECT_TRUE(progress.openStatus) << "it is still in front";
    open("Other");
    frame.frame.frontChanged();
    EXPECT_EQ(progress.statuses.back(), "Ready");
    EXPECT_FALSE(progress.openStatus);
    frame.desk.windows = {&form};
    check(Answer::ok);
    EXPECT_EQ(progress.statuses.back(), "Every provider edge has its links; none was missing.");
    EXPECT_FALSE(progress.openStatus);
}

TEST_F(Frame, ElevenScenariosAndTheTwelfthIsRefused) {
    frame.frame.start();
    for (int slot = 0; slot < 11; ++slot) {
        const std::string name = "Scenario" + std::to_string(slot + 1);
        repository.input.expect("Give The Name Of The New Scenario:", "Scenario Name", name, name);
        frame.frame.run(Command::newScenario);
    }
    EXPECT_EQ(frame.desk.windows.size(), 11U);
    repository.messages.expect(
        "Maximum Number Of Possible Concurrently Loaded Scenarios is Exceeded\n"
        "You Will Have To Close One Of the Allready Open Scenarios Before Opening A New One");
    EXPECT_EQ(open(""), -1);

    expectClose("Scenario4", Answer::ok);
    frame.frame.close(*frame.frame.scenario(3));
    repository.input.expect("Give The Name Of The New Scenario:", "Scenario Name", "Scenario4", "");
    EXPECT_EQ(open(""), -1);
    EXPECT_EQ(frame.frame.scenario(3), nullptr);
    EXPECT_EQ(repository.progress.statuses.back(), "No scenario was made.");
    EXPECT_EQ(open("other"), 3);
    EXPECT_EQ(repository.progress.statuses.back(), "Ready");
}

TEST_F(Frame, ARepositoryThatIsGoneCostsNoOpenScenario) {
    frame.frame.start();
    ASSERT_EQ(open("a"), 0);
    const std::size_t types = frame.frame.catalogue().tables.dataTypes.rows();
    std::filesystem::remove(repository.file());
    repository.messages.expect("*", "", Icon::critical);
    EXPECT_EQ(open("b"), -1);
    try {
        frame.frame.run(Command::loadTestGraph);
        ADD_FAILURE() << "nothing was told";
    } catch (const platform::Fault& fault) {
        EXPECT_EQ(fault.description().find("Error Accessing DataBase\n"), 0U) << fault.description();
    }
    EXPECT_FALSE(frame.host.ended);
    EXPECT_EQ(frame.frame.scenario(1), nullptr);
    EXPECT_EQ(frame.frame.catalogue().tables.dataTypes.rows(), types);
}

TEST_F(Frame, UnsavedWorkIsMarkedUntilItIsSaved) {
    frame.frame.start();
    ASSERT_EQ(open("a"), 0);
    canvas::DrawForm& form = frame.active();
    frame.frame.noticeChanges(form);
    EXPECT_EQ(form.titleMark(), "");
    form.Labels.Add({0, 0, 1500, 750}, "Comment0", canvas::NodeTypeComment);
    frame.frame.noticeChanges(form);
    EXPECT_EQ(form.titleMark(), " \u2022");
    EXPECT_EQ(form.ScenarioName(), "a");
    frame.saved();
    frame.saveAs("a");
    EXPECT_EQ(form.titleMark(), "");
    form.nodeNamed("Comment0")->setLeft(100);
    frame.frame.noticeChanges(form);
    EXPECT_EQ(form.titleMark(), " \u2022");
}

TEST_F(Frame, ADialogThatIsLeftChangesNothing) {
    frame.frame.start();
    frame.frame.run(Command::loadTestGraph);
    canvas::DrawForm& form = frame.active();
    repository::markStored(form);
    const std::string before = testkit::modelText(form);
    int opened = 0;
    const auto look = [&](auto&) {
        ++opened;
        frame.frame.noticeChanges(form);  // the windows' clock does not stop
    };
    frame.host.atWizard = look;
    frame.host.atActivity = look;
    frame.host.atRecordSet = look;
    canvas::CanvasWindows& windows = frame.frame.pointerPorts().windows;
    for (canvas::LabelsD& node : form.Labels) {
        windows.openProperties(form, node);
        if (node.activity()) {
            windows.openTemplateWizard(form, node);
        }
        frame.frame.noticeChanges(form);
        EXPECT_EQ(form.titleMark(), "") << node.Caption();
        EXPECT_EQ(testkit::modelText(form), before) << node.Caption();
    }
    EXPECT_GT(opened, 8);
}

TEST_F(Frame, AScenarioThatAnotherProgramRemovedIsSavedUnderAName) {
    frame.frame.start();
    ASSERT_EQ(open("a"), 0);
    frame.saved();
    frame.saveAs("a");
    repository::openRepository(frame.frame.services()).run("DELETE FROM Scenarios");
    bool asked = false;
    frame.host.atScenarios = [&](repository::ViewScenarios& dialog) { asked = dialog.OKCaption == "SAVE"; };
    frame.frame.run(Command::saveScenario);
    EXPECT_TRUE(asked);
    EXPECT_EQ(frame.active().titleMark(), " (deleted) \u2022");
    EXPECT_EQ(frame.active().ScenarioID, 0);
}

TEST_F(Frame, CancelInTheClosingQuestionKeepsTheWindow) {
    frame.frame.start();
    open("a");
    open("b");
    expectClose("a", Answer::ok);
    expectClose("b", Answer::cancel);
    EXPECT_FALSE(frame.frame.unload());
    EXPECT_EQ(frame.frame.scenario(0), nullptr);
    ASSERT_NE(frame.frame.scenario(1), nullptr);
    EXPECT_TRUE(frame.frame.isEnabled(Command::saveScenario));
    EXPECT_FALSE(frame.frame.isEnabled(Command::login));
    frame.close();
    EXPECT_FALSE(frame.frame.isEnabled(Command::saveScenario));
}

TEST_F(Frame, CommandsPassADisabledWindowBy) {
    frame.frame.start();
    open("a");
    frame.active().setEnabled(false);
    for (const Command command : {Command::saveScenario, Command::saveScenarioAs, Command::exportText,
                                  Command::createLdl, Command::closeScenario}) {
        EXPECT_FALSE(frame.frame.isEnabled(command));
        frame.frame.run(command);
    }
    repository.messages.expect("a stays open until its dialog is closed.", "", Icon::information);
    EXPECT_FALSE(frame.frame.close(frame.active()));
    repository.messages.expect("Please Close All Property Forms Before Login Out!", "Property Form(s) Open!");
    frame.frame.run(Command::changeUser);
    // A view disables its scenario as well; a dialog is open when it is disabled itself.
    auto made = std::make_unique<testkit::SecondForm>(
        frame.active(), canvas::CanvasServices{repository.messages, frame.frame.options().canvas});
    canvas::CanvasForm& view = *made;
    frame.frame.show(std::move(made));
    for (const bool dialog : {false, true}) {
        view.setEnabled(!dialog);
        dialog
            ? repository.messages.expect("Please Close All Property Forms Before Login Out!", "Property Form(s) Open!")
            : testkit::expectLogin(repository.messages, Answer::cancel);
        frame.frame.run(Command::changeUser);
    }
}

TEST_F(Frame, AnotherUserClosesAllScenariosFirst) {
    frame.frame.start();
    open("a");
    open("b");
    frame.host.atLogin = [](repository::UserLogin&) { FAIL() << "a scenario is open"; };
    testkit::expectLogin(repository.messages, Answer::cancel);
    frame.frame.chooseGroup(3);
    frame.frame.run(Command::changeUser);
    EXPECT_EQ(frame.frame.currentGroup(), 3);
    testkit::expectLogin(repository.messages, Answer::ok);
    expectClose("a", Answer::cancel);
    frame.frame.run(Command::changeUser);
    frame.host.atLogin = [](repository::UserLogin& dialog) {
        dialog.txtUser = "berta";
        dialog.Login();
    };
    testkit::expectLogin(repository.messages, Answer::ok);
    expectClose("a", Answer::ok);
    expectClose("b", Answer::ok);
    frame.frame.run(Command::changeUser);
    EXPECT_EQ(frame.frame.options().repository.login.User, "berta");
    EXPECT_EQ(frame.host.maximized, 1) << "as at the start";
    EXPECT_EQ(frame.frame.currentGroup(), 1);
}

TEST_F(Frame, ArrangingIsOneStepUnderItsOwnName) {
    frame.frame.start();
    frame.frame.run(Command::loadTestGraph);
    canvas::DrawForm& form = frame.active();
    std::string hinted;
    frame.frame.tools().hinted = [&](std::string_view words) { hinted = words; };
    const auto steps = [&] { return frame.frame.histories().linesOf(form).lines; };
    const std::size_t before = steps().size();
    frame.frame.run(Command::alignLeft);
    EXPECT_EQ(hinted, "Select at least two nodes.");
    EXPECT_EQ(steps().size(), before);
    frame.frame.run(Command::selectAll);
    frame.frame.run(Command::tidyUp);
    frame.frame.pointerPorts().windows.edit(form, canvas::EditAction::alignLeft);
    form.answerOffer(true);  // the way back from tidying up was open until then
    frame.frame.idle();
    ASSERT_EQ(steps().size(), before + 2);
    EXPECT_EQ(steps()[before], "Tidy Up");
    EXPECT_EQ(steps()[before + 1], "Align Left");
}

TEST(Commands, KeysOfSeveralItemsAreListedOnce) {
    std::map<std::string_view, std::string> listed;
    for (const CommandKeys& row : commandKeys()) {
        EXPECT_TRUE(listed.emplace(row.shortcut, row.names).second) << row.shortcut << " twice";
    }
    EXPECT_EQ(listed.at("Ctrl+S"), "Save Scenario / Save Changes");
    EXPECT_EQ(listed.at("Ctrl+Shift+P"), "Print Preview");
    EXPECT_EQ(listed.at("Ctrl+U"), "Select Upstream") << "out of its sub-menu";
}

TEST(Commands, EveryMenuItemNamesACommandOfItsOwn) {
    using enum Command;
    const std::pair<const char*, std::vector<Command>> rows[] = {
        {"NewScenarioM LoadScenarioM SaveScenarioM", {newScenario, loadScenario, saveScenario}},
        {"SaveScenarioAsM SaveChangesM DeleteScenarioM", {saveScenarioAs, saveScenario, deleteScenario}},
        {"PrintScenarioM PrintZoomM PrintPreviewM", {printScenario, printScenario, printPreview}},
        {"ExportTxtM CloseScenarioM CloseZoomingM LoginM", {exportText, closeScenario, closeScenario, login}},
        {"ExportProgramM ExportSqlM ExportDbtM", {exportProgram, exportSql, exportDbt}},
        {"OpenFileM ExportFileM OpenRecentM EarlierStatesM", {openFile, exportFile, openRecent, earlierStates}},
        {"StepBackM StepForwardM", {stepBack, stepForward}},
        {"CutM CopyM PasteM DuplicateM", {cutNodes, copyNodes, pasteNodes, duplicateNodes}},
        {"TidyUpM AlignLeftM AlignCentreM AlignRightM", {tidyUp, alignLeft, alignCentre, alignRight}},
        {"AlignTopM AlignMiddleM AlignBottomM", {alignTop, alignMiddle, alignBottom}},
        {"DistributeAcrossM DistributeDownM", {distributeAcross, distributeDown}},
        {"SelectUpstreamM SelectDownstreamM SelectConnectedM", {selectUpstream, selectDownstream, selectConnected}},
        {"SelectBetweenM SelectSameTypeM ConnectByNameM", {selectBetween, selectSameType, connectByName}},
        {"FindM FindNextM FindPreviousM", {findText, findNext, findPrevious}},
        {"ViewLargerM ViewSmallerM ViewActualSizeM ViewFitM", {viewLarger, viewSmaller, viewActualSize, viewFit}},
        {"ViewTypesM TypeAndSizeM", {viewTypes, typeAndSize}},
        {"ColourByMetricM ViewHistoryM SelectAllM CountRowsM", {colourByMetric, viewHistory, selectAll, countRows}},
        {"ViewProblemsM ViewOutlineM ViewMinimapM ViewRowsM FitToNamesM",
         {viewProblems, viewOutline, viewMinimap, viewRows, fitToNames}},
        {"ViewPartOfM ViewInstanceOfM ViewRegulatorM", {viewPartOf, viewInstanceOf, viewRegulator}},
        {"ViewProviderM ViewDerivedM ViewAttributesM", {viewProvider, viewDerived, viewAttributes}},
        {"MakeRoomM LightPathsM LegendM QuitM", {makeRoom, lightPaths, legend, quit}},
        {"ZoomInM ZoomOutM ActivityZoomM", {zoomIn, zoomOut, activityZoom}},
        {"ShowDataTypesM ShowFunctionTypesM ShowActivityTypesM", {showDataTypes, showFunctionTypes, showActivityTypes}},
        {"LoadTestGraph HelpETLM HelpShortcutsM HelpAboutM", {loadTestGraph, help, shortcuts, about}}};
    std::map<std::string, Command> meant, found;
    for (const auto& [names, commands] : rows) {
        std::istringstream words(names);
        for (const Command command : commands) {
            meant.emplace(*std::istream_iterator<std::string>(words), command);
        }
    }
    const std::function<void(std::span<const MenuItem>)> collect = [&](std::span<const MenuItem> items) {
        for (const MenuItem& item : items) {
            collect(item.items);
            const bool plain = !item.name.empty() && item.items.empty();
            EXPECT_TRUE(!plain || found.emplace(item.name, item.action).second) << item.name << " twice";
        }
    };
    for (const Menu& menu : menus()) {
        collect(menu.items);
    }
    EXPECT_EQ(found, meant);
}

TEST_F(Frame, ToolsPrintUndoAndZoomGoToTheWindowInFront) {
    frame.frame.start();
    for (const Command command : {Command::printScenario, Command::undo, Command::zoomIn, Command::viewFit}) {
        EXPECT_FALSE(frame.frame.isEnabled(command));
    }
    open("a");
    frame.frame.tools().canvasFocused(frame.active());
    frame.frame.run(Command::printScenario);
    frame.frame.run(Command::printPreview);
    EXPECT_EQ(frame.desk.prints, (std::vector<std::string>{"a", "a?"}));
    frame.frame.run(Command::viewFit);
    EXPECT_EQ(frame.desk.viewChanges, std::vector{ViewChange::fit});

    frame.active().Labels.Add({100, 100, 1000, 500}, "RS", canvas::NodeTypeRecordSet);
    repository.input.expect("ZOOM IN RATIO :", "Zooming IN", "", "1,5");
    frame.frame.run(Command::zoomIn);
    EXPECT_EQ(frame.active().nodeNamed("RS")->Width(), 1500);
    // A ratio that would spoil the picture is refused, and asked for again.
    for (const auto& [command, direction] : {std::pair{Command::zoomIn, "IN"}, {Command::zoomOut, "OUT"}}) {
        frame.active().Labels.Add({100, 300, 1000, 500}, std::string("Below") + direction, canvas::NodeTypeRecordSet);
        const std::string asked = std::string("ZOOM ") + direction + " RATIO :";
        repository.input.expect(asked, std::string("Zooming ") + direction, "", "1000000");
        repository.messages.expect("PLEASE GIVE A SMALLER ZOOM RATIO!!", "", platform::Icon::warning);
        repository.input.expect(asked, std::string("Zooming ") + direction, "", "");
        frame.frame.run(command);
        EXPECT_EQ(frame.active().nodeNamed("RS")->Width(), 1500);
    }

    frame.active().DeletedNodes->Add(1, entities::DeletedRecordSet);
    frame.frame.tools().setEmptyState();
    frame.frame.tools().canvasFocused(frame.active());
    repository.messages.expect("Undo");
    frame.frame.run(Command::undo);
    frame.close();
    EXPECT_FALSE(frame.frame.tools().DesignToolsOn());
    EXPECT_FALSE(frame.frame.isEnabled(Command::undo));
}

}  // namespace
}  // namespace orvent::shell
