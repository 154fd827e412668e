#include "odbc/dialect.h"

#include <gtest/gtest.h>

#include <string_view>

#include "odbc/dialect_rules.h"
#include "odbc/tokens.h"

namespace orvent::odbc {

namespace {

std::string translated(std::string_view dbms, std::string_view sql) {
    const Translation translation = Dialect(rulesOf(dbms), "me").translate(sql);
    std::string all;
    for (const std::string& before : translation.before) {
        all += before + " ; ";
    }
    all += translation.sql;
    for (const std::string& after : translation.after) {
        all += " ; " + after;
    }
    for (const SequenceUse& use : translation.sequences) {
        all += " [" + std::to_string(use.parameter) + (use.next ? " next " : " last ") + use.sequence + "]";
    }
    return all;
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
    {"SELECT COUNT(*) FROM lines", "SELECT COUNT(*) FROM `Lines`", R"(SELECT COUNT(*) FROM "Lines")",
     "SELECT COUNT(*) FROM `Lines`"},
    {"select a from other order by a", "select `a` from `other` order by `a`",
     R"(select "a" from "other" order by "a")", "select `a` from `other` order by `a`"},
    {"INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?)",
     "INSERT INTO `Scenarios` VALUES (?,?,?) [2 next Scenario_ID_seq]",
     R"(INSERT INTO "Scenarios" VALUES (?,nextval('"Scenario_ID_seq"'),?))",
     "INSERT INTO `Scenarios` VALUES (?,NEXTVAL(`Scenario_ID_seq`),?)"},
    {"SELECT SubNode_ID_seq.CURRVAL FROM dual", "SELECT ? [1 last SubNode_ID_seq]",
     R"(SELECT currval('"SubNode_ID_seq"'))", "SELECT LASTVAL(`SubNode_ID_seq`)"},
    {"INSERT INTO RECORDSETOUTPUTS VALUES('it''s ? Left','',2.5)",
     "INSERT INTO `RecordSetOutPuts` VALUES('it''s ? Left',NULL,2.5)",
     R"(INSERT INTO "RecordSetOutPuts" VALUES('it''s ? Left',NULL,2.5))",
     "INSERT INTO `RecordSetOutPuts` VALUES('it''s ? Left',NULL,2.5)"},
    {"DELETE FROM FunctionSubNodes WHERE Function_ID IN (SELECT FUNCTION_ID FROM ActivityFunctions WHERE "
     "Activity_ID=?)",
     "DELETE FROM `FunctionSubNodes` WHERE `function_id` IN (SELECT `function_id` FROM `ActivityFunctions` WHERE "
     "`activity_id`=?)",
     R"(DELETE FROM "FunctionSubNodes" WHERE "function_id" IN (SELECT "function_id" FROM "ActivityFunctions" WHERE )"
     R"("activity_id"=?))",
     "DELETE FROM `FunctionSubNodes` WHERE `function_id` IN (SELECT `function_id` FROM `ActivityFunctions` WHERE "
     "`activity_id`=?)"},
    {"UPDATE DataTypes SET DataType_name=? WHERE DataType_name=?",
     "UPDATE `DataTypes` SET `datatype_name`=? WHERE `datatype_name`=?",
     R"(UPDATE "DataTypes" SET "datatype_name"=? WHERE "datatype_name"=?)",
     "UPDATE `DataTypes` SET `datatype_name`=? WHERE `datatype_name`=?"},
    {"CREATE TABLE Lines ( From_Label VARCHAR2 ( 4000 CHAR ) NOT NULL, n NUMBER(5), d NUMBER(9,2), Left BINARY_FLOAT, "
     "t CLOB, k VARCHAR2(1000), CONSTRAINT FK_L FOREIGN KEY (k) REFERENCES DataTypes (k) ) TABLESPACE x",
     "CREATE TABLE `Lines` ( `from_label` VARCHAR(4000) NOT NULL, `n` BIGINT, `d` NUMERIC(9,2), `left` DOUBLE "
     "PRECISION, `t` TEXT, `k` VARCHAR(1000), CONSTRAINT `fk_l` FOREIGN KEY (`k`) REFERENCES `DataTypes` (`k`) ON "
     "UPDATE "
     "CASCADE )",
     R"(CREATE TABLE "Lines" ( "from_label" VARCHAR(4000) NOT NULL, "n" BIGINT, "d" NUMERIC(9,2), "left" DOUBLE )"
     R"(PRECISION, "t" TEXT, "k" VARCHAR(1000), CONSTRAINT "fk_l" FOREIGN KEY ("k") REFERENCES "DataTypes" ("k") ON )"
     R"(UPDATE CASCADE, "orvent_order" BIGSERIAL))",
     "CREATE TABLE `Lines` ( `from_label` VARCHAR(4000) NOT NULL, `n` BIGINT, `d` DECIMAL(9,2), `left` DOUBLE, `t` "
     "LONGTEXT, `k` VARCHAR(768), CONSTRAINT `fk_l` FOREIGN KEY (`k`) REFERENCES `DataTypes` (`k`) ON UPDATE CASCADE, "
     "`orvent_order` BIGINT NOT NULL AUTO_INCREMENT INVISIBLE UNIQUE) ENGINE=InnoDB ROW_FORMAT=DYNAMIC CHARACTER "
     "SET=utf8mb4 COLLATE=utf8mb4_nopad_bin"},
    {"CREATE TABLE a (Date VARCHAR2(900) PRIMARY KEY, b VARCHAR2(900) REFERENCES c)",
     "CREATE TABLE `a` (`date` VARCHAR(900) PRIMARY KEY, `b` VARCHAR(900) REFERENCES `c` ON UPDATE CASCADE)",
     R"(CREATE TABLE "a" ("date" VARCHAR(900) PRIMARY KEY, "b" VARCHAR(900) REFERENCES "c" ON UPDATE CASCADE, )"
     R"("orvent_order" BIGSERIAL))",
     "CREATE TABLE `a` (`date` VARCHAR(768) PRIMARY KEY, `b` VARCHAR(768) REFERENCES `c` ON UPDATE CASCADE, "
     "`orvent_order` BIGINT NOT NULL AUTO_INCREMENT INVISIBLE UNIQUE) ENGINE=InnoDB ROW_FORMAT=DYNAMIC CHARACTER "
     "SET=utf8mb4 COLLATE=utf8mb4_nopad_bin"},
    {"DROP TABLE ScenarioNodes CASCADE CONSTRAINTS",
     "PRAGMA foreign_keys=OFF ; DROP TABLE `ScenarioNodes` ; PRAGMA foreign_keys=ON",
     R"(DROP TABLE "ScenarioNodes" CASCADE)",
     "SET SESSION foreign_key_checks=0 ; DROP TABLE `ScenarioNodes` ; SET SESSION foreign_key_checks=1"},
    {"  CREATE SEQUENCE node_id_SEQ START WITH 7",
     "CREATE TABLE IF NOT EXISTS orvent_sequences(name TEXT PRIMARY KEY,value BIGINT NOT NULL,step BIGINT NOT NULL) ; "
     "INSERT INTO orvent_sequences(name,value,step) VALUES('Node_ID_seq',7-(1),1)",
     R"(CREATE SEQUENCE "Node_ID_seq" START WITH 7 INCREMENT BY 1)",
     "CREATE SEQUENCE `Node_ID_seq` START WITH 7 INCREMENT BY 1 NOCACHE"},
    {"DROP SEQUENCE Node_ID_seq", "DELETE FROM orvent_sequences WHERE name='Node_ID_seq'",
     R"(DROP SEQUENCE "Node_ID_seq")", "DROP SEQUENCE `Node_ID_seq`"},
    {"CREATE INDEX IX_Lines ON Lines (Scenario_ID)", "CREATE INDEX `ix_lines` ON `Lines` (`scenario_id`)",
     R"(CREATE INDEX "ix_lines" ON "Lines" ("scenario_id"))", "CREATE INDEX `ix_lines` ON `Lines` (`scenario_id`)"},
};

TEST(Dialect, TranslatesWhatTheProgramSends) {
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

TEST(Dialect, CountsTheSendersParametersAroundItsOwn) {
    const Translation insert =
        Dialect(rulesOf("SQLite"), "").translate("INSERT INTO a VALUES (x.NEXTVAL,?,y.NEXTVAL,z.NEXTVAL,?)");
    EXPECT_EQ(insert.parameter(1), 2);
    EXPECT_EQ(insert.parameter(2), 5);
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
