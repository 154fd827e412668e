#include "repository/catalogue_statements.h"
#include "repository_fixture.h"

namespace orvent::testkit {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
namespace sql = repository::sql;

class CatalogueTest : public RepositoryTest {
  protected:
    void expectInformation(const std::string& text) { messages.expect(text, "", Icon::information); }

    void expectTypeQuestion(Answer answer) {
        messages.expect(
            "The Data Type BLOB  Does Not Exist Among The Defined Data Types\nWould You Like It To Be Added To The "
            "Existing Data Types?\n\n(if you choose CANCEL ,the object's datatype will be reset toINTEGER)",
            "DATA TYPE NOT RPOPERLY SET", Icon::question, Buttons::okCancel, answer);
    }
};

TEST_F(CatalogueTest, ParallelTablesNeverRunDry) {
    database.answer(sql::kActivityTypes, {{"A", "sql", std::nullopt}, {"B", std::nullopt, "ldl"}});
    database.answer(sql::kActivityTypes, {});
    catalogue.LoadActivityTypes();
    EXPECT_EQ(catalogue.tables.activityTypeSql, (std::vector<std::string>{"sql", ""}));
    EXPECT_EQ(catalogue.tables.activityTypeLdl, (std::vector<std::string>{"", "ldl"}));
    EXPECT_EQ(catalogue.ActivityTypeIndex("B"), 1);
    EXPECT_EQ(catalogue.ActivityTypeIndex("b"), 0);
    catalogue.LoadActivityTypes();
    EXPECT_EQ(catalogue.tables.activityTypes.name(0), "");
    EXPECT_EQ(catalogue.tables.activityTypeLdl, std::vector<std::string>{""});
}

TEST_F(CatalogueTest, FailedLoadEndsTheProgram) {
    using Load = void (repository::Catalogue::*)();
    using repository::Catalogue;
    for (const Load load : {&Catalogue::LoadDataTypes, &Catalogue::LoadFunctionTypes, &Catalogue::LoadActivityTypes}) {
        database.fail("SELECT", kBroken);
        messages.expect("Error Accessing DataBase\nTHE PROGRAM WILL EXIT!!", "", Icon::critical);
        (catalogue.*load)();
    }
    EXPECT_EQ(ended, 3);
}

TEST_F(CatalogueTest, UnknownDataTypeIsOfferedToBeAdded) {
    EXPECT_EQ(catalogue.DataTypeIndex("STRING"), 1);
    expectTypeQuestion(Answer::cancel);
    EXPECT_EQ(catalogue.DataTypeIndex("blob"), 0);
    EXPECT_TRUE(database.log.empty());

    database.answer(sql::kDataTypes, {{"INTEGER"}, {"STRING"}, {"blob"}, {"of another user"}});
    expectTypeQuestion(Answer::ok);
    expectInformation("DATA TYPE SAVED");
    EXPECT_EQ(catalogue.DataTypeIndex("blob"), 2);
    EXPECT_EQ(database.takeLog(), (std::vector<std::string>{"INSERT INTO DATATYPES VALUES (?) [blob]",
                                                            "SELECT datatype_name FROM datatypes"}));

    database.fail("INSERT", kRefused);
    messages.expect("constraint violated", "", Icon::critical);
    EXPECT_EQ(catalogue.SaveDataType("x"), 0);
}

TEST_F(CatalogueTest, FailedReadOfATypeGivesWhatWasRead) {
    database.answer(sql::kActivityType, {{"descr", std::nullopt, "ldl", "2", "1", "2"}});
    database.answer(sql::kActivityTypeParams, {{"P", "STRING"}});
    database.fail("SELECT Function_name", kBroken);
    const auto type = catalogue.GetActivityType(1);
    EXPECT_EQ(type.ActType_Name, "Join");
    EXPECT_EQ(type.ActType_SchemaNo * 100 + type.ActType_ProviderSemantics * 10 + type.ActType_ConsumerSemantics, 212);
    EXPECT_EQ(type.ActType_Parameters.peek()->Item("P")->Parameter_Type, 1);
    EXPECT_EQ(type.ActType_OutPuts.count(), 1);
    EXPECT_EQ(type.ActType_Functions.count(), 0);
    EXPECT_THROW(catalogue.GetActivityType(7), platform::Fault);
}

TEST_F(CatalogueTest, SavesAndUpdatesTypesWithTheirRows) {
    entities::FunctionTypeProperties function;
    function.FunctionType_Name = "F";
    function.FunctionType_Description = "d";
    function.FunctionType_Inputs->Add("I", 1, "I");
    function.FunctionType_Outputs->Add("O", 0, "O");
    database.answer(sql::kFunctionTypes, {{"SK"}, {"F"}});
    expectInformation("FUNCTION TYPE SAVED");
    catalogue.SaveFunctionType(function);
    EXPECT_EQ(database.takeLog(),
              (std::vector<std::string>{"INSERT INTO FUNCTIONTYPES VALUES (?,?) [F,d]",
                                        "INSERT INTO FUNCTIONTYPESPARAMS VALUES (?,?,?,?) [F,INPUT,I,STRING]",
                                        "INSERT INTO FUNCTIONTYPESPARAMS VALUES (?,?,?,?) [F,OUTPUT,O,INTEGER]",
                                        "SELECT FunctionType_name FROM FunctionTypes"}));

    entities::ActivityTypeProperties activity;
    activity.ActType_Name = "Merge";
    activity.ActType_NameIndex = 1;
    activity.ActType_SQL = "new sql";
    activity.ActType_LDL = "new ldl";
    activity.ActType_SchemaNo = 2;
    activity.ActType_Parameters->Add("P", 1, "P");
    activity.ActType_OutPuts->Add("O", 0, "O");
    activity.ActType_Functions->Add("U", 1, "U");
    catalogue.tables.activityTypeSql = {"", "old"};
    catalogue.tables.activityTypeLdl = {"", "old"};
    expectInformation("Activity TYPE UPDATED");
    catalogue.UpdateActivityType(activity);
    std::vector<std::string> log = database.takeLog();
    log.erase(log.begin(), log.begin() + 4);  // the old record is read first
    EXPECT_EQ(log,
              (std::vector<std::string>{
                  "DELETE FROM ActivityTypesParams WHERE ActivityType_name=? [Join]",
                  "DELETE FROM ActivityTypesFunctions WHERE ActivityType_name=? [Join]",
                  "UPDATE ActivityTypes SET ActivityType_name=? , ActivityType_descr=?,ActivityType_SQL=?,"
                  "ActivityType_SchemaNo=?,ActivityType_ProviderSem=?,ActivityType_ConsumerSem=?,ActivityType_LDL=?  "
                  "WHERE ActivityType_name=? [Merge,,new sql,2,0,0,new ldl,Join]",
                  "INSERT INTO ActivityTYPESPARAMS VALUES (?,?,?,?) [Merge,PARAM,P,STRING]",
                  "INSERT INTO ActivityTYPESPARAMS VALUES (?,?,?,?) [Merge,OUTPUT,O,INTEGER]",
                  "INSERT INTO ActivityTYPESFUNCTIONS VALUES (?,?,?) [Merge,U,F]"}));
    EXPECT_EQ(catalogue.tables.activityTypes.name(1), "Merge");
    EXPECT_EQ(catalogue.tables.activityTypeSql[1] + catalogue.tables.activityTypeLdl[1], "new sqlnew ldl");

    database.fail("UPDATE", kRefused);
    EXPECT_THROW(catalogue.UpdateDataType(0, "X"), platform::DatabaseError);
}

TEST_F(CatalogueTest, TypesInUseAreNotDeleted) {
    struct Case {
        bool (repository::Catalogue::*remove)(std::int16_t);
        const char* last;
        const char* refusal;
        const char* deleted;
    };
    const Case cases[] = {
        {&repository::Catalogue::DeleteFunctionType, "DELETE FROM FunctionTypes WHERE",
         "THIS FUNCTION IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!", "FUNCTION TYPE DELETED"},
        {&repository::Catalogue::DeleteActivityType, "DELETE FROM ActivityTypes WHERE",
         "THIS ACTIVITY TYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!",
         "Activity TYPE DELETED"},
        {&repository::Catalogue::DeleteDataType, "DELETE FROM Datatypes WHERE",
         "THIS DATATYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!", "DATA TYPE DELETED"}};
    for (const Case& each : cases) {
        database.fail(each.last, kRefused);
        messages.expect(each.refusal, "", Icon::critical);
        EXPECT_FALSE((catalogue.*each.remove)(0));
        EXPECT_TRUE(database.takeLog().back().starts_with(each.last)) << "parameter rows go first, nothing follows";
        database.fail(each.last, kBroken);
        messages.expect("line is down", "", Icon::critical);
        EXPECT_FALSE((catalogue.*each.remove)(0));
        expectInformation(each.deleted);
        EXPECT_TRUE((catalogue.*each.remove)(0));
    }
}

}  // namespace orvent::testkit
