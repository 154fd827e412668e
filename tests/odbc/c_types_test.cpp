// Which C types the drivers are asked to take and to give. The calls of the ODBC API that tell them are recorded on
// their way to the driver manager.

#include <dlfcn.h>

#include <algorithm>
#include <vector>

#include "databases.h"
#include "odbc/handles.h"

namespace {

std::vector<SQLSMALLINT> told;

template <class Call>
Call* next(const char* name) {
    return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" SQLRETURN SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT kind, SQLSMALLINT driverType,
                                      SQLSMALLINT type, SQLULEN size, SQLSMALLINT digits, SQLPOINTER value, SQLLEN room,
                                      SQLLEN* length) {
    told.push_back(driverType);
    static const auto real = next<decltype(SQLBindParameter)>("SQLBindParameter");
    return real(statement, number, kind, driverType, type, size, digits, value, room, length);
}

extern "C" SQLRETURN SQLBindCol(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT type, SQLPOINTER value,
                                SQLLEN room, SQLLEN* length) {
    told.push_back(type);
    static const auto real = next<decltype(SQLBindCol)>("SQLBindCol");
    return real(statement, number, type, value, room, length);
}

namespace orvent::odbc {

namespace {

class CTypes : public EveryDatabase {};

/// Oracle's driver answers HY004 to C integers of 64 bits.
TEST_P(CTypes, NoIntegerHas64Bits) {
    const auto connection = open();
    run(*connection, "CREATE SEQUENCE Node_ID_seq");
    run(*connection, "CREATE TABLE ScenarioNodes (Node_ID NUMBER(5), Node_Type NUMBER(19))");
    told.clear();
    const long long numbers[] = {0, -1, 32767, 2147483647, 2147483648, -9007199254740993};
    const auto insert = connection->prepare("INSERT INTO ScenarioNodes VALUES (Node_ID_seq.NEXTVAL,?)");
    for (const long long number : numbers) {
        insert->bind(1, number);
        insert->execute();
    }
    const auto select = connection->prepare("SELECT Node_ID,Node_Type FROM ScenarioNodes WHERE Node_ID>?");
    select->bind(1, 0LL);
    select->execute();
    for (const long long number : numbers) {
        ASSERT_TRUE(select->fetch());
        EXPECT_EQ(select->number(2), number);
    }
    EXPECT_EQ(select->number(1), static_cast<long long>(std::size(numbers)));
    EXPECT_EQ(std::count(told.begin(), told.end(), SQL_C_SBIGINT), 0);
    EXPECT_GE(std::count(told.begin(), told.end(), SQL_C_SLONG), 1);
}

INSTANTIATE_TEST_SUITE_P(Databases, CTypes, ::testing::Values(Kind::sqlite, Kind::postgres, Kind::mariaDb),
                         [](const auto& kind) { return nameOf(kind.param); });

}  // namespace

}  // namespace orvent::odbc
