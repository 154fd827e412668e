#include "statements/ldl_scenario.h"

#include <functional>
#include <string>

#include "platform/fault.h"
#include "statements/statement_fit.h"
#include "testkit/file_text.h"
#include "testkit/graph_builder.h"
#include "testkit/temporary_folder.h"

namespace orvent::statements {
namespace {

using platform::Icon;

/// "\n" as the line end of the files.
std::string crlf(std::string_view text) {
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? "\r\n" : std::string(1, c);
    }
    return result;
}

class LDLScenarioTest : public testkit::GraphTest {
  protected:
    LDLScenarioTest() { form.setCaption("Night load"); }

    std::string file() const { return testkit::fileText(scratch.path() / "LDLS" / "Night load.ldl"); }
    std::string filePath() const { return scratch.path().string() + "/LDLS/Night load.ldl"; }
    void makeFolder() { std::filesystem::create_directory(scratch.path() / "LDLS"); }
    void expectWritten() { ports.messages.expect("File \"" + filePath() + "\" Was Created."); }
    void expectFault(const std::string& description) {
        ports.messages.expect("Could Not Write To The File!\r\n" + description, "", Icon::critical);
    }

    testkit::TemporaryFolder scratch;
    platform::ProgramFolder folder{scratch.path()};
    testkit::QuietProgress progress;
    LDLScenarioWriter writer{ports.messages, folder, progress};
};

TEST_F(LDLScenarioTest, WritesStatementsThenRules) {
    makeFolder();
    graph.recordSet("AUTHORS", {"ID", "AGE", "NAME"});
    graph.activity("Load", {"NAME", "ID", "SPARE"}, {"NAME", "ID", "Load.Mark"}).Act_LDL = "load(X)<-\r\n  y(X).";
    graph.node("Remark", canvas::NodeTypeComment);
    graph.activity("Clean", {"Load.Mark", "KEY"}, {"KEY"});
    graph.activity("Extra", {"A", "B"}, {"FULL"}).Act_LDL = "extra(1).";
    graph.recordSet("TARGET", {"KEY", "FULL"});
    graph.recordSet("UNFED", {"A"});
    graph.feed("AUTHORS.NAME", "Load.IN.NAME");
    graph.feed("AUTHORS.ID", "Load.IN.ID");
    graph.feed("Load.OUT.Load.Mark", "Clean.IN.Load.Mark");
    graph.feed("AUTHORS.ID", "Clean.IN.KEY");
    graph.feed("Clean.OUT.KEY", "TARGET.KEY");
    graph.feed("AUTHORS.AGE", "Extra.IN.B");
    graph.feed("AUTHORS.AGE", "Extra.IN.A");  // of two links to one activity the first one counts
    graph.feed("Extra.OUT.FULL", "TARGET.FULL");
    graph.feed("Load.OUT.NAME", "TARGET.FULL");

    expectWritten();
    writer.LDLScenario(form);

    EXPECT_EQ(file(), crlf("load(X)<-\n  y(X).\n\n"
                           "\n\n"
                           "extra(1).\n\n"
                           "Load_IN1(Load_IN1_NAME,Load_IN1_ID)<-\n"
                           "AUTHORS(Load_IN1_ID,_,Load_IN1_NAME).\n"
                           "\n"
                           "Clean_IN1(Clean_IN1_Load.Mark)<-\n"
                           "Load_OUT(_,_,Clean_IN1_Load.Mark).\n"
                           "\n"
                           "Clean_IN2(Clean_IN2_KEY)<-\n"
                           "AUTHORS(Clean_IN2_KEY,_,_).\n"
                           "\n"
                           "Extra_IN1(Extra_IN1_A,Extra_IN1_B)<-\n"
                           "AUTHORS(_,Extra_IN1_B,_).\n"
                           "\n"
                           "TARGET(TARGET_KEY,TARGET_FULL)<-\n"
                           "Clean(TARGET_KEY),\n"
                           "Extra(TARGET_FULL),\n"
                           "Load(TARGET_FULL,_,_).\n"
                           "\n"));
    EXPECT_EQ(form.txtLDL, "");
}

TEST_F(LDLScenarioTest, AfterAFaultTheTextStaysAndTheNextAttemptRepeatsIt) {
    graph.activity("Load").Act_LDL = "load(1).";
    expectFault(filePath() + ": No such file or directory");
    writer.LDLScenario(form);
    EXPECT_EQ(file(), "(no file)");

    makeFolder();
    canvas::DrawForm other(ports.services());
    other.setCaption("Other");
    ports.messages.expect("File \"" + scratch.path().string() + "/LDLS/Other.ldl\" Was Created.");
    writer.LDLScenario(other);
    EXPECT_EQ(testkit::fileText(scratch.path() / "LDLS" / "Other.ldl"), "\r\n") << "another scenario begins empty";
    expectWritten();
    writer.LDLScenario(form);
    EXPECT_EQ(file(), "load(1).\r\n\r\nload(1).\r\n\r\n\r\n");
}

TEST_F(LDLScenarioTest, CaptionThatLeadsOutOfTheFolderIsRefused) {
    makeFolder();
    form.setCaption("../stray");
    expectFault(scratch.path().string() +
                "/LDLS/../stray.ldl: the name holds a character that cannot stand in a file name");
    writer.LDLScenario(form);
    EXPECT_EQ(testkit::fileText(scratch.path() / "stray.ldl"), "(no file)");
}

TEST_F(LDLScenarioTest, LinkThatLeadsNowhereIsAFaultOfTheWholeOutput) {
    const struct {
        const char *holder, *name;
        entities::LinkType type;
        const char* key;
        bool forward;
        const char* words;
    } cases[] = {
        {"Load.IN.ID", "GONE", entities::LinkRecordSet, "GONE.ID", false, "There is no node \"GONE\""},
        {"Load.IN.ID", "Other", entities::LinkRecordSet, "Other.ID", false, "\"Other\" is no record set"},
        {"Load.IN.ID", "SOURCE", entities::LinkActivity, "SOURCE.ID", false, "\"SOURCE\" is no activity"},
        {"SOURCE.ID", "TARGET", entities::LinkRecordSet, "TARGET.ID", false, "\"TARGET\" is no activity"},
        {"SOURCE.ID", "Load", entities::LinkRecordSet, "Load.IN.MISSING", true,
         "\"Load\" has no attribute \"MISSING\""},
        {"Other.OUT.ID", "TARGET", entities::LinkRecordSet, "TARGET.MISSING", true,
         "\"TARGET\" has no attribute \"MISSING\""},
    };
    makeFolder();
    graph.recordSet("SOURCE", {"ID"});
    graph.recordSet("TARGET", {"ID"});
    graph.activity("Load", {"ID"});
    graph.activity("Other", {}, {"ID"});
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words);
        for (const char* attribute : {"SOURCE.ID", "TARGET.ID", "Load.IN.ID", "Other.OUT.ID"}) {
            graph.attribute(attribute).ProviderFor->Clear();
            graph.attribute(attribute).ProvidedFrom->Clear();
        }
        auto& holder = graph.attribute(c.holder);
        (c.forward ? holder.ProviderFor : holder.ProvidedFrom)->Add(c.name, c.type, c.key);
        if (c.forward) {
            graph.feed("SOURCE.ID", "Load.IN.ID");
            graph.feed("Other.OUT.ID", "TARGET.ID");
        }
        expectFault(c.words);
        writer.LDLScenario(form);
        EXPECT_EQ(file(), "(no file)");
        form.txtLDL.clear();
    }
}

