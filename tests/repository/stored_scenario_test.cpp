// Scenarios on a real repository: what comes back.

#include "repository/stored_content.h"
#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

TEST_F(StoredScenarioTest, ComesBackFromOddRowsToo) {
    auto form = savedGraph();
    for (const char* sql : {"INSERT INTO Lines VALUES (1,'Act1',4,'Gone',1,0,3)",
                            "INSERT INTO ActivitySubNodes VALUES (4,SubNode_ID_seq.NEXTVAL,'O',2,'twice','DATE',3)",
                            "INSERT INTO ActivitySubNodes VALUES (4,SubNode_ID_seq.NEXTVAL,'odd',99,'odd','DATE',3)",
                            "INSERT INTO FunctionSubNodes VALUES (1,SubNode_ID_seq.NEXTVAL,'odd',99,'odd','DATE')",
                            "INSERT INTO RelationShips VALUES (4,4,4,'odd','odd',1)"}) {
        run(sql);
    }
    windows.calls.clear();
    const auto back = loaded(1);
    EXPECT_EQ(modelText(*back), modelText(*form));
    EXPECT_EQ(user.told.back(),
              "The stored scenario is not whole; a save of it may have been broken off.\nNot as it is stored: Act1, "
              "(edges).\nEdges lead to what is not there: Gone.\nPlease look it through and save it again.");
    EXPECT_EQ(back->Caption(), "Demo");
    EXPECT_EQ(back->ScenarioID, 1);
    EXPECT_EQ(windows.calls, (std::vector<std::string>{"disable", "enable"}));
    EXPECT_TRUE(back->nodeNamed("Act1")->Ready() && back->nodeNamed("RS1")->Ready());
    EXPECT_FALSE(back->nodeNamed("Bare")->Ready()) << "it has no attribute";
    EXPECT_EQ(activity(*back).Act_Functions->Item("F")->Function_Name, "F");
    EXPECT_EQ(activity(*back).Act_Inputs->Item("A")->ProvidedFrom->Item(1)->Provider_Name, "RS2")
        << "the order of sources is kept";
}

// What a program that was killed in the middle of a save leaves, and what a load says of it.
TEST_F(StoredScenarioTest, AMixtureIsLoadedWithAWord) {
    const auto form = savedGraph();
    const std::pair<const char*, const char*> rows[] = {
        {"DELETE FROM Lines", "No edge is stored, though nodes are linked."},
        {"DELETE FROM RelationShips WHERE Node_ID=1", "\nNot as it is stored: RS1."},
        {"UPDATE ActivitySubNodes SET SubNode_Key='N',SubNode_Name='N' WHERE SubNode_Key='A'",
         "\nLinks lead to what is not there, in: RS1, RS2, Act1."},
        {"DELETE FROM ActivitySubNodes WHERE SubNode_Key='O'", "\nNot as it is stored: Act1."},
        {"DELETE FROM RecordSets WHERE RecordSet_ID=3", "\nNot as it is stored: Bare."},
        {"DELETE FROM Comments", "\nNot as it is stored: Comment0."},
        {"UPDATE ScenarioNodes SET Node_Name='New' WHERE Node_ID=1", "\nEdges lead to what is not there: RS1."},
        {"INSERT INTO ActivitySubNodes VALUES (4,SubNode_ID_seq.NEXTVAL,'O',2,'twice','DATE',3)",
         "\nNot as it is stored: Act1."},
    };
    for (const auto& [sql, words] : rows) {
        SCOPED_TRACE(sql);
        user.told.clear();
        EXPECT_FALSE(repository::isUnsaved(*loaded(form->ScenarioID)));
        ASSERT_TRUE(user.told.empty()) << user.told[0];
        run(sql);
        const auto damaged = loaded(1);
        ASSERT_EQ(user.told.size(), 1u);
        EXPECT_NE(user.told[0].find(words), std::string::npos) << user.told[0];
        EXPECT_EQ(repository::isUnsaved(*damaged), user.told[0].find("Not as it is stored") != std::string::npos);
        save(*damaged, false, Answer::cancel);
        ASSERT_EQ(user.told.back(), "Saved");
        loadSave.RemoveScenario(1, true);
        run("UPDATE orvent_sequences SET value=0");
        save(*form, true, Answer::cancel);
    }
}

