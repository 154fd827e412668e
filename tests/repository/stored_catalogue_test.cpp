// The catalogue in a real repository, and what the creation script puts there.

#include <algorithm>

#include "repository_fixture.h"
#include "testkit/embedded_repository.h"

namespace orvent::testkit {

namespace {

TEST(CreationScript, HoldsOnlyWhatTheReaderPassesOn) {
    const std::string text = fileText(ORVENT_SOURCE_DIR "/sql/ORVENTII.sql");
    EXPECT_TRUE(text.ends_with(';')) << "a rest behind the last statement would be executed too";
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c == '\n' || (c >= 32 && c <= 125); }));
}

// A type in use must not vanish: the program relies on the database to refuse.
TEST(CreationScript, EveryColumnOfATypeRefersToIt) {
    TestRepository repository;
    const auto connection = repository.database.open(repository.settings.login.ReposConnString, "", "");
    for (const std::string column :
         {"Activities(Activity_Type)", "ActivitySubNodes(SubNode_Type)", "ActivityFunctions(Function_Type)",
          "FunctionSubNodes(SubNode_Type)", "RecordSetOutputs(Output_Type)", "ActivityTypesParams(ActivityType_name)",
          "ActivityTypesParams(Param_type)", "ActivityTypesFunctions(ActivityType_name)",
          "ActivityTypesFunctions(Function_type)", "FunctionTypesParams(FunctionType_name)",
          "FunctionTypesParams(Param_type)"}) {
        try {
            connection->prepare("INSERT INTO " + column + " VALUES ('unknown')")->execute();
            ADD_FAILURE() << column << " takes any name";
        } catch (const platform::DatabaseError& fault) {
            EXPECT_NE(fault.description().find("FOREIGN KEY"), std::string::npos) << column << fault.description();
        }
    }
}

class StoredCatalogueTest : public ::testing::Test {
  protected:
    void expectInformation(const char* text) { repository.messages.expect(text, "", platform::Icon::information); }

    TestRepository repository;
    repository::Services services = repository.services();
    StoredCatalogue catalogue{services};
};

TEST_F(StoredCatalogueTest, HasTheNamesThatTheProgramLooksFor) {
    EXPECT_TRUE(catalogue.tables.dataTypes.indexOf(entities::kDefinedBySource));
    const auto empty = catalogue.tables.functionTypes.indexOf("[EMPTY]");
    ASSERT_TRUE(empty);
    EXPECT_EQ(catalogue.GetFunctionType(*empty).FunctionType_Inputs.count(), 0) << "it has no members";
    for (std::int16_t type = 0; type < static_cast<std::int16_t>(catalogue.tables.activityTypes.rows()); ++type) {
        EXPECT_EQ(catalogue.tables.activityTypes.name(type).find('.'), std::string::npos) << "refused in names";
    }
}

TEST_F(StoredCatalogueTest, TypesComeBackAsSavedAndUpdated) {
    entities::FunctionTypeProperties function;
    function.FunctionType_Name = "F";
    function.FunctionType_Description = "d";
    function.FunctionType_Inputs->Add("I", 1, "I");
    expectInformation("FUNCTION TYPE SAVED");
    catalogue.SaveFunctionType(function);
    function = catalogue.GetFunctionType(catalogue.FunctionTypeIndex("F"));
    function.FunctionType_Name = "G";
    function.FunctionType_Outputs->Add("O", 2, "O");
    expectInformation("FUNCTION TYPE UPDATED");
    catalogue.UpdateFunctionType(function);
    function = catalogue.GetFunctionType(catalogue.FunctionTypeIndex("G"));
    EXPECT_EQ(function.FunctionType_Name + function.FunctionType_Description, "Gd");
    ASSERT_TRUE(function.FunctionType_Inputs.count() == 1 && function.FunctionType_Outputs.count() == 1);
    EXPECT_EQ(function.FunctionType_Inputs->Item("I")->Input_Type, 1);
    EXPECT_EQ(function.FunctionType_Outputs->Item("O")->Output_Type, 2);

    entities::ActivityTypeProperties activity;
    activity.ActType_Name = "A";
    activity.ActType_SQL = "old";
    activity.ActType_LDL = "ldl";
    activity.ActType_SchemaNo = 2;
    activity.ActType_ProviderSemantics = 3;
    activity.ActType_ConsumerSemantics = 4;
    activity.ActType_Functions->Add("U", 3, "U");
    expectInformation("Activity TYPE SAVED");
    catalogue.SaveActivityType(activity);
    activity = catalogue.GetActivityType(catalogue.ActivityTypeIndex("A"));
    activity.ActType_Name = "B";
    activity.ActType_SQL = "sql";
    activity.ActType_Parameters->Add("P", 1, "P");
    activity.ActType_OutPuts->Add("O", 5, "O");
    expectInformation("Activity TYPE UPDATED");
    catalogue.UpdateActivityType(activity);
    const std::int16_t index = catalogue.ActivityTypeIndex("B");
    EXPECT_EQ(catalogue.tables.activityTypeSql.at(static_cast<std::size_t>(index)), "sql");
    activity = catalogue.GetActivityType(index);
    EXPECT_EQ(activity.ActType_SQL + activity.ActType_LDL, "sqlldl");
    EXPECT_EQ(activity.ActType_SchemaNo, 2);
    EXPECT_EQ(activity.ActType_ProviderSemantics * 10 + activity.ActType_ConsumerSemantics, 34);
    EXPECT_EQ(activity.ActType_Functions->Item("U")->Function_Type, 3);
    EXPECT_EQ(activity.ActType_Parameters->Item("P")->Parameter_Type, 1);
    EXPECT_EQ(activity.ActType_OutPuts->Item("O")->Output_Type, 5);

    EXPECT_THROW(catalogue.UpdateDataType(0, catalogue.tables.dataTypes.name(1)), platform::DatabaseError);
}

}  // namespace

}  // namespace orvent::testkit
