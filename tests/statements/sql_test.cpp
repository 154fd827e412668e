#include <gtest/gtest.h>

#include <vector>

#include "platform/fault.h"
#include "statements/ldl_records.h"
#include "statements/sql_creator.h"
#include "statements/sql_keyword_checker.h"

namespace orvent::statements {
namespace {

TEST(SqlCreator, ComposesASelect) {
    EXPECT_EQ(CreateSelectStatement({{"a.AUTHORS.AU_ID", "ID"}, {"a.AUTHORS.NAME", "NAME"}, {"b.BOOKS.ISBN", "ISBN"}}),
              " SELECT AUTHORS.AU_ID AS ID, AUTHORS.NAME AS NAME, BOOKS.ISBN AS ISBN FROM AUTHORS, BOOKS;");
    EXPECT_EQ(CreateSelectStatement({{"c.dbo.T.X", "Y"}, {"ODD", "Z"}}),
              " SELECT dbo.T.X AS Y, .ODD AS Z FROM dbo.T, ;");
    EXPECT_EQ(CreateSelectStatement({}), std::nullopt);
}

TEST(LdlRecords, KeepChoices) {
    LDLRecCollection records;
    LDLRecordSet& recordSet = records.Add("RS");
    recordSet.Add("first", "a");
    EXPECT_EQ(recordSet.Add("second", "b").Position, 2);
    EXPECT_EQ(recordSet.MarkAndGetItem("b"), "second");
    EXPECT_EQ(recordSet.GetItemPos("b"), 2);
    EXPECT_EQ(recordSet.Item("a")->Selected, 0);
    EXPECT_EQ(recordSet.Item("b")->Selected, 1);
    EXPECT_THROW(recordSet.GetItemPos("c"), platform::Fault);
}

/// Shows each character's look as a letter below it: "k" keyword, "p" placeholder, "." plain.
class Box : public ColouredText {
  public:
    explicit Box(std::string text) : letters(std::move(text)), looks(letters.size(), '?') {}

    std::size_t length() const override { return letters.size(); }
    unsigned char at(std::size_t position) const override {
        ++reads;
        return static_cast<unsigned char>(letters.at(position));
    }
    std::size_t caret() const override { return place; }
    void paint(std::size_t from, std::size_t count, std::int32_t colour, bool bold) override {
        EXPECT_EQ(bold, colour != 0);
        looks.replace(from, count, count, colour == 0 ? '.' : colour == 0xFF ? 'p' : 'k');
    }
    void setLetters(std::size_t from, const std::string& text) override { letters.replace(from, text.size(), text); }
    void typeIn(std::int32_t colour, bool bold) override { plain = colour == 0 && !bold; }

    std::string letters, looks;
    std::size_t place = 0;
    mutable std::size_t reads = 0;
    bool plain = false;
};

TEST(SqlKeywordChecker, ColoursAWholeText) {
    const SQL_KeywordChecker checker;
    Box box("select a, [inputs1]\tfrom,  [ x ] = Constraint REFERENCESS\nwhere");
    checker.ColourText(box);
    EXPECT_EQ(box.letters, "SELECT a, [INPUTS1]\tfrom,  [ x ] = CONSTRAINT REFERENCESS\nWHERE");
    EXPECT_EQ(box.looks, "kkkkkk....ppppppppp........p...p.k.kkkkkkkkkk.............kkkkk");
    EXPECT_TRUE(box.plain);

    Box ldl("p(X) <- not in from(X)");
    checker.ColourText(ldl, Letters::kept);
    EXPECT_EQ(ldl.letters, "p(X) <- not in from(X)") << "LDL tells names apart by their case";
    EXPECT_EQ(ldl.looks, "........kkk.kk........");
}

TEST(SqlKeywordChecker, LooksAtTheWordAtTheCaret) {
    constexpr int space = 0x20, right = 0x27, backspace = 8, remove = 0x2E, letter = 'A';
    const struct {
        int key;
        bool shift;
        std::size_t caret;
        const char *text, *letters, *looks;
    } cases[] = {
        {space, false, 6, "select", "SELECT", "kkkkkk"},
        {space, false, 3, "a select b", "a SELECT b", "??kkkkkk??"},
        {right, false, 0, "from,", "from,", "....."},
        {backspace, false, 2, "in", "IN", "kk"},
        {remove, false, 2, "xxfrom y", "xxFROM y", "??kkkk??"},
        {remove, false, 2, "xx from", "xx from", "???????"},
        {space, true, 6, "select", "select", "??????"},
        {letter, false, 6, "select", "select", "??????"},
        {space, false, 0, "", "", ""},
        {space, false, 99, "[sources]", "[SOURCES]", "ppppppppp"},
        {space, false, 4, "f\xC3\xBCr", "f\xC3\xBCr", "...."},
    };
    const SQL_KeywordChecker checker;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        Box box(c.text);
        box.place = c.caret;
        checker.txtSQL_KeyDown(c.key, c.shift, box);
        EXPECT_EQ(box.letters, c.letters);
        EXPECT_EQ(box.looks, c.looks);
    }
    std::string longText;
    while (longText.size() < 100'000) {
        longText += "from here to there ";
    }
    Box box(longText);
    box.place = 50'000;
    checker.txtSQL_KeyDown(space, false, box);
    EXPECT_LT(box.reads, 100u) << "only what stands around the caret is read";
}

}  // namespace
}  // namespace orvent::statements
