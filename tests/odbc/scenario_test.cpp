// Whole scenarios through the whole program, without windows, on real databases.

#include <sys/mount.h>

#include <fstream>
#include <functional>
#include <random>

#include "../statements/wizard_fixture.h"
#include "databases.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"
#include "testkit/numbers.h"
#include "testkit/questions.h"
#include "testkit/test_frame.h"

namespace orvent::odbc {
namespace {

using platform::Answer;
using platform::Icon;
using shell::Command;

std::unique_ptr<testkit::TestRepository> newRepository(Kind kind) {
    if (kind == Kind::sqlite) {
        return std::make_unique<testkit::TestRepository>();
    }
    static int count = 0;
    const NamedSource source{"scenarios", server(kind).createDatabase("scenarios" + std::to_string(++count))};
    return std::make_unique<testkit::TestRepository>(source, testkit::DatabaseServer::kUser,
                                                     testkit::DatabaseServer::kPassword);
}

class EveryRepository : public ::testing::TestWithParam<Kind> {
  protected:
    void SetUp() override {
        repository_ = newRepository(GetParam());
        frame_ = std::make_unique<testkit::TestFrame>(*repository_);
        ASSERT_TRUE(frame_->frame.start());
    }

    testkit::ScriptedMessageBox& messages() { return repository_->messages; }
    canvas::DrawForm& form() { return frame_->active(); }

    std::filesystem::path written(const std::string& name) { return repository_->folder.path() / name; }

    /// The LDL program and the text export of the active scenario, as written to their files.
    std::string outputs() {
        const std::string name = form().Caption();
        messages().expect("File \"" + written("LDLS/" + name).string() + ".ldl\" Was Created.");
        frame_->frame.run(Command::createLdl);
        messages().expect(written(name).string() + ".txt Created");
        frame_->frame.run(Command::exportText);
        return testkit::fileText(written("LDLS/" + name + ".ldl")) + "----\n" +
               testkit::fileText(written(name + ".txt"));
    }

    void saveAs(const std::string& name) {
        frame_->saved();
        frame_->saveAs(name);
    }

    void saveAgain() {
        frame_->saved();
        frame_->frame.run(Command::saveScenario);
    }

    void closeAndLoad(const std::string& name) {
        frame_->close();
        frame_->load(name);
        ASSERT_EQ(form().Caption(), name);
    }

