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

TEST_F(CatalogueTest, AFailedLoadEndsTheProgramOrOnlyItsStepWhileWorkIsOpen) {
    using repository::Catalogue;
    Catalogue busy(
        services, [] { ADD_FAILURE() << "work would be lost"; }, [] { return true; });
    busy.tables = catalogue.tables;
    using Load = void (Catalogue::*)();
    for (const Load load : {&Catalogue::LoadDataTypes, &Catalogue::LoadFunctionTypes, &Catalogue::LoadActivityTypes}) {
        for (int time = 0; time < 2; ++time) {
            database.fail("SELECT", kBroken);
        }
        messages.expect("Error Accessing DataBase\nTHE PROGRAM WILL EXIT!!", "", Icon::critical);
        (catalogue.*load)();
        try {
            (busy.*load)();
            ADD_FAILURE() << "nothing was told";
        } catch (const platform::Fault& fault) {
            EXPECT_EQ(fault.description(), "Error Accessing DataBase\nline is down");
        }
    }
    EXPECT_EQ(ended, 3);
    // One row comes, then the line breaks.
    database.answer(sql::kDataTypes, {{"NEW"}, {}});
    EXPECT_ANY_THROW(busy.LoadDataTypes());
    EXPECT_EQ(busy.tables.dataTypes.name(0), "INTEGER") << "the names are kept until all new ones are there";
    EXPECT_EQ(busy.tables.activityTypes.name(1), "Join");
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

TEST_F(CatalogueTest, TypesInUseAreNotDeleted) {
    const struct {
        bool (repository::Catalogue::*remove)(std::int16_t);
        const char *last, *refusal, *deleted;
    } cases[] = {
        {&repository::Catalogue::DeleteFunctionType, "DELETE FROM FunctionTypes WHERE",
         "THIS FUNCTION IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!", "FUNCTION TYPE DELETED"},
        {&repository::Catalogue::DeleteActivityType, "DELETE FROM ActivityTypes WHERE",
         "THIS ACTIVITY TYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!",
         "Activity TYPE DELETED"},
        {&repository::Catalogue::DeleteDataType, "DELETE FROM Datatypes WHERE",
         "THIS DATATYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!", "DATA TYPE DELETED"}};
    for (const auto& each : cases) {
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
