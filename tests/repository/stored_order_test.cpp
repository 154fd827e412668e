// What an update cannot carry: the order of rows, tags, and types of a record set.

#include <functional>
#include <set>

#include "repository/stored_content.h"
#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

class StoredOrderTest : public StoredScenarioTest {
  protected:
    StoredOrderTest() {
        entities::ActivityProperties& owner = activity(*form);
        for (const char* name : {"B", "C"}) {
            owner.Act_Inputs->Add(name, 1, entities::TagNone, name).ParentKeyName = "Act1";
            owner.Act_Outputs->Add(name, 1, entities::TagNone, name).ParentKeyName = "Act1";
            owner.Act_Parameters->Add(name, 1, entities::TagTypeParameter, name).ParentKeyName = "Act1";
        }
        addFunction(*form, "G", 2);
        addFunction(*form, "H", 3);
        save(*form, true, Answer::cancel);
    }

    std::multiset<long long> identifiers() {
        std::multiset<long long> found;
        repository::StatementCache open = repository::openRepository(services);
        for (const char* sql : {"SELECT SubNode_ID FROM ActivitySubNodes", "SELECT SubNode_ID FROM FunctionSubNodes",
                                "SELECT Output_ID FROM RecordSetOutPuts"}) {
            platform::Statement& row = open.run(sql);
            while (row.fetch()) {
                found.insert(row.number(1));
            }
        }
        return found;
    }

    entities::ActivityProperties& owner() { return activity(*form); }
    entities::FunctionProperties& function() { return *owner().Act_Functions->Item("G"); }
    entities::AttributeCollection& attributes() { return *recordSet(*form, "RS2").RecordSet_Outputs; }

    std::unique_ptr<canvas::DrawForm> form = graph("Demo");
};

TEST_F(StoredOrderTest, ComesBackAsItIsShown) {
    struct Edit {
        const char* name;
        std::function<void()> make;
        int drawn;  ///< identifiers of members
    };
    const Edit edits[] = {
        {"inputs", [&] { owner().Act_Inputs->move(1, 2); }, 0},
        {"outputs", [&] { owner().Act_Outputs->move(3, 1); }, 0},
        {"parameters", [&] { owner().Act_Parameters->move(1, 3); }, 0},
        {"a new input in front",
         [&] { owner().Act_Inputs->insert(1, owner().Act_Inputs->Item("C")->Clone(), "D").Key = "D"; }, 1},
        {"a tag", [&] { owner().Act_Outputs->Item(3)->Tag = entities::TagFunction; }, 1},
        {"a tag in the middle", [&] { owner().Act_Parameters->Item(2)->Tag = entities::TagFunction; }, 2},
        {"tags that change places",
         [&] {
             owner().Act_Parameters->move(1, 2);
             owner().Act_Parameters->Item(1)->Tag = entities::TagTypeParameter;
             owner().Act_Parameters->Item(2)->Tag = entities::TagFunction;
         },
         0},
        {"the type that a link gave",
         [&] {
             owner().Act_Inputs->Changed = false;
             owner().Act_Inputs->Item("B")->Attribute_Type = 7;
             owner().Act_Inputs->Item("B")->Changed = true;
         },
         0},
        {"attributes", [&] { attributes().move(2, 1); }, 1},
        {"the type of an attribute", [&] { attributes().Item(1)->Attribute_Type = 5; }, 2},
        {"the source of an attribute", [&] { recordSet(*form, "RS2").addDbKey(attributes().Item(2)->Key, "db"); }, 1},
        {"inputs of a function", [&] { function().Function_Inputs->move(2, 1); }, 0},
        {"the last function in front", [&] { owner().Act_Functions->move(3, 1); }, 6},
        {"the source of a function",
         [&] { owner().Act_Functions->Item(3)->Function_Source = entities::SourceActivityType; }, 3},
    };
    for (const auto& [name, make, drawn] : edits) {
        SCOPED_TRACE(name);
        const std::multiset<long long> before = identifiers();
        make();
        const std::string expected = modelText(*form);
        save(*form, false, Answer::cancel);
        expectStored(*form, expected);
        EXPECT_EQ(modelText(*form), expected);
        int added = 0;
        for (const long long id : identifiers()) {
            added += before.contains(id) ? 0 : 1;
        }
        EXPECT_EQ(added, drawn);
        const std::multiset<long long> after = identifiers();
        save(*form, false, Answer::cancel);
        EXPECT_EQ(identifiers(), after) << "what is in order stays";
    }
}

TEST_F(StoredOrderTest, ThatTheIdentifiersDoNotSufficeForIsToldAndAllElseSaved) {
    attributes().move(2, 1);
    owner().Act_LDL = "new";
    const long long rows = storedRows();
    run("UPDATE orvent_sequences SET value=32766 WHERE name='SubNode_ID_seq'");
    save(*form, false, Answer::cancel);
    ASSERT_EQ(user.told.size(), 1u);
    EXPECT_NE(user.told[0].find("order"), std::string::npos) << user.told[0];
    EXPECT_TRUE(repository::isUnsaved(*form));
    EXPECT_EQ(storedRows(), rows);
    EXPECT_EQ(activity(*loaded(form->ScenarioID)).Act_LDL, "new");
    run("UPDATE orvent_sequences SET value=1000 WHERE name='SubNode_ID_seq'");
    save(*form, false, Answer::cancel);
    expectStored(*form, modelText(*form));
}

}  // namespace

}  // namespace orvent::testkit
