#include "platform/letter_case.h"

#include <gtest/gtest.h>

#include "platform/utf8.h"

namespace orvent::platform {
namespace {

TEST(LetterCase, MapsOneLetterToOneLetter) {
    const struct {
        const char *text, *upper, *lower, *why;
    } cases[] = {
        {"aZ09_", "AZ09_", "az09_", "ASCII"},
        {"äß Ÿ", "Äß Ÿ", "äß ÿ", "a letter that would become two stays"},
        {"Πελάτης", "ΠΕΛΆΤΗΣ", "πελάτης", "the final sigma has a capital of its own"},
        {"ДОМ дом", "ДОМ ДОМ", "дом дом", "Cyrillic"},
        {"ıI İi", "II İI", "ıi ii", "no locale's dotless rule"},
        {"ʼn ǅ ﬁ", "ʼN Ǆ ﬁ", "ʼn ǆ ﬁ", "digraph and ligature"},
        {"𐐨𐐀", "𐐀𐐀", "𐐨𐐨", "beyond the basic plane"},
        {"ⱥȺ", "ȺȺ", "ⱥⱥ", "a letter whose other case takes more bytes"},
        {"a\xC3(\xFF\xE0\x81\xA1", "A\xC3(\xFF\xE0\x81\xA1", "a\xC3(\xFF\xE0\x81\xA1", "what is no UTF-8 stays"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(upperLetters(c.text), c.upper) << c.why;
        EXPECT_EQ(lowerLetters(c.text), c.lower) << c.why;
    }
    EXPECT_EQ(firstCharacterLength("äb"), 2U);
    EXPECT_EQ(firstCharacterLength("\xE4"), 1U);
}

}  // namespace
}  // namespace orvent::platform
