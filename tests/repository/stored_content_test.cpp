// What a save would write: whether it has changed, and whether it can be stored at all.

#include "repository/stored_content.h"

#include <functional>

#include "stored_scenario_fixture.h"
#include "testkit/numbers.h"

namespace orvent::testkit {

namespace {

class StoredContentTest : public StoredScenarioTest {
  protected:
    entities::FunctionProperties& function() { return *activity(*form).Act_Functions->Item("F"); }

    std::unique_ptr<canvas::DrawForm> form = savedGraph();
};

TEST_F(StoredContentTest, EveryChangeOfWhatIsWrittenIsSeen) {
    const std::vector<std::function<void()>> changes = {
        [&] { form->nodeNamed("LOG1")->setLeft(1); },
        [&] { form->nodeNamed("LOG1")->setHeight(1); },
        [&] { form->nodeNamed("Comment0")->setComment("other"); },
        [&] { activity(*form).Act_Description = "other"; },
        [&] { activity(*form).Act_LDL = "other"; },
        [&] { activity(*form).Act_Type = 2; },
        [&] { activity(*form).Act_Inputs->Item("A")->Attribute_Name = "other"; },
        [&] { activity(*form).Act_Outputs->Item("O")->Attribute_Type = 2; },
        [&] { activity(*form).Act_Outputs->Item("O")->ProvidedFrom->Add("RS1", entities::LinkRecordSet, "RS1.B"); },
        [&] { activity(*form).Act_Parameters->Item("P")->RegulatedFrom->Remove(1); },
        [&] { activity(*form).Act_Parameters->Remove("P"); },
        [&] { function().Function_Type = 3; },
        [&] { function().Function_Inputs->Item("X")->Parameter_Type = 3; },
        [&] { function().Function_Inputs->Item("X")->RegulatedFrom->Add("Act1", entities::LinkInput, ".IN.A"); },
        [&] { recordSet(*form, "RS1").RecordSet_SQL = "other"; },
        [&] { recordSet(*form, "RS2").RecordSet_Outputs->Add("C", 1, "C"); },
        [&] { form->Lines.addFullLine(1_node, 3, 2_node, 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0); },
        [&] { (*form->Lines.begin()).setAngle(canvas::AngleVerticalUp); },
        [&] {
            form->Labels.Add({0, 0, 1, 1}, "new", canvas::NodeTypeRecordSet);
        },
        [&] { form->Labels.Remove(form->nodeNamed("Bare")->Index()); },
    };
    EXPECT_FALSE(repository::isUnsaved(*form)) << "just saved";
    for (std::size_t at = 0; at < changes.size(); ++at) {
        changes[at]();
        EXPECT_TRUE(repository::isUnsaved(*form)) << "change " << at;
        repository::markStored(*form);
    }
}

TEST_F(StoredContentTest, IsSavedWhenMadeSavedOrLoaded) {
    EXPECT_FALSE(repository::isUnsaved(*newForm("new")));
    EXPECT_FALSE(repository::isUnsaved(*loaded(1)));
    EXPECT_TRUE(repository::isUnsaved(*graph("drawn")));
    form->SelectedLabels.Add(form->nodeNamed("RS1")->Index());
    recordSet(*form, "RS1").ZoomPosition = 5;
    EXPECT_FALSE(repository::isUnsaved(*form)) << "no save would write that";
}

TEST_F(StoredContentTest, ATextThatWouldBeCutIsRefusedWithItsField) {
    const std::string cut("a\0b", 3);
    struct Field {
        std::string words;
        std::string& text;
    };
    const Field rows[] = {
        {"Activity_LDL of \"Act1\"", activity(*form).Act_LDL},
        {"Activity_Descr of \"Act1\"", activity(*form).Act_Description},
        {"SubNode_Name of \"Act1\"", activity(*form).Act_Outputs->Item("O")->Attribute_Name},
        {"RecordSet_SQL of \"RS2\"", recordSet(*form, "RS2").RecordSet_SQL},
        {"Comment_Text of \"Comment0\"", form->nodeNamed("Comment0")->entity<entities::CommentProperties>()->Comment},
    };
    const long long rowsBefore = storedRows();
    for (const auto& [words, text] : rows) {
        const std::string former = std::exchange(text, cut);
        for (const bool SaveAs : {false, true}) {
            save(*form, SaveAs, Answer::yes);
            ASSERT_EQ(user.told.size(), 1u) << words;
            EXPECT_NE(user.told[0].find("The field " + words), std::string::npos) << user.told[0];
        }
        EXPECT_EQ(storedRows(), rowsBefore) << "nothing was touched";
        text = former;
    }
    form->setCaption(cut);
    save(*form, true, Answer::yes);
    EXPECT_NE(user.told[0].find("Scenario_Name"), std::string::npos) << user.told[0];
}

TEST_F(StoredContentTest, ANameThatTheDatabaseCannotKeepIsRefusedBeforeAnythingIsWritten) {
    const std::string longer(31, 'x');
    struct Field {
        std::string words;
        std::function<void(canvas::DrawForm&)> lengthen;
    };
    const Field rows[] = {
        {"Node_Name of \"" + longer + "\"", [&](auto& made) { made.nodeNamed("RS2")->setCaption(longer); }},
        {"SubNode_Name of \"RS2\"", [&](auto& made) { recordSet(made, "RS2").RecordSet_Outputs->Add(longer, 1, "C"); }},
        {"SubNode_Name of \"Act1\"",
         [&](auto& made) { activity(made).Act_Outputs->Item("O")->Attribute_Name = longer; }},
        {"DB_Key of \"RS2\"", [&](auto& made) { recordSet(made, "RS2").addDbKey("B", longer); }},
        {"Function_Key of \"Act1\"",
         [&](auto& made) { activity(made).Act_Functions->Item("F")->Function_Key = longer; }},
        {"From_Key of \"Act1\"",
         [&](auto& made) {
             activity(made).Act_Outputs->Item("O")->ProvidedFrom->Add("RS1", entities::LinkRecordSet, longer);
         }},
    };
    repository.hooked.plainLimit = platform::TextLimit{.characters = 30, .bytes = 0};
    repository.hooked.keyLimit = platform::TextLimit{.characters = 20, .bytes = 0};
    const long long rowsBefore = storedRows();
    const std::string has = " is too long: it has 31 characters, and this repository keeps at most 30.\n";
    for (const auto& [words, lengthen] : rows) {
        auto made = loaded(1);
        lengthen(*made);
        for (const bool SaveAs : {false, true}) {
            save(*made, SaveAs, Answer::yes);
            ASSERT_EQ(user.told.size(), 1u) << words;
            EXPECT_EQ(user.told[0], "The field " + words + has + "Please give a shorter name and save again.");
        }
        EXPECT_EQ(storedRows(), rowsBefore) << "nothing was touched";
    }
    activity(*form).Act_LDL = longer;
    save(*form, false, Answer::yes);
    EXPECT_EQ(user.told.back(), "Saved") << "long texts are no names";
    form->setCaption("a name beyond the key");
    save(*form, true, Answer::yes);
    EXPECT_NE(user.told[0].find("Scenario_Name of \"a name beyond the key\" is too long: it has 21"), std::string::npos)
        << user.told[0];
}

}  // namespace

}  // namespace orvent::testkit