TEST_F(StoredScenarioTest, ALoadThatBreaksOffLeavesNoScenarioToSave) {
    savedGraph();
    for (int at = 4;; ++at) {  // the first three read the name and the catalogue
        repository.hooked.after(at, [] { throw kBroken; });
        const auto form = loaded(1);
        if (!repository.hooked.happened()) {
            EXPECT_GT(at, 20);
            break;
        }
        EXPECT_EQ(form->ScenarioID, 0) << "a part could be saved in place of the whole";
        EXPECT_EQ(form->Caption(), "Demo (in part)");
        EXPECT_EQ(user.told.back(), "line is down");
        EXPECT_EQ(windows.calls.back(), "enable");
    }
}

TEST_F(StoredScenarioTest, ChangesAreWrittenInPlace) {
    savedGraph();
    const long long rows = storedRows();
    const auto form = loaded(1);
    entities::ActivityProperties& changed = activity(*form);
    auto& outputs = *recordSet(*form, "RS2").RecordSet_Outputs;
    outputs.AddFullAttribute(*outputs.Item("B"), "C", false, 0);
    outputs.Remove("B");
    outputs.Item("C")->Attribute_Name = "C";
    outputs.Item("C")->Changed = true;
    recordSet(*form, "RS1").RecordSet_SQL = changed.Act_SQL = changed.Act_LDL = "changed";
    recordSet(*form, "RS1").Changed = changed.Changed = changed.Act_Inputs->Changed = true;
    for (auto* attribute : {changed.Act_Inputs->Item("A"), changed.Act_Outputs->Item("O")}) {
        attribute->Attribute_Type = 5;
        attribute->Changed = true;
    }
    entities::FunctionProperties& function = *changed.Act_Functions->Item("F");
    function.Function_Type = 5;
    function.Changed = true;
    for (auto* parameter : {changed.Act_Parameters->Item("P"), function.Function_Inputs->Item("X"),
                            function.Function_Outputs->Item("Y")}) {
        parameter->Parameter_Type = 6;
        parameter->Changed = true;
    }
    form->nodeNamed("Comment0")->setComment("new");
    form->nodeNamed("Comment0")->entity<entities::CommentProperties>()->Changed = true;
    form->nodeNamed("LOG1")->setLeft(77);
    save(*form, false, Answer::cancel);
    expectStored(*form, modelText(*form));
    EXPECT_EQ(storedRows(), rows);
}

TEST_F(StoredScenarioTest, DeletedMembersLeaveNoRow) {
    const auto form = savedGraph();
    entities::ActivityProperties& owner = activity(*form);
    entities::FunctionProperties& function = *owner.Act_Functions->Item("F");
    canvas::DeletedNodesCollection& deleted = *form->DeletedNodes;
    deleted.Add(owner.Act_Inputs->Item("A")->SubNode_ID, entities::KindInput);
    deleted.Add(owner.Act_Outputs->Item("O")->SubNode_ID, entities::KindOutput);
    deleted.Add(owner.Act_Parameters->Item("P")->SubNode_ID, entities::KindParameter);
    deleted.Add(function.Function_Inputs->Item("X")->SubNode_ID, entities::KindFunctionInput);
    deleted.Add(function.Function_Outputs->Item("Y")->SubNode_ID, entities::KindFunctionOutput);
    deleted.Add(recordSet(*form, "RS1").RecordSet_Outputs->Item("A")->SubNode_ID, entities::KindRecordSetAttribute);
    applyDeletions(*form);
    // Six nodes with their five own rows, two attributes and a link of RS2, the sources of the input, and the function.
    EXPECT_EQ(storedRows(), 11 + 3 + 2 + 2);
    deleted.Add(function.FunctionID, entities::KindFunction);
    applyDeletions(*form);
    EXPECT_EQ(storedRows(), 11 + 3 + 2);
}

TEST_F(StoredScenarioTest, DeletedNodesLeaveNoRow) {
    const auto form = savedGraph();
    deleteNodes(*form, {"RS1", "RS2", "Bare", "Act1", "Comment0", "LOG1"});
    applyDeletions(*form);
    EXPECT_EQ(storedRows(), 0);
}

}  // namespace

}  // namespace orvent::testkit
