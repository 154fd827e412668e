#include "repository/scenario_statements.h"
#include "repository_fixture.h"

namespace orvent::testkit {

using canvas::DrawForm;
using canvas::LabelsD;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
namespace sql = repository::sql;
using Texts = std::vector<std::string>;

class ScenarioSaveTest : public RepositoryTest {
  protected:
    ScenarioSaveTest() {
        node(canvas::NodeTypeRecordSet, "RS1").recordSet()->RecordSet_SQL = "select 1";
        node(canvas::NodeTypeActivity, "Act1").activity()->Act_Type = 1;
        fillActivity();
        node(canvas::NodeTypeComment, "Comment0").setComment("words");
        node(canvas::NodeTypeLog, "LOG3");
        node(canvas::NodeTypeActivity, "Bare");
        auto& attribute = recordSet().RecordSet_Outputs->Add("A", 0, "A");
        attribute.ProviderFor->Add("Act1", 1, "Act1.IN.A");
        recordSet().addDbKey("A", "db.t.A");
        form->Lines.addFullLine(1, 3, 2, 1, canvas::EdgeTypeProvider, 3, 0);
        form->Lines.addFullLine(2, 4, 5, 2, canvas::EdgeTypeRegulator, 1, 0);
    }

    void fillActivity() {
        activity().Act_LDL = "ldl";
        activity().Act_SchemaNo = 2;
        auto& providers = activity().Act_Inputs->Add("A", 0, 1, "A").ProvidedFrom;
        providers->Add("RS1", 1, "RS1.A");
        providers->Add("RS9", 1, "RS9.A");
        auto& output = activity().Act_Outputs->Add("O", 1, 3, "O");
        output.ProvidedFrom->Add("Act1", 3, ".IN.A");
        output.RegulatedFrom->Add("Act1", 10, ".PARAM.P");
        output.ProviderFor->Add("Act2", 2, "Act2.IN.O");
        auto& parameter = activity().Act_Parameters->Add("P", 1, 8, "P");
        parameter.RegulatedFrom->Add("Act1", 3, ".IN.A");
        parameter.RegulatorFor->Add("Act1", 10, ".OUT.O");
        entities::FunctionProperties function;
        function.Function_Key = "F";
        function.Function_Type = 1;
        function.Function_Source = 5;
        auto& input = function.Function_Inputs->Add("X", 0, "X");
        input.NodeKind = entities::KindFunctionInput;
        input.RegulatedFrom->Add("Act1", 13, ".IN.A");
        function.Function_Outputs->Add("Y", 0, "Y").NodeKind = entities::KindFunctionOutput;
        activity().Act_Functions->AddFunctionProps(function, "", 0);
    }

    LabelsD& node(std::int32_t type, const std::string& name) {
        return form->Labels.Add(100, 1050, 200, 450, name, type);
    }
    entities::RecordSetProperties& recordSet() { return *form->nodeNamed("RS1")->recordSet(); }
    entities::ActivityProperties& activity() { return *form->nodeNamed("Act1")->activity(); }

    void expectUntyped() {
        messages.expect("Activity \"Bare\" has no activity type defined and will not be saved!", "", Icon::warning);
    }
    void expectQuestion(Answer answer) {
        messages.expect("This Scenario Allready Exists.Would You Like To Replace It?", "Overwrite Scenario",
                        Icon::question, Buttons::yesNoCancel, answer);
    }
    void expectFault(const std::string& words) { messages.expect(words, "", Icon::critical); }
    void save(bool SaveAs) {
        expectUntyped();
        messages.expect("Saved");
        loadSave.SaveScenario(*form, SaveAs);
        messages.verify();
    }

    std::unique_ptr<DrawForm> form = newForm("Demo");

