#include "entities/key_grammar.h"

#include <gtest/gtest.h>

using namespace orvent::entities;

namespace {

TEST(KeyGrammar, TextRoutines) {
    struct Row {
        const char *text, *beforeFirst, *second, *afterFirst, *afterSecond, *afterLast, *between;
    };
    const Row rows[] = {
        {"Activity2.OUT.ED_ID", "Activity2", "OUT", "OUT.ED_ID", "ED_ID", "ED_ID", "OUT"},
        {"A.OUT.A.O12", "A", "OUT", "OUT.A.O12", "A.O12", "O12", "OUT.A"},
        {"RS1.AU_ID", "RS1", "AU_ID", "AU_ID", "RS1.AU_ID", "AU_ID", ""},
        {"AU_ID", "", "", "AU_ID", "AU_ID", "AU_ID", ""},
        {".IN.X", "", "IN", "IN.X", "X", "X", "IN"},
        {"", "", "", "", "", "", ""},
        {".", "", "", "", ".", "", ""},
        {"a..b", "a", "", ".b", "b", "b", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(BeforeFirstDot(row.text), row.beforeFirst);
        EXPECT_EQ(SecondSegment(row.text), row.second);
        EXPECT_EQ(AfterFirstDot(row.text), row.afterFirst);
        EXPECT_EQ(AfterSecondDot(row.text), row.afterSecond);
        EXPECT_EQ(AfterLastDot(row.text), row.afterLast);
        EXPECT_EQ(BetweenFirstAndLastDot(row.text), row.between);
        EXPECT_EQ(HasDot(row.text), std::string(row.text).find('.') != std::string::npos);
    }
    EXPECT_EQ(BeforeParenthesis("VARCHAR(20)"), "VARCHAR");
    EXPECT_EQ(BeforeParenthesis("NUMBER"), "NUMBER");
    EXPECT_EQ(BeforeDash("Name - Output"), "Name ");
    EXPECT_EQ(BeforeDash("-x"), "");
    EXPECT_EQ(BeforeDash("x"), "");
}

TEST(KeyGrammar, WholeAndRelativeKeys) {
    const std::pair<std::int16_t, const char*> rows[] = {
        {KindFree, "K"},
        {KindInput, "O.IN.K"},
        {KindOutput, "O.OUT.K"},
        {KindParameter, "O.PARAM.K"},
        {KindRecordSetAttribute, "O.K"},
        {KindFunctionOutput, "O.OUT.K"},
        {KindFunctionInput, "O.IN.K"},
        {KindFunction, "K"},
        {KindConstant, "K"},
        {-1, "K"},
        {9, "K"},
    };
    for (const auto& [kind, whole] : rows) {
        EXPECT_EQ(wholeKey("O", kind, "K"), whole) << kind;
        const std::string relative = relativeKey(kind, "K");
        EXPECT_EQ(relative == "K" ? relative : "O" + relative, whole) << kind;
    }
}

}  // namespace