    std::unique_ptr<testkit::TestRepository> repository_;
    std::unique_ptr<testkit::TestFrame> frame_;
};

INSTANTIATE_TEST_SUITE_P(Databases, EveryRepository, ::testing::Values(Kind::sqlite, Kind::postgres, Kind::mariaDb),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(EveryRepository, SampleComesBackWithItsOutputsAndItsChanges) {
    frame_->frame.run(Command::loadTestGraph);
    const std::string unsaved = testkit::modelText(form());
    const std::string unsavedOutputs = outputs();
    EXPECT_NE(unsavedOutputs.find("Activity2_IN1("), std::string::npos);
    saveAs("Sample");
    EXPECT_EQ(testkit::modelText(form()), unsaved);
    closeAndLoad("Sample");
    EXPECT_EQ(testkit::modelText(form()), unsaved);
    EXPECT_EQ(outputs(), unsavedOutputs);
    saveAgain();
    closeAndLoad("Sample");
    EXPECT_EQ(testkit::modelText(form()), unsaved);

    entities::ActivityProperties& activity = *form().nodeNamed("Activity1")->activity();
    activity.Act_SQL = "SELECT 1";
    activity.Changed = true;
    form().Labels.Add({10, 20, 1500, 750}, "Comment1", canvas::NodeTypeComment).setComment("new");
    form().nodeNamed("RS4")->setLeft(4321.5F);
    canvas::LabelsD& gone = *form().nodeNamed("RS5");
    form().DeletedNodes->Add(gone.recordSet()->NodeID, entities::DeletedRecordSet);
    form().nodeNamed("Activity2")->activity()->Act_Outputs->Item("ED_ID")->ProviderFor->Remove("RS5.ED_ID");
    form().Labels.Remove(gone.Index());
    const std::string changed = testkit::modelText(form());
    saveAgain();
    closeAndLoad("Sample");
    EXPECT_EQ(testkit::modelText(form()), changed);
}

/// Makes a record set of one table of the repository itself, which serves as a source.
void takeTable(editors::RecordSetProp& dialog, const repository::LoginValues& login, const std::string& table) {
    dialog.LoadDatabase({login.ReposConnString, login.ReposLogin, login.ReposPasw},
                        [](std::size_t, std::size_t) { return true; });
    for (const auto& node : dialog.DBView.roots().at(0)->children()) {
        if (platform::upperCase(node->value().Text) == table) {
            dialog.NodeClick({node.get()});
        }
    }
    dialog.SQLAuto_Click();
    EXPECT_TRUE(dialog.OK());
}

TEST_P(EveryRepository, WhatTheDialogsMadeComesBackAndIsGenerated) {
    std::string name = "Made";
    frame_->frame.NewScenario(name);
    testkit::GraphBuilder graph(form());
    graph.node("Source", canvas::NodeTypeRecordSet);
    graph.node("Large", canvas::NodeTypeActivity);
    graph.node("Target", canvas::NodeTypeRecordSet);
    graph.edge("Source", "Large");
    graph.edge("Large", "Target");
    frame_->host.atRecordSet = [&](editors::RecordSetProp& dialog) {
        takeTable(dialog, repository_->settings.login, "SCENARIOS");
    };
    frame_->host.atWizard = [&](statements::LDLForm& wizard) {
        for (const char* answer : {"in 0 0", "const >", "const 100"}) {
            statements::defineCurrent(wizard, statements::VarParameter, "", {answer});
            wizard.cmdNext();
        }
        wizard.cmdGenerateLDL();
        messages().expect("Activity Created", "", Icon::information);
        wizard.cmdCreateAct();
        wizard.cmdOK();
    };
    frame_->host.atActivity = [&](editors::SetActProp& dialog) {
        dialog.ActTypes_Click(frame_->frame.catalogue().ActivityTypeIndex("Selection"));
        dialog.NodeClick({dialog.DBView.find("DB.Source")});
        dialog.butRefresh_Click();
        messages().expect("Properties Saved", "", Icon::information);
        EXPECT_TRUE(dialog.OK());
    };
    for (const char* node : {"Source", "Target", "Large"}) {
        frame_->frame.pointerPorts().windows.openProperties(form(), *form().nodeNamed(node));
        EXPECT_TRUE(form().nodeNamed(node)->Ready()) << node;
    }
    const entities::ActivityProperties& made = *form().nodeNamed("Large")->activity();
    EXPECT_EQ(made.Act_Inputs.count(), form().nodeNamed("Source")->recordSet()->RecordSet_Outputs.count());
    EXPECT_GT(made.Act_Parameters.count(), 0);
    const std::string before = testkit::modelText(form());
    const std::string unsaved = outputs();
    EXPECT_NE(unsaved.find(made.Act_LDL), std::string::npos);
    saveAs("Made");
    closeAndLoad("Made");
    EXPECT_EQ(testkit::modelText(form()), before);
    EXPECT_EQ(outputs(), unsaved);
}

/// The longest name within the limit, of letters of that many bytes. No letter is like the other, so that no database
/// makes it shorter.
std::string longestName(platform::TextLimit most, std::size_t bytes) {
    std::mt19937 random(7);
    std::string name;
    const std::size_t limit = most.characters == 0 ? 5000 : most.characters;
    for (std::size_t at = 0; at < limit && (most.bytes == 0 || name.size() + bytes <= most.bytes); ++at) {
        const auto letter = static_cast<char>('a' + random() % 26);
        name += bytes == 1 ? std::string(1, letter)
                           : std::string("\xE4") + static_cast<char>(0xB8 + random() % 8) +
                                 static_cast<char>(0x80 + random() % 64);
    }
    return name;
}

// The longest names that are said to fit are stored, whatever their letters.
TEST_P(EveryRepository, NamesMayBeAsLongAsIsSaid) {
    repository::Services services = repository_->services();
    repository::StatementCache open = repository::openRepository(services);
    const platform::TextLimit type = open.textLimit(1000, platform::TextColumn::key);
    EXPECT_EQ(type.characters == 0, GetParam() == Kind::sqlite);
    for (const std::size_t bytes : {std::size_t{1}, std::size_t{3}}) {
        messages().expect("DATA TYPE SAVED", "", Icon::information);
        const std::string typeName = longestName(type, bytes);
        EXPECT_EQ(frame_->frame.catalogue().tables.dataTypes.name(frame_->frame.catalogue().SaveDataType(typeName)),
                  typeName);
        std::string name = longestName(open.textLimit(4000, platform::TextColumn::key), bytes);
        frame_->frame.NewScenario(name);
        const std::string member = longestName(open.textLimit(4000, platform::TextColumn::plain), bytes);
        testkit::GraphBuilder graph(form());
        graph.recordSet(member, {member.c_str()});
        const std::string before = testkit::modelText(form());
        saveAs(name);
        closeAndLoad(name);
        EXPECT_EQ(testkit::modelText(form()), before);
        frame_->close();
    }
}

TEST_P(EveryRepository, OddNamesTextsAndPlacesComeBack) {
    std::string name = "odd";
    frame_->frame.NewScenario(name);
    testkit::GraphBuilder graph(form());
    const std::string longName(1000, 'n');
    const std::string foreign = "O'Hara \"100%\" \xC3\xA9\xCE\xA9\xF0\x9F\x98\x80 \\ ? _";
    graph.recordSet(foreign, {"It's 5%"}).RecordSet_SQL = std::string(1000000, 's') + foreign;
    graph.recordSet(longName, {"A"});
    entities::ActivityProperties& activity = graph.activity("Act", {"IN"}, {"OUT"});
    activity.Act_Description = "two\r\nlines; and a \t tab";
    activity.Act_SQL = foreign;
    activity.Act_Log = "C:\\Logs\\x.log";
    activity.Act_LDL = std::string(500000, 'l');
    activity.Act_SchemaNo = 2;
    graph.node("Comment1", canvas::NodeTypeComment).setComment(foreign);
    graph.node("Comment1", canvas::NodeTypeComment).setComment("");
    graph.node("LOG1", canvas::NodeTypeLog).setBox({0.1F, -1234.567F, 16777217.0F, 1e-3F + 500});
    graph.edge(foreign, "Act");
    canvas::LinesCollection& lines = form().Lines;
    lines.addFullLine(3_node, 4, 2_node, 2, canvas::EdgeTypeProvider, canvas::AngleVerticalUp, 0);
    lines.addFullLine(5_node, 1, 3_node, 5, canvas::EdgeTypeDescription, canvas::AngleNone, 0);
    lines.addFullLine(3_node, 5, 6_node, 1, canvas::EdgeTypeDescription, canvas::AngleVerticalDown, 0);
    const std::string before = testkit::modelText(form());
    saveAs(foreign);
    closeAndLoad(foreign);
    EXPECT_EQ(testkit::modelText(form()), before);
}

TEST_P(EveryRepository, WhatChangedElsewhereIsAskedAboutAndOrderComesBack) {
    frame_->frame.run(Command::loadTestGraph);
    testkit::GraphBuilder(form()).recordSet("Many", {"A", "B", "C"});
    saveAs("Shared");
    const auto turn = [](auto& list) { list.move(1, list.Count()); };
    testkit::TestFrame other(*repository_);
    ASSERT_TRUE(other.frame.start());
    other.load("Shared");
    turn(*other.active().nodeNamed("Many")->recordSet()->RecordSet_Outputs);
    other.saved();
    other.frame.run(Command::saveScenario);

    turn(*form().nodeNamed("Activity2")->activity()->Act_Outputs);
    turn(*form().nodeNamed("Activity2")->activity()->Act_Functions);
    form().nodeNamed("Activity2")->activity()->Act_Parameters->Item(1)->Tag = entities::TagTypeOutput;
    const std::string shown = testkit::modelText(form());
    messages().expect("*", "", Icon::critical);
    testkit::expectOverwrite(messages(), Answer::yes);
    saveAgain();
    saveAgain();
    closeAndLoad("Shared");
    EXPECT_EQ(testkit::modelText(form()), shown);
    turn(*form().nodeNamed("Activity2")->activity()->Act_Functions);
    turn(*form().nodeNamed("Many")->recordSet()->RecordSet_Outputs);
    const std::string turned = testkit::modelText(form());
    saveAgain();
    closeAndLoad("Shared");
    EXPECT_EQ(testkit::modelText(form()), turned);
}

using Side = testkit::HookedDatabase::Side;

/// Interrupts the first save at a statement, mends the repository, and saves again.
void saveThroughFault(testkit::TestRepository& repository, testkit::TestFrame& frame, int statement,
                      const std::function<void()>& breakIt, const std::function<void()>& mendIt,
                      Side side = Side::before) {
    frame.frame.run(Command::loadTestGraph);
    const std::string whole = testkit::modelText(frame.active());
    const std::string name = "broken " + std::to_string(statement);
    repository.hooked.after(statement, breakIt, side);
    repository.messages.expect("*", "", Icon::critical);
    testkit::expectOverwrite(repository.messages, Answer::cancel);
    frame.saveAs(name);
    ASSERT_TRUE(repository.hooked.happened());
    mendIt();
    EXPECT_EQ(testkit::modelText(frame.active()), whole);
    // The dialog's list and the names of types come first, then the scenario's own row with its identifier. Later on a
    // part of the scenario stands under its name.
    if (statement > 6) {
        testkit::expectOverwrite(repository.messages, Answer::yes);
    }
    frame.saved();
    frame.saveAs(name);
    frame.close();
    frame.load(name);
    EXPECT_EQ(testkit::modelText(frame.active()), whole) << "interrupted before statement " << statement;
    frame.close();
}

class EveryServerRepository : public EveryRepository {};

INSTANTIATE_TEST_SUITE_P(Servers, EveryServerRepository, ::testing::Values(Kind::postgres, Kind::mariaDb),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(EveryServerRepository, AServerThatGoesInTheMiddleOfASaveLosesNothing) {
    for (const int statement : {6, 7, 8, 43}) {
        saveThroughFault(
            *repository_, *frame_, statement, [] { server(GetParam()).stop(); }, [] { server(GetParam()).start(); });
    }
}

/// A record set with attributes, and an output and a function of a stored activity: 4 + 1 + 2 rows.
void drawMore(canvas::DrawForm& form) {
    testkit::GraphBuilder(form).recordSet("NEW", {"A", "B", "C"});
    entities::ActivityProperties& activity = *form.nodeNamed("Activity1")->activity();
    entities::AttributeProperties& output = activity.Act_Outputs->Add("NEW", 0, entities::TagActivity, "NEW");
    output.ParentKeyName = "Activity1";
    output.NodeKind = entities::KindOutput;
    entities::FunctionProperties function;
    function.Function_Key = function.Function_Name = "NEW";
    function.setParentKeyName("Activity1");
    function.Function_Inputs->Add("X", 0, "X").NodeKind = entities::KindFunctionInput;
    activity.Act_Functions->AddFunctionProps(function, "", 0);
}

TEST_P(EveryServerRepository, ARowWhoseReplyIsLostIsNotWrittenTwice) {
    long long expected = 0;
    for (const char* insert :
         {"", "INSERT INTO ScenarioNodes", "INSERT INTO RecordSetOutputs", "INSERT INTO ActivitySubNodes",
          "INSERT INTO ActivityFunctions", "INSERT INTO FunctionSubNodes"}) {
        SCOPED_TRACE(insert);
        frame_->frame.run(Command::loadTestGraph);
        saveAs("Sample");
        drawMore(form());
        if (*insert) {
            repository_->hooked.after(
                1, [] { throw platform::DatabaseError("the line is down", "08S01", 0, false); }, Side::behind, insert);
            messages().expect("the line is down", "", Icon::critical);
            testkit::expectOverwrite(messages(), Answer::cancel);
            frame_->frame.run(Command::saveScenario);
            ASSERT_TRUE(repository_->hooked.happened());
        }
        saveAgain();
        const long long rows =
            testkit::rowsIn(frame_->frame.services(), {"ScenarioNodes", "ActivitySubNodes", "ActivityFunctions",
                                                       "FunctionSubNodes", "RecordSetOutPuts", "RelationShips"});
        expected = *insert ? expected : rows;
        EXPECT_EQ(rows, expected);
        frame_->close();
        frame_->remove("Sample");
    }
}

TEST(EmbeddedRepositoryFaults, AFullDiskInTheMiddleOfASaveLosesNothing) {
    testkit::TemporaryFolder small;
    if (mount("none", small.path().c_str(), "tmpfs", 0, "size=3m") != 0) {
        GTEST_SKIP() << "only root can mount a small disk";
    }
    {
        testkit::TestRepository repository(small.path());
        testkit::TestFrame frame(repository);
        ASSERT_TRUE(frame.frame.start());
        const auto ballast = small.path() / "ballast";
        const auto fill = [&] {
            std::ofstream file(ballast, std::ios::binary);
            const std::string block(4096, 'x');
            while (file.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) {
            }
        };
        saveThroughFault(repository, frame, 40, fill, [&] { std::filesystem::remove(ballast); });
    }
    umount(small.path().c_str());
}

}  // namespace
}  // namespace orvent::odbc