TEST_F(LDLScenarioTest, WizardOpensForTypedActivitiesWithoutStatement) {
    makeFolder();
    graph.activity("Has").Act_LDL = "has.";
    graph.activity("Made");
    graph.activity("Cancelled");
    graph.activity("Untyped").Act_Type = -1;
    graph.activity("Last");
    struct : ActivityWizard {
        std::string opened, leaveAt;
        void LDLCreate(canvas::DrawForm&, entities::ActivityProperties& activity, ActivityDialog*,
                       WizardRound* round) override {
            opened += activity.Act_Name + " " + std::to_string(round->place) + "/" + std::to_string(round->count) + " ";
            activity.Act_LDL = activity.Act_Name == "Made" ? "made." : "";
            round->left = activity.Act_Name == leaveAt;
        }
    } wizard;
    LDLScenarioWriter asking(ports.messages, folder, progress, &wizard);
    expectWritten();
    asking.LDLScenario(form);
    EXPECT_EQ(wizard.opened, "Made 1/3 Cancelled 2/3 Last 3/3 ");
    const std::string text = crlf("has.\n\nmade.\n\n\n\n\n\n\n\n\n");
    EXPECT_EQ(file(), text);

    wizard.opened.clear();
    wizard.leaveAt = "Cancelled";
    expectWritten();
    asking.LDLScenario(form);
    EXPECT_EQ(wizard.opened, "Cancelled 1/2 ") << "the rest is left";
    EXPECT_EQ(file(), text);
}