    const Texts kFirstSave = {
        "INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?) [Demo,ann]",
        "SELECT Scenario_ID_seq.CURRVAL FROM dual",
        "INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?) [11,RS1,5,100,200,1050,450]",
        "SELECT Node_ID_seq.CURRVAL FROM dual",
        "INSERT INTO RecordSets VALUES (?,?) [101,select 1]",
        "INSERT INTO RecordSetOutputs VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?)  [101,A,db.t.A,INTEGER]",
        "SELECT SubNode_ID_seq.CURRVAL FROM dual",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [101,1001,3,Act1.IN.A,Act1,1]",
        "INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?) [11,Act1,8,100,200,1050,450]",
        "SELECT Node_ID_seq.CURRVAL FROM dual",
        "INSERT INTO Activities VALUES (?,?,?,?,?,?,?) [102,,Join,,,2,ldl]",
        "INSERT INTO ActivitySubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?,?)  [102,A,1,A,INTEGER,1]",
        "SELECT SubNode_ID_seq.CURRVAL FROM dual",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1002,2,RS1.A,RS1,1]",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1002,2,RS9.A,RS9,1]",
        "INSERT INTO ActivitySubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?,?)  [102,O,2,O,STRING,3]",
        "SELECT SubNode_ID_seq.CURRVAL FROM dual",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1003,2,.IN.A,Act1,3]",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1003,1,.PARAM.P,Act1,10]",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1003,3,Act2.IN.O,Act2,2]",
        "INSERT INTO ActivitySubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?,?)  [102,P,3,P,STRING,8]",
        "SELECT SubNode_ID_seq.CURRVAL FROM dual",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1004,1,.IN.A,Act1,3]",
        "INSERT INTO ActivityFunctions VALUES( ?,Function_ID_seq.NEXTVAL,?,?,?) [102,F,SK,5]",
        "SELECT Function_ID_seq.CURRVAL FROM dual",
        "INSERT INTO FunctionSubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?)  [501,X,6,X,INTEGER]",
        "SELECT SubNode_ID_seq.CURRVAL FROM dual",
        "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1005,1,.IN.A,Act1,13]",
        "INSERT INTO FunctionSubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?)  [501,Y,5,Y,INTEGER]",
        "SELECT SubNode_ID_seq.CURRVAL FROM dual",
        "INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?) [11,Comment0,10,100,200,1050,450]",
        "SELECT Node_ID_seq.CURRVAL FROM dual",
        "INSERT INTO Comments VALUES (?,?) [103,words]",
        "INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?) [11,LOG3,9,100,200,1050,450]",
        "SELECT Node_ID_seq.CURRVAL FROM dual",
        "INSERT INTO Lines Values(?,?,?,?,?,?,?) [11,RS1,3,Act1,1,0,3]",
        "INSERT INTO Lines Values(?,?,?,?,?,?,?) [11,Act1,4,Bare,2,3,1]"};
};

TEST_F(ScenarioSaveTest, FirstSaveInsertsAllInOrder) {
    save(false);
    EXPECT_EQ(database.takeLog(), kFirstSave);
    EXPECT_EQ(form->ScenarioID, 11);
    EXPECT_EQ(recordSet().NodeID, 101);
    EXPECT_EQ(std::get<std::int16_t>(form->nodeNamed("LOG3")->Properties), 104);
    EXPECT_EQ(activity().Act_Functions->Item("F")->Function_Outputs->Item("Y")->SubNode_ID, 1006);
    for (const auto& [text, times] : database.prepared) {
        EXPECT_EQ(times, 1) << text;
    }
}

TEST_F(ScenarioSaveTest, UnchangedSaveRewritesLinksAndLinesOnly) {
    save(false);
    database.takeLog();
    save(false);
    Texts expected{"DELETE FROM Lines WHERE Scenario_ID=? [11]", "DELETE FROM Relationships WHERE Node_ID=? [101]"};
    for (const std::string& line : kFirstSave) {
        if (line.starts_with("INSERT INTO RelationShips") || line.starts_with("INSERT INTO Lines")) {
            expected.push_back(line);
        }
    }
    expected.insert(expected.begin() + 3, "DELETE FROM Relationships WHERE Node_ID=? [102]");
    expected.insert(expected.end() - 2,
                    "UPDATE ScenarioNodes SET Left=?,Top=?,Width=?,Height=? WHERE Node_ID=? [100,200,1050,450,104]");
    EXPECT_EQ(database.takeLog(), expected);
}

