#include "platform/text.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/fault.h"
#include "platform/program_folder.h"
#include "platform/scramble.h"

using namespace orvent::platform;

namespace {

TEST(Scramble, XorsEveryCharacterBelow256) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"mapflow", "@L]KAB\x5A"},
        {"-", nullptr},                    // becomes U+0000
        {"\xC3\xA9", "\xC3\x84"},          // U+00E9 and U+00C4
        {"\xE2\x82\xAC", "\xE2\x82\xAC"},  // beyond 255: stays
        {"a\xE2\x82\xAC\xC2\xA0", "L\xE2\x82\xAC\xC2\x8D"},
    };
    for (const auto& [plain, scrambled] : rows) {
        const std::string expected = scrambled ? scrambled : std::string(1, '\0');
        EXPECT_EQ(ScramblePassword(plain), expected) << plain;
        EXPECT_EQ(ScramblePassword(expected), plain);
    }
}

TEST(Text, NumbersAreReadWholeOrNotAtAll) {
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"450", 450},  {" -1.5\t", -1.5}, {"+2", 2},    {"1e3", 1000}, {"", {}},    {" ", {}},
        {"1,5", {}},   {"12a", {}},       {"0x10", {}}, {"inf", {}},   {"nan", {}}, {"+-1", {}},
        {"1e999", {}}, {"1 2", {}},       {".5", .5},   {"--1", {}},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(parseNumber(text), value) << text;
    }
    EXPECT_EQ(parseInteger(" -7 "), -7);
    EXPECT_EQ(parseInteger("7.0"), std::nullopt);
    EXPECT_EQ(parseInteger("99999999999999999999"), std::nullopt);
}

TEST(Text, FloatsAreWrittenShortAndReadBack) {
    for (const float value : {450.0F, 0.1F, -1.0F / 3, 1e20F, 16777216.0F, 1e-7F, 0.0F}) {
        EXPECT_EQ(static_cast<float>(parseNumber(numberText(value)).value()), value);
    }
    EXPECT_EQ(numberText(450), "450");
    EXPECT_EQ(numberText(0.1F), "0.1");
    EXPECT_NO_THROW(numberText(std::numeric_limits<float>::max()));
    EXPECT_EQ(numberText(std::numeric_limits<float>::denorm_min()).substr(0, 4), "0.00");
}

TEST(Fault, IdentifiersNeverWrap) {
    EXPECT_EQ(checkedI16(32767, "id"), 32767);
    EXPECT_EQ(checkedI16(-32768, "id"), -32768);
    EXPECT_THROW(checkedI16(32768, "id"), Fault);
    EXPECT_THROW(checkedI16(-32769, "id"), Fault);
}

TEST(ProgramFolder, BackSlashesBecomeTheSystemsSeparator) {
    const ProgramFolder folder("/data/x");
    EXPECT_EQ(folder.path("\\LDLS\\a.ldl"), (folder.root() / "LDLS" / "a.ldl").string());
}

}  // namespace
