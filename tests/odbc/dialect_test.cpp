#include "odbc/dialect.h"

#include <gtest/gtest.h>

#include <string_view>

#include "odbc/dialect_rules.h"
#include "odbc/tokens.h"

namespace orvent::odbc {

namespace {

std::string translated(std::string_view dbms, std::string_view sql) {
    return Dialect(rulesOf(dbms), "me").translate(sql).sql;
}

struct Golden {
    std::string_view oracle;
    std::string_view sqlite;
    std::string_view postgres;
    std::string_view mariaDb;
};

constexpr Golden kGolden[] = {
    {"SELECT Node_ID,Left FROM ScenarioNodes WHERE Scenario_ID=? ",
     "SELECT `node_id`,`left` FROM `ScenarioNodes` WHERE `scenario_id`=? ORDER BY rowid",
     R"(SELECT "node_id","left" FROM "ScenarioNodes" WHERE "scenario_id"=? ORDER BY "orvent_order")",
     "SELECT `node_id`,`left` FROM `ScenarioNodes` WHERE `scenario_id`=? ORDER BY `orvent_order`"},
    {"select a from other order by a", "select `a` from `other` order by `a`",
     R"(select "a" from "other" order by "a")", "select `a` from `other` order by `a`"},
    {"INSERT INTO RECORDSETOUTPUTS VALUES('it''s ? Left','',2.5)",
     "INSERT INTO `RecordSetOutPuts` VALUES('it''s ? Left',NULL,2.5)",
     R"(INSERT INTO "RecordSetOutPuts" VALUES('it''s ? Left',NULL,2.5))",
     "INSERT INTO `RecordSetOutPuts` VALUES('it''s ? Left',NULL,2.5)"},
    {"CREATE TABLE Lines ( From_Label VARCHAR2 ( 4000 CHAR ) NOT NULL, n NUMBER(5), d NUMBER(9,2), Left BINARY_FLOAT, "
     "t CLOB, Date VARCHAR2(900) PRIMARY KEY, b VARCHAR2(900) REFERENCES c, k VARCHAR2(1000), CONSTRAINT FK_L FOREIGN "
     "KEY (k) REFERENCES DataTypes (k) ) TABLESPACE x",
     "CREATE TABLE `Lines` ( `from_label` VARCHAR(4000) NOT NULL, `n` BIGINT, `d` NUMERIC(9,2), `left` DOUBLE "
     "PRECISION, `t` TEXT, `date` VARCHAR(900) PRIMARY KEY, `b` VARCHAR(900) REFERENCES `c` ON UPDATE CASCADE, `k` "
     "VARCHAR(1000), CONSTRAINT `fk_l` FOREIGN KEY (`k`) REFERENCES `DataTypes` (`k`) ON UPDATE CASCADE )",
     R"(CREATE TABLE "Lines" ( "from_label" VARCHAR(4000) NOT NULL, "n" BIGINT, "d" NUMERIC(9,2), "left" DOUBLE )"
     R"(PRECISION, "t" TEXT, "date" VARCHAR(900) PRIMARY KEY, "b" VARCHAR(900) REFERENCES "c" ON UPDATE CASCADE, "k" )"
     R"(VARCHAR(1000), CONSTRAINT "fk_l" FOREIGN KEY ("k") REFERENCES "DataTypes" ("k") ON UPDATE CASCADE, )"
     R"("orvent_order" BIGSERIAL))",
     "CREATE TABLE `Lines` ( `from_label` VARCHAR(4000) NOT NULL, `n` BIGINT, `d` DECIMAL(9,2), `left` DOUBLE, `t` "
     "LONGTEXT, `date` VARCHAR(768) PRIMARY KEY, `b` VARCHAR(768) REFERENCES `c` ON UPDATE CASCADE, `k` VARCHAR(768), "
     "CONSTRAINT `fk_l` FOREIGN KEY (`k`) REFERENCES `DataTypes` (`k`) ON UPDATE CASCADE, `orvent_order` BIGINT NOT "
     "NULL AUTO_INCREMENT INVISIBLE UNIQUE) ENGINE=InnoDB ROW_FORMAT=DYNAMIC CHARACTER SET=utf8mb4 "
     "COLLATE=utf8mb4_nopad_bin"},
};

TEST(Dialect, TranslatesFromOracleAndLeavesOracleAlone) {
    for (const Golden& golden : kGolden) {
        EXPECT_EQ(translated("SQLite", golden.oracle), golden.sqlite);
        EXPECT_EQ(translated("PostgreSQL", golden.oracle), golden.postgres);
        EXPECT_EQ(translated("MariaDB", golden.oracle), golden.mariaDb);
        EXPECT_EQ(translated("MySQL", golden.oracle), golden.mariaDb);
        EXPECT_EQ(translated("Oracle", golden.oracle), golden.oracle);
    }
}

TEST(Dialect, AsksTheCatalogueForTheLogin) {
    const std::string view = translated("SQLite", "SELECT table_name FROM all_tables WHERE owner=?");
    EXPECT_TRUE(view.starts_with("SELECT `table_name` FROM (SELECT name AS table_name,'ME' AS owner FROM")) << view;
    EXPECT_TRUE(view.ends_with(") `all_tables` WHERE `owner`=coalesce(?,'') ORDER BY 1")) << view;
}

TEST(Tokens, GiveTheStatementAgain) {
    for (const std::string_view sql : {"SELECT a.b,'it''s (\"x\"' FROM \"A\"\"b\" WHERE x>=1.5 AND y IN(?,?)", "",
                                       "'open", "  \t\n", "a\xC3\xA9_1$ -- x"}) {
        std::string all;
        for (const Token& token : tokenise(sql)) {
            all += token.text;
        }
        EXPECT_EQ(all, sql);
    }
    EXPECT_EQ(tokenise("a\xC3\xA9_1").size(), 1U);
    EXPECT_EQ(tokenise("'it''s'?").size(), 2U);
}

}  // namespace

}  // namespace orvent::odbc
