// A repository without types, as a start on a full disk used to leave it.

#include "repository/starter_catalogue.h"

#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

class StarterCatalogueTest : public StoredScenarioTest {
  protected:
    void empty(std::initializer_list<const char*> tables) {
        for (const char* table : tables) {
            run("DELETE FROM " + std::string(table));
        }
        catalogue.load();
    }

    long long parameterRows() {
        return rowsIn(services, {"FunctionTypesParams", "ActivityTypesParams", "ActivityTypesFunctions"});
    }

    void offer(Answer answer) {
        user.told.clear();
        user.toQuestions = answer;
        repository.settings.SQLPath = std::string(ORVENT_SOURCE_DIR) + "/sql/ORVENTII.sql";
        repository::offerStarterCatalogue(services, catalogue);
    }
};

TEST_F(StarterCatalogueTest, IsOfferedAndFilledInWhereTypesAreMissing) {
    const long long rows = parameterRows();
    const std::size_t types = catalogue.tables.activityTypes.rows();
    offer(Answer::ok);
    EXPECT_TRUE(user.told.empty()) << "nothing is missing";

    empty({"ActivityTypesFunctions", "ActivityTypesParams", "ActivityTypes"});
    offer(Answer::cancel);
    ASSERT_EQ(user.told.size(), 1u);
    EXPECT_NE(user.told[0].find("has no activity types."), std::string::npos) << user.told[0];
    EXPECT_EQ(catalogue.tables.activityTypes.rows(), 0u);
    offer(Answer::ok);
    EXPECT_EQ(user.told.size(), 1u);
    EXPECT_EQ(catalogue.tables.activityTypes.rows(), types);
    EXPECT_EQ(parameterRows(), rows) << "the types that were there keep theirs, and once";

    empty({"ActivityTypesFunctions", "ActivityTypesParams", "ActivityTypes", "FunctionTypesParams", "FunctionTypes",
           "DataTypes"});
    offer(Answer::ok);
    EXPECT_NE(user.told[0].find("no data types, no function types, no activity types."), std::string::npos);
    EXPECT_EQ(parameterRows(), rows);
}

TEST_F(StarterCatalogueTest, ScenariosStayAsTheyAre) {
    const auto form = savedGraph();
    const long long rows = storedRows();
    empty({"FunctionTypesParams"});
    catalogue.tables.functionTypes.clear();
    offer(Answer::ok);
    EXPECT_EQ(storedRows(), rows);
    EXPECT_EQ(modelText(*loaded(1)), modelText(*form));
}

}  // namespace

}  // namespace orvent::testkit