TEST_F(LDLScenarioTest, ReportsTheStatementsThatAreNotWhole) {
    makeFolder();
    graph.activity("Whole").Act_LDL = "whole_out(X)<-in(X), mail(a@b).";
    graph.activity("Empty").Act_LDL = "\r\n ";
    graph.activity("Open").Act_LDL = "open_out(!! \"P[2]\" Has Not Been Declared!!).";
    graph.activity("Stopped").Act_LDL = "stopped_out(X)<-@Fun22(X).";
    graph.activity("Broken").Act_LDL = "CRITICAL ERROR AT POSITION: 7...";
    graph.activity("Old", {}, {"KEY"}).Act_LDL = "old_out(Old_OUT_ID).";
    for (const char* text : {"", "old_out(Old_OUT_ID)."}) {
        auto& copy = graph.activity(*text ? "Old_2" : "Empty_2", {}, {"KEY"});
        copy.Act_LDL = text;
        copy.statementDoubt = "It means Old.";
    }
    // A circle of two behind one activity and before another.
    for (const char* name : {"First", "Two", "Three", "Last"}) {
        graph.activity(name, {"I", "J"}, {"O"}).Act_LDL = "whole(1).";
    }
    graph.feed("First.OUT.O", "Two.IN.I");
    graph.feed("Two.OUT.O", "Three.IN.I");
    graph.feed("Three.OUT.O", "Two.IN.J");
    graph.feed("Three.OUT.O", "Last.IN.I");
    // Of four record sets one is a target that gets nothing; one is fed in part, one only read, one stands alone.
    for (const char* name : {"FED", "UNFED", "READ", "ALONE"}) {
        graph.recordSet(name, {"X", "Y"});
    }
    graph.feed("Last.OUT.O", "FED.Y");
    graph.edge("Last", "FED");
    graph.edge("Last", "UNFED");
    graph.edge("ALONE", "ALONE");
    graph.edge("READ", "Last");
    form.Lines.addFullLine(form.NamesColl.Item("Last"), 4, form.NamesColl.Item("ALONE"), 1, canvas::EdgeTypeDescription,
                           canvas::AngleNone, 0);
    using Kind = UnfinishedStatement::Kind;
    struct : StatementReport {
        std::vector<UnfinishedStatement> shown;
        void showUnfinished(canvas::DrawForm&, const std::vector<UnfinishedStatement>& statements) override {
            shown = statements;
        }
    } report;
    LDLScenarioWriter reporting(ports.messages, folder, progress, nullptr, &report);
    expectWritten();
    reporting.LDLScenario(form);
    EXPECT_EQ(report.shown, (std::vector<UnfinishedStatement>{
                                {"Empty", "The statement is empty."},
                                {"Open", "@P[2] has not been declared."},
                                {"Stopped", "@Fun22 was not replaced."},
                                {"Broken", "The loops of the template could not be expanded."},
                                {"Old", "The activity has no output ID.", Kind::outdated},
                                {"Empty_2", "The statement is empty."},
                                {"Old_2", "It means Old.", Kind::doubtful},
                                {"Two", "The data runs in a circle: Two, Three, Two.", Kind::circle},
                                {"Three", "The data runs in a circle: Three, Two, Three.", Kind::circle},
                                {"UNFED", "An edge leads to it, but nobody feeds its columns.", Kind::notFed}}));
    // The status speaks of this scenario, and goes when another comes forward.
    const std::string words = progress.statuses.back();
    EXPECT_EQ(
        words,
        "Without a whole statement: Empty, Open, Stopped, Broken, Empty_2. With a statement that may mean others: "
        "Old_2. With an outdated statement: Old. In a circle of data: Two, Three. Fed by nobody: UNFED");
    reporting.cameForward(&form);
    EXPECT_EQ(progress.statuses.back(), words);
    reporting.cameForward(nullptr);
    EXPECT_EQ(progress.statuses.back(), "Ready");
    progress.statuses.push_back("Another's words");
    reporting.cameForward(&form);
    EXPECT_EQ(progress.statuses.back(), "Another's words");
}

