#include "sql/dialect.h"

#include <algorithm>

#include "platform/text.h"

namespace orvent::sql {

namespace {

// Inputs that are NULL give NULL. A start before the first character is the first one, a length below 0 none.
constexpr Function kCommon[] = {
    {"abs", "n", 'n', "ABS({1})"},
    {"add", "nn", 'n', "({1} + {2})"},
    {"ceiling", "n", 'n', "CEILING({1})"},
    {"concat", "tt", 't', "({1} || {2})"},
    {"floor", "n", 'n', "FLOOR({1})"},
    {"length", "t", 'n', "CHAR_LENGTH({1})"},
    {"lower", "t", 't', "LOWER({1})"},
    {"multiply", "nn", 'n', "({1} * {2})"},
    {"nvl", "aa", 'a', "COALESCE({1}, {2})"},
    {"replace", "ttt", 't', "REPLACE({1}, {2}, {3})"},
    {"round", "n", 'n', "ROUND({1})"},
    {"round", "nn", 'n', "ROUND({1}, {2})"},
    {"substring", "tnn", 't',
     "SUBSTR({1}, CASE WHEN {2} < 1 THEN 1 ELSE {2} END, CASE WHEN {3} < 0 THEN 0 ELSE {3} END)"},
    {"subtract", "nn", 'n', "({1} - {2})"},
    {"trim", "t", 't', "TRIM({1})"},
    {"upper", "t", 't', "UPPER({1})"},
};

constexpr Function kSqlite[] = {
    {"ceiling", "n", 'n', "(CAST({1} AS INTEGER) + ({1} > CAST({1} AS INTEGER)))"},
    {"floor", "n", 'n', "(CAST({1} AS INTEGER) - ({1} < CAST({1} AS INTEGER)))"},
    {"length", "t", 'n', "LENGTH({1})"},
    {"date_to_text", "dt", 't',
     "STRFTIME(REPLACE(REPLACE(REPLACE(REPLACE(REPLACE(REPLACE({2}, 'YYYY', '%Y'), 'MM', '%m'), 'DD', '%d'), 'HH24', "
     "'%H'), 'MI', '%M'), 'SS', '%S'), {1})"},
    {"to_date", "tt", 'd',
     "(SUBSTR({1}, INSTR({2}, 'YYYY'), 4) || '-' || SUBSTR({1}, INSTR({2}, 'MM'), 2) || '-' || SUBSTR({1}, INSTR({2}, "
     "'DD'), 2) || CASE WHEN INSTR({2}, 'HH24') > 0 THEN ' ' || SUBSTR({1}, INSTR({2}, 'HH24'), 2) || ':' || "
     "SUBSTR({1}, INSTR(REPLACE({2}, 'HH24', 'HH'), 'MI'), 2) || ':' || CASE WHEN INSTR({2}, 'SS') > 0 THEN "
     "SUBSTR({1}, INSTR(REPLACE({2}, 'HH24', 'HH'), 'SS'), 2) ELSE '00' END ELSE '' END)"},
    {"to_number", "t", 'n', "CAST({1} AS NUMERIC)"},
};

constexpr Function kPostgres[] = {
    {"date_to_text", "dt", 't', "TO_CHAR({1}, {2}) COLLATE \"C\""},
    {"length", "t", 'n', "CHAR_LENGTH({1})"},
    // Letters of other scripts than Latin have cases in the database's own collation only.
    {"lower", "t", 't', "LOWER({1} COLLATE \"default\") COLLATE \"C\""},
    {"upper", "t", 't', "UPPER({1} COLLATE \"default\") COLLATE \"C\""},
    {"round", "nn", 'n', "ROUND({1}, CAST({2} AS INTEGER))"},
    {"substring", "tnn", 't',
     "SUBSTR({1}, CAST(CASE WHEN {2} < 1 THEN 1 ELSE {2} END AS INTEGER), CAST(CASE WHEN {3} < 0 THEN 0 ELSE {3} END "
     "AS INTEGER))"},
    {"to_date", "tt", 'd', "CAST(TO_TIMESTAMP({1}, {2}) AS TIMESTAMP)"},
    {"to_number", "t", 'n', "CAST({1} AS NUMERIC)"},
};

constexpr Function kMariaDb[] = {
    {"concat", "tt", 't', "CONCAT({1}, {2})"},
    {"date_to_text", "dt", 't',
     "DATE_FORMAT({1}, REPLACE(REPLACE(REPLACE(REPLACE(REPLACE(REPLACE({2}, 'YYYY', '%Y'), 'MM', '%m'), 'DD', '%d'), "
     "'HH24', '%H'), 'MI', '%i'), 'SS', '%s')) COLLATE utf8mb4_nopad_bin"},
    {"to_date", "tt", 'd',
     "STR_TO_DATE({1}, REPLACE(REPLACE(REPLACE(REPLACE(REPLACE(REPLACE({2}, 'YYYY', '%Y'), 'MM', '%m'), 'DD', '%d'), "
     "'HH24', '%H'), 'MI', '%i'), 'SS', '%s'))"},
    {"to_number", "t", 'n', "CAST({1} AS DECIMAL(65,30))"},
};

constexpr Function kOracle[] = {
    {"ceiling", "n", 'n', "CEIL({1})"},
    {"concat", "tt", 't', "CASE WHEN {1} IS NULL OR {2} IS NULL THEN NULL ELSE {1} || {2} END"},
    {"date_to_text", "dt", 't', "TO_CHAR({1}, {2})"},
    {"length", "t", 'n', "LENGTH({1})"},
    {"to_date", "tt", 'd', "TO_TIMESTAMP({1}, {2})"},
    {"to_number", "t", 'n', "TO_NUMBER({1})"},
};

constexpr Function kAnsi[] = {
    {"round", "n", 'n', "ROUND({1}, 0)"},
    {"substring", "tnn", 't',
     "SUBSTRING({1} FROM CASE WHEN {2} < 1 THEN 1 ELSE {2} END FOR CASE WHEN {3} < 0 THEN 0 ELSE {3} END)"},
    {"to_number", "t", 'n', "CAST({1} AS DECIMAL(38,10))"},
};

constexpr Dialect kDialects[] = {
    {"sqlite",
     "SQLite",
     '`',  // a name in double quotes that is none would be taken for a text
     {"CAST({1} AS TEXT) COLLATE BINARY",
      "{1}",
      "{1}",
      "NULL",
      "NULL",
      "NULL",
      "{1}",
      "",
      "{1}",
      "CAST({1} AS NUMERIC)",
      "{1}",
      "CAST(CASE WHEN {1} = CAST({1} AS INTEGER) THEN CAST({1} AS INTEGER) ELSE {1} END AS TEXT)",
      "{1}",
      "(CAST({1} AS REAL) / NULLIF({2}, 0))",
      "AVG({1})",
      "",
      "DROP VIEW IF EXISTS {1}",
      "CREATE VIEW {1} AS {2}",
      "CREATE TEMPORARY TABLE {1} AS {2}",
      "DROP TABLE {1}",
      "EXCEPT",
      "BEGIN",
      ""},
     kSqlite},
    {"postgresql",
     "PostgreSQL",
     '"',
     {"CAST({1} AS TEXT) COLLATE \"C\"",
      "CAST({1} AS NUMERIC)",
      "CAST({1} AS TIMESTAMP)",
      "CAST(NULL AS TEXT) COLLATE \"C\"",
      "CAST(NULL AS NUMERIC)",
      "CAST(NULL AS TIMESTAMP)",
      "CAST({1} AS TEXT) COLLATE \"C\"",
      "",
      "CAST({1} AS TIMESTAMP)",
      "CAST({1} AS NUMERIC)",
      "CAST({1} AS TIMESTAMP)",
      "CAST(TRIM_SCALE(CAST({1} AS NUMERIC)) AS TEXT) COLLATE \"C\"",
      "TO_CHAR({1}, 'YYYY-MM-DD HH24:MI:SS') COLLATE \"C\"",
      "(CAST({1} AS NUMERIC) / NULLIF({2}, 0))",
      "AVG({1})",
      "",
      "DROP VIEW IF EXISTS {1}",
      "CREATE VIEW {1} AS {2}",
      "CREATE TEMPORARY TABLE {1} AS {2}",
      "DROP TABLE {1}",
      "EXCEPT",
      "BEGIN",
      "SET standard_conforming_strings = on"},
     kPostgres},
    {"mariadb",
     "MariaDB",
     '`',
     {"CAST({1} AS CHAR CHARACTER SET utf8mb4) COLLATE utf8mb4_nopad_bin",
      "{1}",
      "{1}",
      "CAST(NULL AS CHAR CHARACTER SET utf8mb4) COLLATE utf8mb4_nopad_bin",
      "CAST(NULL AS DECIMAL(65,30))",
      "CAST(NULL AS DATETIME(6))",
      "_utf8mb4{1} COLLATE utf8mb4_nopad_bin",
      "_utf8mb4 X'{1}' COLLATE utf8mb4_nopad_bin",
      "CAST({1} AS DATETIME(6))",
      "CAST({1} AS DECIMAL(65,30))",
      "CAST({1} AS DATETIME(6))",
      "CAST(CAST({1} AS DOUBLE) AS CHAR CHARACTER SET utf8mb4) COLLATE utf8mb4_nopad_bin",
      "DATE_FORMAT({1}, '%Y-%m-%d %H:%i:%s') COLLATE utf8mb4_nopad_bin",
      "(CAST({1} AS DECIMAL(65,30)) / NULLIF({2}, 0))",
      "AVG(CAST({1} AS DECIMAL(65,30)))",
      " FROM DUAL",
      "DROP VIEW IF EXISTS {1}",
      "CREATE VIEW {1} AS {2}",
      "CREATE TEMPORARY TABLE {1} AS {2}",
      "DROP TABLE {1}",
      "EXCEPT",
      "START TRANSACTION",
      "SET NAMES utf8mb4"},
     kMariaDb},
    {"oracle",
     "Oracle",
     '"',
     {"{1}",
      "{1}",
      "{1}",
      "CAST(NULL AS VARCHAR2(4000))",
      "CAST(NULL AS NUMBER)",
      "CAST(NULL AS TIMESTAMP)",
      "{1}",
      "",
      "TIMESTAMP {1}",
      "TO_NUMBER({1})",
      "TO_TIMESTAMP({1}, 'YYYY-MM-DD HH24:MI:SS')",
      "TO_CHAR({1})",
      "TO_CHAR({1}, 'YYYY-MM-DD HH24:MI:SS')",
      "({1} / NULLIF({2}, 0))",
      "AVG({1})",
      " FROM DUAL",
      "",
      "CREATE OR REPLACE VIEW {1} AS {2}",
      "CREATE TABLE {1} AS {2}",
      "DROP TABLE {1}",
      "MINUS",
      "",
      "ALTER SESSION SET NLS_COMP = BINARY NLS_SORT = BINARY"},
     kOracle},
    {"ansi",
     "ANSI SQL",
     '"',
     {"{1}",
      "{1}",
      "{1}",
      "CAST(NULL AS VARCHAR(4000))",
      "CAST(NULL AS DECIMAL(38,10))",
      "CAST(NULL AS TIMESTAMP)",
      "{1}",
      "",
      "TIMESTAMP {1}",
      "CAST({1} AS DECIMAL(38,10))",
      "CAST({1} AS TIMESTAMP)",
      "CAST({1} AS VARCHAR(4000))",
      "CAST({1} AS VARCHAR(4000))",
      "(CAST({1} AS DECIMAL(38,10)) / NULLIF({2}, 0))",
      "AVG({1})",
      " FROM (VALUES (1)) one",
      "",
      "CREATE VIEW {1} AS {2}",
      "CREATE TABLE {1} AS ({2}) WITH DATA",
      "DROP TABLE {1}",
      "EXCEPT",
      "START TRANSACTION",
      ""},
     kAnsi},
};

const Function* functionIn(std::span<const Function> functions, std::string_view name, std::size_t inputs) {
    const auto found = std::find_if(functions.begin(), functions.end(), [&](const Function& function) {
        return function.name == name && function.inputs.size() == inputs;
    });
    return found == functions.end() ? nullptr : &*found;
}

}  // namespace

std::string Dialect::say(Phrase which, const std::vector<std::string>& parts) const {
    return filled(phrase(which), parts);
}

std::string Dialect::quoted(std::string_view identifier) const {
    std::string result;
    result.reserve(identifier.size() + 2);
    result += quote;
    result += identifier;
    for (std::size_t at = result.find(quote, 1); at != std::string::npos; at = result.find(quote, at + 2)) {
        result.insert(at, 1, quote);
    }
    return result += quote;
}

const Function* Dialect::function(std::string_view name_, std::size_t inputs) const {
    const std::string small = platform::lowerCase(name_);
    const Function* own = functionIn(functions, small, inputs);
    return own ? own : functionIn(kCommon, small, inputs);
}

std::span<const Dialect> dialects() {
    return kDialects;
}

const Dialect* dialectNamed(std::string_view name) {
    const auto found = std::find_if(std::begin(kDialects), std::end(kDialects),
                                    [&](const Dialect& dialect) { return dialect.name == name; });
    return found == std::end(kDialects) ? nullptr : found;
}

std::string filled(std::string_view pattern, const std::vector<std::string>& parts) {
    std::string result;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const bool place = pattern[at] == '{' && at + 2 < pattern.size() && pattern[at + 2] == '}' &&
                           pattern[at + 1] > '0' && static_cast<std::size_t>(pattern[at + 1] - '0') <= parts.size();
        if (place) {
            result += parts[static_cast<std::size_t>(pattern[at + 1] - '1')];
            at += 2;
        } else {
            result += pattern[at];
        }
    }
    return result;
}

}  // namespace orvent::sql
