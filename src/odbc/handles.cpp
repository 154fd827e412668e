#include "odbc/handles.h"

#include <algorithm>
#include <array>
#include <vector>

namespace orvent::odbc {

namespace {

struct Diagnosis {
    std::string state;
    SQLINTEGER native = 0;
    std::string words;
};

/// The first record, which tells the cause.
Diagnosis diagnose(SQLSMALLINT kind, SQLHANDLE handle) {
    std::array<SQLCHAR, 6> state{};
    std::vector<SQLCHAR> words(1024);
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const auto ask = [&] {
        return SQLGetDiagRec(kind, handle, 1, state.data(), &native, words.data(),
                             static_cast<SQLSMALLINT>(words.size()), &length);
    };
    if (ask() == SQL_SUCCESS_WITH_INFO) {
        words.resize(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 1023)) + 1);
        ask();
    }
    Diagnosis found{reinterpret_cast<const char*>(state.data()), native, reinterpret_cast<const char*>(words.data())};
    if (found.words.empty()) {
        found = {"HY000", 0, "the ODBC driver reports a failure without words"};
    }
    return found;
}

/// SQLite's codes of files that cannot be used: busy, locked, read-only, input or output, corrupt, full, cannot open,
/// no database.
constexpr SQLINTEGER kFileFaults[] = {5, 6, 8, 10, 11, 13, 14, 26};

bool isIntegrity(const Diagnosis& found) {
    if (found.state.starts_with("23")) {
        return true;
    }
    // SQLite's driver gives HY000 for everything; 19 is the code of a constraint.
    return found.state == "HY000" && (found.words.find("constraint failed") != std::string::npos ||
                                      (found.native == 19 && found.words.find("SQLite") != std::string::npos));
}

}  // namespace

platform::DatabaseError errorOf(SQLSMALLINT kind, SQLHANDLE handle, const std::string& where) {
    Diagnosis found = diagnose(kind, handle);
    if (!where.empty() &&
        std::find(std::begin(kFileFaults), std::end(kFileFaults), found.native) != std::end(kFileFaults)) {
        found.words += ": " + where;
    }
    return {found.words, found.state, found.native, isIntegrity(found)};
}

Environment::Environment() : handle_(SQL_NULL_HANDLE) {
    if (!SQL_SUCCEEDED(
            SQLSetEnvAttr(handle_.get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0))) {
        throw errorOf(SQL_HANDLE_ENV, handle_.get());
    }
}

Link::Link(const Environment& environment, const std::string& connectionString) : handle_(environment.get()) {
    // A server that does not answer must not hold the program for minutes. A driver without the attribute refuses it,
    // which does no harm.
    constexpr SQLULEN seconds = 15;
    SQLSetConnectAttr(handle_.get(), SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(seconds), 0);

    std::string text = connectionString;
    if (!SQL_SUCCEEDED(SQLDriverConnect(handle_.get(), nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
                                        static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                                        SQL_DRIVER_NOPROMPT))) {
        throw errorOf(SQL_HANDLE_DBC, handle_.get());
    }
}

Link::~Link() {
    SQLDisconnect(handle_.get());
}

std::string Link::dbmsName() const {
    std::array<char, 256> name{};
    SQLGetInfo(handle_.get(), SQL_DBMS_NAME, name.data(), static_cast<SQLSMALLINT>(name.size()), nullptr);
    return name.data();
}

bool Link::readOnly() const {
    std::array<char, 4> answer{};
    SQLGetInfo(handle_.get(), SQL_DATA_SOURCE_READ_ONLY, answer.data(), static_cast<SQLSMALLINT>(answer.size()),
               nullptr);
    return answer[0] == 'Y';
}

bool Link::givesSingleValues() const {
    constexpr SQLUINTEGER wanted = SQL_GD_BLOCK | SQL_GD_BOUND | SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER;
    SQLUINTEGER extensions = 0;
    return SQL_SUCCEEDED(SQLGetInfo(handle_.get(), SQL_GETDATA_EXTENSIONS, &extensions, sizeof extensions, nullptr)) &&
           (extensions & wanted) == wanted;
}

}  // namespace orvent::odbc
