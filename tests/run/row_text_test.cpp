// Rows as text, as people and other programs write them.

#include "run/row_text.h"

#include <gtest/gtest.h>

#include "platform/fault.h"

namespace orvent::run {
namespace {

std::string shown(const entities::Facts& facts) {
    std::string all;
    for (const entities::FieldRow& row : facts.rows) {
        std::string line;
        for (const entities::Field& field : row) {
            line += (line.empty() ? "" : "|") + field.value_or("NULL");
        }
        all += "[" + line + "]";
    }
    return all;
}

TEST(RowText, IsReadAsItIsMeant) {
    const struct {
        const char* text;
        const char* rows;
    } cases[] = {
        {"", ""},
        {"a,1\nb,2\n", "[a|1][b|2]"},
        {"a\t1\r\n\r\nb\t2", "[a|1][b|2]"},
        {"V;K\n1;a", "[a|1]"},
        {"\xEF\xBB\xBFk,other\na,x\n", "[a|NULL]"},
        {"K,V\n,\"\"\n", "[NULL|]"},
        {"K,V\n\"a \"\"b\"\",\n c\",2\n", "[a \"b\",\n c|2]"},
        {"K\na\n", "[a|NULL]"},
        {" a , 1 ", "[a|1]"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(shown(factsFrom(row.text, {"K", "V"})), row.rows) << row.text;
    }
    try {
        factsFrom("K,V\n\"x\ny\",1\na,1,2\n", {"K", "V"});
        FAIL();
    } catch (const platform::Fault& fault) {
        EXPECT_EQ(fault.description(), "Line 4 has 3 values for 2 columns.");
    }
}

TEST(RowText, ComesBackAsItWasWritten) {
    const std::vector<std::string> columns = {"K", "a,b", "x\ty"};
    const std::vector<entities::FieldRow> rows = {{"", std::nullopt, " blank "},
                                                  {"\"", "a\r\nb", "\t"},
                                                  {";", ",", "ä"},
                                                  {std::nullopt, std::nullopt, std::nullopt}};
    for (const char separator : {',', '\t'}) {
        const entities::Facts read = factsFrom(rowText(columns, rows, separator), columns);
        EXPECT_EQ(read.rows, rows) << rowText(columns, rows, separator);
    }
}

}  // namespace
}  // namespace orvent::run
