#include "entities/key_grammar.h"

#include <gtest/gtest.h>

using namespace orvent::entities;

namespace {

TEST(KeyGrammar, TextRoutines) {
    struct Row {
        const char *text, *beforeFirst, *second, *afterFirst, *afterSecond, *afterLast, *between;
    };
    const Row rows[] = {
        {"A.OUT.A.O12", "A", "OUT", "OUT.A.O12", "A.O12", "O12", "OUT.A"},
        {"RS1.A", "RS1", "A", "A", "RS1.A", "A", ""},
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
    }
    EXPECT_EQ(BeforeParenthesis("VARCHAR(20)"), "VARCHAR");
    EXPECT_EQ(BeforeParenthesis("NUMBER"), "NUMBER");
    EXPECT_EQ(BeforeDash("Name - Output"), "Name ");
    EXPECT_EQ(BeforeDash("-x"), "");
    EXPECT_EQ(BeforeDash("x"), "");
}

// The infixes themselves stand in the keys of every test of links.
TEST(KeyGrammar, AKindWithoutInfixOrBesideTheTableLeavesTheKeyAlone) {
    for (const int each : {-1, 0, 7, 8, 9}) {
        const auto kind = static_cast<NodeKindCode>(each);
        EXPECT_EQ(wholeKey("O", kind, "K"), "K") << each;
        EXPECT_EQ(relativeKey(kind, "K"), "K") << each;
    }
}

}  // namespace