/// What is done to an activity behind its statement, and what is then said of it.
TEST_F(LDLScenarioTest, AStatementThatDoesNotFitSaysWhere) {
    using Activity = entities::ActivityProperties;
    struct Row {
        std::function<void(Activity&, testkit::GraphBuilder&)> change;
        std::string words;
    };
    const auto text = [](const char* statement) { return [statement](Activity& a, auto&) { a.Act_LDL = statement; }; };
    // Among ten inputs a longer number may be that of a shorter name and a digit.
    const auto among = [](int inputs) {
        return [inputs](Activity& a, testkit::GraphBuilder& drawn) {
            for (int at = 3; at <= inputs; ++at) {
                const std::string name = "N" + std::to_string(at);
                a.Act_Inputs->Add(name, 0, entities::TagNone, name).ParentKeyName = "Act";
                drawn.feed("SRC.AGE", "Act.IN." + name);
            }
            a.Act_LDL = "f(Act_IN1_AGE5).";
        };
    };
    const Row rows[] = {
        {among(9), "Source 1 (SRC) gives no input AGE5."},
        {among(10), ""},
        {text("act_out(Act_OUT_ID,Act_OUT_SUM_1)<-act_in1(Act_IN1_ID,Act_IN1_AGE),act_in2()."),
         "act_in2 has 0 arguments, source 2 (LOOK) gives 1 input."},
        {text("act_out(Act_OUT_ID,Act_OUT_SUM_1)<-act_in1(Act_IN1_ID,[Act_IN1_AGE,5]),act_in2(Act_IN2_KEY)."), ""},
        {text("act_out(Act_OUT_ID,Act_OUT_SUM_1)<-f(Act_IN1_ID)."), ""},
        {text("f(A_IN7_X)."), "There is no source 7: the activity has 2 sources."},
        {text("f(Act_IN12345_X)."), ""},
        {text("f(myAct_OUT_GONE,Foo_OUT_X)."), ""},
        {text("act_out(Act_OUT_ID,Act_OUT_SUM_1)<-act_in1(Act_IN1_ID,Act_IN1_AGE),g(Act_IN2_KEY)."), ""},
        {text("act_out(Act_OUT_SUM_1,Foo_OUT_ID)<-act_in1(Act_IN1_ID,Act_IN1_AGE),act_in2(Act_IN2_KEY)."), ""},
        {[](Activity& a, auto&) {
             a.Act_Outputs->Item(1)->Attribute_Name = "X";
             a.Act_LDL = "f(Act_OUT_X).";
         },
         ""},
        {[](Activity& a, auto&) {
             a.Act_Outputs->Add("MORE", 0, entities::TagNone, "MORE");
             a.Act_LDL = "act_out(Act_OUT_SUM_1,Act_OUT_ID,Act_OUT_MORE)<-f(_).";
         },
         "act_out has the outputs in another order than the activity."},
        {[](Activity&, auto&) {}, ""},
        {[](Activity& a, auto&) { a.Act_Inputs->Item(2)->Attribute_Name = "YEARS"; },
         "Source 1 (SRC) gives no input AGE."},
        {[](Activity& a, auto&) { a.Act_Inputs->Item(2)->Attribute_Name = "A"; }, "Source 1 (SRC) gives no input AGE."},
        {[](Activity& a, auto&) { a.Act_Outputs->Item(1)->Attribute_Name = "KEY"; }, "The activity has no output ID."},
        {[](Activity& a, auto&) { a.Act_Inputs->move(1, 2); },
         "act_in1 has the inputs in another order than the activity."},
        {[](Activity& a, auto&) { a.Act_Outputs->move(1, 2); },
         "act_out has the outputs in another order than the activity."},
        {[](Activity& a, auto&) { a.Act_Inputs->Remove("AGE"); },
         "act_in1 has 2 arguments, source 1 (SRC) gives 1 input. (and 1 more)"},
        {[](Activity& a, auto&) { a.Act_Outputs->Add("MORE", 0, entities::TagNone, "MORE"); },
         "act_out has 2 arguments, the activity has 3 outputs."},
        {[](Activity& a, auto&) { a.Act_Inputs->Item("KEY")->ProvidedFrom->Clear(); },
         "There is no source 2: the activity has 1 source."},
        {[](Activity& a, auto& drawn) {
             a.Act_Inputs->Add("NEW", 0, entities::TagNone, "NEW").ParentKeyName = "Act";
             drawn.recordSet("THIRD", {"NEW"});
             drawn.feed("THIRD.NEW", "Act.IN.NEW");
         },
         "Source 3 (THIRD) is not read."},
        {[](Activity& a, auto&) { a.Act_Name = "Later"; }, "It is written for Act, and the activity is Later."},
        // What the text does not show, and what was written by hand.
        {[](Activity& a, auto&) { a.Act_LDL = "other_out(X) <- act_in1(X), Y = acct_in7(A)."; }, ""},
        {[](Activity& a, auto&) { a.Act_LDL = "act_out(X) <- act_in1(X,1,2)."; }, ""},
        {[](Activity& a, auto&) { a.Act_LDL = "act_out(Act_OUT_ID,1) <- act_in1(Act_IN1_AGE,f(1,2)),act_in2(_)."; },
         ""},
    };
    for (const Row& row : rows) {
        canvas::DrawForm scenario(ports.services());
        testkit::GraphBuilder own(scenario);
        own.recordSet("SRC", {"ID", "AGE"});
        own.recordSet("LOOK", {"KEY"});
        Activity& activity = own.activity("Act", {"ID", "AGE", "KEY"}, {"ID", "Sum_1"});
        own.feed("SRC.ID", "Act.IN.ID");
        own.feed("SRC.AGE", "Act.IN.AGE");
        own.feed("LOOK.KEY", "Act.IN.KEY");
        activity.Act_LDL =
            "act_out(Act_OUT_ID,Act_OUT_SUM_1)<-act_in1(Act_IN1_ID,Act_IN1_AGE),act_in2(Act_IN2_KEY),\n"
            "Act_OUT_ID=Act_IN1_ID,fun(Act_IN1_AGE,5,Act_OUT_SUM_1).";
        row.change(activity, own);
        EXPECT_EQ(misfitLine(activity), row.words) << activity.Act_LDL;
    }
}

}  // namespace
}  // namespace orvent::statements
