#include "odbc/dialect_rules.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "platform/repository_names.h"
#include "platform/text.h"

namespace orvent::odbc {

const std::string_view kOracleType =
    "CASE WHEN native IN ('varchar','character varying','nvarchar') THEN 'VARCHAR2' "
    "WHEN native IN ('char','character','nchar') THEN 'CHAR' "
    "WHEN native IN ('text','clob','longtext','mediumtext','tinytext') THEN 'CLOB' "
    "WHEN native IN ('bigint','integer','int','smallint','mediumint','tinyint','numeric','decimal') THEN 'NUMBER' "
    "WHEN native IN ('double precision','double','real','float') THEN 'FLOAT' "
    "WHEN native IN ('timestamp without time zone','datetime') THEN 'TIMESTAMP' "
    "WHEN native IN ('bytea','blob','longblob','mediumblob','varbinary','binary') THEN 'BLOB' "
    "ELSE upper(native) END";

namespace {

// An owner is a schema; the schema at hand belongs to the login's name too, since in Oracle both are the same. Owners
// and, where one asks by them, names of tables are in upper case, as Oracle gives them.

constexpr CatalogueView kSqliteViews[] = {
    {"user_tables",
     "SELECT name AS table_name FROM sqlite_master WHERE type='table' AND substr(name,1,7)<>'sqlite_' AND "
     "name<>'orvent_sequences'",
     "1"},
    // A file has no owners: it is all the login's.
    {"all_tables",
     "SELECT name AS table_name,'$' AS owner FROM sqlite_master WHERE type='table' AND substr(name,1,7)<>'sqlite_' AND "
     "name<>'orvent_sequences'",
     "1"},
    {"all_tab_columns",
     "SELECT owner,table_name,column_name,place,~ AS data_type FROM (SELECT '$' AS owner,upper(m.name) AS table_name,"
     "c.name AS column_name,c.cid AS place,lower(trim(substr(c.type,1,instr(c.type||'(','(')-1))) AS native "
     "FROM sqlite_master m,pragma_table_info(m.name) c WHERE m.type='table') n",
     "place"},
};

constexpr CatalogueView kPostgresViews[] = {
    {"user_tables",
     "SELECT table_name FROM information_schema.tables WHERE table_type='BASE TABLE' AND table_schema=current_schema()",
     "1"},
    {"all_tables",
     "SELECT table_name,upper(table_schema) AS owner FROM information_schema.tables WHERE table_type='BASE TABLE' "
     "UNION SELECT table_name,'$' FROM information_schema.tables WHERE table_type='BASE TABLE' AND "
     "table_schema=current_schema()",
     "1"},
    {"all_tab_columns",
     "SELECT owner,upper(table_name) AS table_name,column_name,place,~ AS data_type FROM (SELECT upper(table_schema) "
     "AS "
     "owner,table_name,column_name,ordinal_position AS place,data_type AS native FROM information_schema.columns UNION "
     "SELECT '$',table_name,column_name,ordinal_position,data_type FROM information_schema.columns WHERE "
     "table_schema=current_schema()) n WHERE column_name<>'orvent_order'",
     "place"},
};

constexpr CatalogueView kMariaDbViews[] = {
    {"user_tables",
     "SELECT table_name AS table_name FROM information_schema.tables WHERE table_type='BASE TABLE' AND "
     "table_schema=database()",
     "1"},
    {"all_tables",
     "SELECT table_name AS table_name,upper(table_schema) AS owner FROM information_schema.tables WHERE "
     "table_type='BASE TABLE' UNION SELECT table_name,'$' FROM information_schema.tables WHERE table_type='BASE TABLE' "
     "AND table_schema=database()",
     "1"},
    {"all_tab_columns",
     "SELECT owner,upper(table_name) AS table_name,column_name AS column_name,place,~ AS data_type FROM (SELECT "
     "upper(table_schema) AS owner,table_name,column_name,ordinal_position AS place,lower(data_type) AS native FROM "
     "information_schema.columns UNION SELECT '$',table_name,column_name,ordinal_position,lower(data_type) FROM "
     "information_schema.columns WHERE table_schema=database()) n WHERE column_name<>'orvent_order'",
     "place"},
};

// A 32-bit float comes back whole from a double column of any of them; MariaDB prints its own FLOAT with six digits.
constexpr DialectRules kRules[] = {
    {.dbmsName = "SQLite",
     .quote = '`',  // a name in double quotes that does not exist would be taken for a text
     .setUp = "PRAGMA foreign_keys=ON",
     .refuseChanges = "PRAGMA query_only=ON",
     .nextValue = "",
     .currentValue = "",
     // The driver hands out rows of no statement that begins with UPDATE.
     .drawNumber =
         "WITH one(n) AS (SELECT 1) UPDATE orvent_sequences SET value=value+step WHERE name='%' RETURNING value",
     .prepareSequences = "CREATE TABLE IF NOT EXISTS orvent_sequences(name TEXT PRIMARY KEY,value BIGINT NOT NULL,step "
                         "BIGINT NOT NULL)",
     .createSequence = "INSERT INTO orvent_sequences(name,value,step) VALUES('%',@-(+),+)",
     .dropSequence = "DELETE FROM orvent_sequences WHERE name='%'",
     .beforeDrop = "PRAGMA foreign_keys=OFF",
     .dropTable = "DROP TABLE %",
     .afterDrop = "PRAGMA foreign_keys=ON",
     .orderColumn = "rowid",
     .orderDefinition = "",
     .tableOptions = "",
     .keyWidth = 0,
     .keyBytes = 0,
     .keepsWidths = false,
     .cancelsByAnother = true,
     .keepsPlaceInBlock = true,
     // BIGINT and not INTEGER: an INTEGER key would take the place of the rowid, and with it the order of insertion.
     .types = {"VARCHAR", "TEXT", "BIGINT", "NUMERIC", "DOUBLE PRECISION", "TIMESTAMP"},
     .views = kSqliteViews},
    {.dbmsName = "PostgreSQL",
     .quote = '"',
     .setUp = "",
     .refuseChanges = "SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY",
     .nextValue = "nextval('%')",
     .currentValue = "currval('%')",
     .drawNumber = "",
     .prepareSequences = "",
     .createSequence = "CREATE SEQUENCE % START WITH @ INCREMENT BY +",
     .dropSequence = "DROP SEQUENCE %",
     .beforeDrop = "",
     .dropTable = "DROP TABLE % CASCADE",
     .afterDrop = "",
     .orderColumn = "\"orvent_order\"",
     .orderDefinition = "\"orvent_order\" BIGSERIAL",
     .tableOptions = "",
     .keyWidth = 0,
     .keyBytes = 2692,  // a third of a page, without the heads of the entry and of its text
     .keepsWidths = true,
     .cancelsByAnother = false,
     .keepsPlaceInBlock = true,
     .types = {"VARCHAR", "TEXT", "BIGINT", "NUMERIC", "DOUBLE PRECISION", "TIMESTAMP"},
     .views = kPostgresViews},
    {.dbmsName = "MariaDB",
     .quote = '`',
     .setUp = "SET SESSION sql_mode='STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION,PIPES_AS_CONCAT,NO_BACKSLASH_ESCAPES'",
     .refuseChanges = "SET SESSION TRANSACTION READ ONLY",
     .nextValue = "NEXTVAL(%)",
     .currentValue = "LASTVAL(%)",
     .drawNumber = "",
     .prepareSequences = "",
     // A cache would lose its numbers at every stop of the server, and identifiers are few.
     .createSequence = "CREATE SEQUENCE % START WITH @ INCREMENT BY + NOCACHE",
     .dropSequence = "DROP SEQUENCE %",
     .beforeDrop = "SET SESSION foreign_key_checks=0",
     .dropTable = "DROP TABLE %",
     .afterDrop = "SET SESSION foreign_key_checks=1",
     .orderColumn = "`orvent_order`",
     .orderDefinition = "`orvent_order` BIGINT NOT NULL AUTO_INCREMENT INVISIBLE UNIQUE",
     .tableOptions = " ENGINE=InnoDB ROW_FORMAT=DYNAMIC CHARACTER SET=utf8mb4 COLLATE=utf8mb4_nopad_bin",
     .keyWidth = 768,  // the 3072 bytes of a key, in characters of four bytes
     .keyBytes = 0,
     .keepsWidths = true,
     .cancelsByAnother = false,
     .keepsPlaceInBlock = false,
     .types = {"VARCHAR", "LONGTEXT", "BIGINT", "DECIMAL", "DOUBLE", "DATETIME"},
     .views = kMariaDbViews},
};

}  // namespace

const DialectRules* rulesOf(std::string_view dbmsName) {
    if (platform::equalIgnoringCase(dbmsName, "MySQL")) {
        dbmsName = "MariaDB";  // an older driver calls the server so
    }
    const auto found = std::find_if(std::begin(kRules), std::end(kRules), [&](const DialectRules& rules) {
        return platform::equalIgnoringCase(rules.dbmsName, dbmsName);
    });
    return found == std::end(kRules) ? nullptr : found;
}

std::string canonicalName(std::string_view name) {
    const auto isIt = [name](std::string_view known) { return platform::equalIgnoringCase(known, name); };
    for (const std::span<const std::string_view> names :
         {std::span<const std::string_view>(platform::kRepositoryTables),
          std::span<const std::string_view>(platform::kRepositorySequences)}) {
        if (const auto known = std::ranges::find_if(names, isIt); known != names.end()) {
            return std::string(*known);
        }
    }
    return platform::lowerCase(name);
}

bool isRepositoryTable(std::string_view canonical) {
    return std::ranges::find(platform::kRepositoryTables, canonical) != platform::kRepositoryTables.end();
}

}  // namespace orvent::odbc