TEST_F(ScenarioSaveTest, ChangedRecordsAreUpdated) {
    save(false);
    database.takeLog();
    recordSet().Changed = activity().Changed = true;
    recordSet().RecordSet_Outputs->Item("A")->Changed = true;
    activity().Act_Inputs->Changed = activity().Act_Inputs->Item("A")->Changed = true;
    activity().Act_Parameters->Item("P")->Changed = true;
    activity().Act_Functions->Item("F")->Changed = true;
    activity().Act_Functions->Item("F")->Function_Inputs->Item("X")->Changed = true;
    form->nodeNamed("Comment0")->entity<entities::CommentProperties>()->Changed = true;
    save(false);
    Texts updates;
    for (const std::string& line : database.takeLog()) {
        if (line.starts_with("UPDATE")) {
            updates.push_back(line);
        }
    }
    const std::string changeNode =
        "UPDATE ScenarioNodes SET Node_Name=?,Left=?,Top=?,Width=?,Height=? WHERE Node_ID=? ";
    const std::string changeSubNode =
        "UPDATE ActivitySubNodes SET SubNode_Key=?,SubNode_Name=?,SubNode_Type=? WHERE SubNode_ID=?  ";
    EXPECT_EQ(updates,
              (Texts{changeNode + "[RS1,100,200,1050,450,101]",
                     "UPDATE RecordSets SET RecordSet_SQL=? WHERE RecordSet_ID=? [select 1,101]",
                     "UPDATE RecordSetOutputs SET Output_Key=? WHERE Output_ID=?  [A,1001]",
                     changeNode + "[Act1,100,200,1050,450,102]",
                     "UPDATE Activities SET Activity_Descr=?,Activity_Type=?,Activity_Log=?,Activity_SQL=?,"
                     "Activity_LDL=?,Activity_SchemaNo=? WHERE Activity_ID=? [,Join,,,ldl,2,102]",
                     changeSubNode + "[A,A,INTEGER,1002]", changeSubNode + "[P,P,STRING,1004]",
                     "UPDATE ActivityFunctions SET Function_Key=?,Function_Type=? WHERE Function_ID=? [F,SK,501]",
                     "UPDATE FunctionSubNodes SET SubNode_Key=?,SubNode_Name=?,SubNode_Type=? WHERE SubNode_ID=?  "
                     "[X,X,INTEGER,1005]",
                     changeNode + "[Comment0,100,200,1050,450,103]",
                     "UPDATE Comments SET Comment_Text=? WHERE Comment_ID=? [words,103]",
                     "UPDATE ScenarioNodes SET Left=?,Top=?,Width=?,Height=? WHERE Node_ID=? [100,200,1050,450,104]"}));
}

TEST_F(ScenarioSaveTest, SaveAsWritesAllAnewAndForgetsDeletions) {
    save(false);
    form->DeletedNodes.Add(77, canvas::DeletedLog);
    database.takeLog();
    save(false);
    EXPECT_EQ(database.takeLog().front(), "DELETE FROM ScenarioNodes WHERE Node_ID=? [77]");
    EXPECT_EQ(form->DeletedNodes.Count(), 1) << "a plain save keeps the store";
    save(true);
    EXPECT_EQ(database.takeLog().size(), kFirstSave.size());
    EXPECT_EQ(form->ScenarioID, 12);
    EXPECT_EQ(recordSet().NodeID, 105);
    EXPECT_EQ(form->DeletedNodes.Count(), 0);
}

TEST_F(ScenarioSaveTest, DeletionsInOrder) {
    for (const std::int16_t kind : std::initializer_list<std::int16_t>{1, 6, 8, 11, 2, 7}) {
        form->DeletedNodes.Add(static_cast<std::int16_t>(20 + kind), kind);
    }
    {
        repository::StatementCache repository = repository::openRepository(services);
        loadSave.ApplyDeletions(*form, 4, repository);
    }
    EXPECT_EQ(
        database.log,
        (Texts{"DELETE FROM ActivitySubNodes WHERE SubNode_ID=? [21]",
               "DELETE FROM FunctionSubNodes WHERE SubNode_ID=? [26]",
               "DELETE FROM Relationships WHERE SubNode_ID=? [26]", "DELETE FROM Comments WHERE Comment_ID=? [31]",
               "DELETE FROM ScenarioNodes WHERE Node_ID=? [31]", "DELETE FROM ActivitySubNodes WHERE SubNode_ID=? [22]",
               "DELETE FROM Relationships WHERE SubNode_ID=? [22]",
               "DELETE FROM FunctionSubNodes WHERE Function_ID=? [27]",
               "DELETE FROM ActivityFunctions WHERE Function_ID=? [27]", "DELETE FROM Lines WHERE Scenario_ID=? [4]"}));
}

TEST_F(ScenarioSaveTest, TakenNameReplacesTheOtherScenario) {
    form->ScenarioID = 5;
    recordSet().NodeID = 3;
    database.fail("INSERT INTO Scenarios", kRefused);
    database.answer(sql::kScenarioByName, {{"7"}});
    database.answer(sql::kNodeTypes, {{"41", "5"}, {"42", "8"}, {"43", "10"}, {"44", "9"}});
    expectQuestion(Answer::yes);
    save(true);
    EXPECT_EQ(form->ScenarioID, 7);
    EXPECT_EQ(recordSet().NodeID, 101) << "written anew";
    EXPECT_EQ(windows.calls, Texts{"gone 7 but one"});
    Texts log = database.takeLog();
    log.erase(log.begin(), log.begin() + 3);
    const std::string links = "DELETE FROM RelationShips WHERE Node_ID=? ";
    EXPECT_EQ(Texts(log.begin(), log.begin() + 14),
              (Texts{links + "[41]", "DELETE FROM RecordSetOutputs WHERE RecordSet_ID=? [41]",
                     "DELETE FROM RecordSets WHERE RecordSet_ID=? [41]", links + "[42]",
                     "DELETE FROM ActivitySubNodes WHERE Activity_ID=? [42]",
                     "DELETE FROM FunctionSubNodes WHERE Function_ID IN (SELECT FUNCTION_ID FROM ActivityFunctions "
                     "WHERE Activity_ID=?) [42]",
                     "DELETE FROM ActivityFunctions WHERE Activity_ID=? [42]",
                     "DELETE FROM Activities WHERE Activity_ID=? [42]", links + "[43]",
                     "DELETE FROM Comments WHERE Comment_ID=? [43]", links + "[44]",
                     "DELETE FROM Lines WHERE Scenario_ID=? [7]", "DELETE FROM ScenarioNodes WHERE Scenario_ID=? [7]",
                     "INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?) "
                     "[7,RS1,5,100,200,1050,450]"}));
}

TEST_F(ScenarioSaveTest, TakenNameIsReplacedByAnother) {
    const std::string prompt = "PLEASE GIVE A NEW NAME FOR THIS SCENARIO:\n(give an empty name if you wish to exit)";
    const std::string again = "YOU HAVE GIVEN THE SAME NAME!\n" + prompt;
    form->KeptCaption = "Scenario1";
    form->ScenarioID = 5;
    recordSet().NodeID = 3;
    database.fail("INSERT INTO Scenarios", kRefused);
    expectQuestion(Answer::no);
    inputBox.expect(prompt, "Scenario Name", "", "Demo");
    inputBox.expect(again, "Scenario Name", "", "Demo");
    inputBox.expect(again, "Scenario Name", "", "");
    loadSave.SaveScenario(*form, true);
    EXPECT_EQ(form->Caption(), "Scenario1");
    EXPECT_EQ(database.takeLog().size(), 1u);
    EXPECT_EQ(form->ScenarioID, 5);
    EXPECT_EQ(recordSet().NodeID, 3) << "nothing was written";

    database.fail("INSERT INTO Scenarios", kRefused);
    expectQuestion(Answer::no);
    inputBox.expect(prompt, "Scenario Name", "", "Other");
    save(true);
    EXPECT_EQ(form->Caption(), "Other");
    EXPECT_EQ(database.log.at(1), "INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?) [Other,ann]");
}

TEST_F(ScenarioSaveTest, OtherErrorsAreToldFirst) {
    database.refuseOpen = kBroken;
    expectFault("line is down");
    loadSave.SaveScenario(*form, false);
    messages.verify();
    database.refuseOpen.reset();

    database.fail("INSERT INTO Scenarios", kBroken);
    expectFault("line is down");
    expectQuestion(Answer::cancel);
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(form->ScenarioID, 0);

    save(false);
    recordSet().RecordSet_Outputs->Item("A")->SubNode_ID = 0;
    database.fail("INSERT INTO RecordSetOutputs", kBroken);
    expectFault("line is down");
    expectQuestion(Answer::yes);
    expectFault("There is no scenario of the name \"Demo\".");
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(form->ScenarioID, 11);
    EXPECT_EQ(recordSet().NodeID, 101) << "its rows are still there";
}

}  // namespace orvent::testkit
