#include "text/Windows1252.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

/// UTF-8 of the bytes 0x80 to 0x9F, as the code page assigns them.
constexpr const char* highUtf8[32] = {
    "\u20AC",   "\xC2\x81", "\u201A", "\u0192", "\u201E", "\u2026",   "\u2020", "\u2021",
    "\u02C6",   "\u2030",   "\u0160", "\u2039", "\u0152", "\xC2\x8D", "\u017D", "\xC2\x8F",
    "\xC2\x90", "\u2018",   "\u2019", "\u201C", "\u201D", "\u2022",   "\u2013", "\u2014",
    "\u02DC",   "\u2122",   "\u0161", "\u203A", "\u0153", "\xC2\x9D", "\u017E", "\u0178"};

std::string ExpectedUtf8(int code) {
    if (code < 0x80)
        return std::string(1, static_cast<char>(code));
    if (code < 0xA0)
        return highUtf8[code - 0x80];
    return {static_cast<char>(code < 0xC0 ? 0xC2 : 0xC3), static_cast<char>(0x80 + (code & 0x3F))};
}

TEST(ToUtf8, GivesEveryByteItsCharacterAndTakesItBack) {
    for (int code = 0; code < 256; ++code) {
        SCOPED_TRACE(code);
        const std::string byte(1, static_cast<char>(code));
        const std::string utf8 = ToUtf8(byte);
        EXPECT_EQ(utf8, ExpectedUtf8(code));
        EXPECT_EQ(FromUtf8(utf8), byte);
        EXPECT_TRUE(IsValidUtf8(utf8));
    }
}

TEST(FromUtf8, WritesAQuestionMarkForOtherCharacters) {
    EXPECT_EQ(FromUtf8("a\u0391z"), "a?z");
    EXPECT_EQ(FromUtf8("\u4E2D"), "?");
    EXPECT_EQ(FromUtf8("\U0001F600"), "?");
    EXPECT_EQ(FromUtf8("\xC2\x80"), "?") << "the code page has the euro sign there";
    EXPECT_EQ(FromUtf8("\u0100"), "?");
}

struct InvalidRow {
    const char* name;
    std::string bytes;
    std::string text; ///< a question mark for each byte that is not part of a character
};

class InvalidUtf8 : public testing::TestWithParam<InvalidRow> {};

TEST_P(InvalidUtf8, IsNotValid) {
    EXPECT_FALSE(IsValidUtf8(GetParam().bytes));
}

TEST_P(InvalidUtf8, BecomesQuestionMarks) {
    EXPECT_EQ(FromUtf8(GetParam().bytes), GetParam().text);
}

TEST_P(InvalidUtf8, IsReadAsWindows1252InAPath) {
    EXPECT_EQ(PathToUtf8(GetParam().bytes), ToUtf8(GetParam().bytes));
}

INSTANTIATE_TEST_SUITE_P(Bytes, InvalidUtf8,
                         testing::Values(InvalidRow{"ContinuationAlone", "a\x80z", "a?z"},
                                         InvalidRow{"LeadAlone", "a\xE9", "a?"},
                                         InvalidRow{"LeadBeforeLetter", "\xC3z", "?z"},
                                         InvalidRow{"CutOff", "\xE2\x82", "??"},
                                         InvalidRow{"CutOffByALetter", "\xE2\x82z", "??z"},
                                         InvalidRow{"OverlongOfTwo", "\xC0\x80", "??"},
                                         InvalidRow{"OverlongOfThree", "\xE0\x80\x80", "???"},
                                         InvalidRow{"OverlongOfFour", "\xF0\x80\x80\x80", "????"},
                                         InvalidRow{"Surrogate", "\xED\xA0\x80", "???"},
                                         InvalidRow{"BeyondUnicode", "\xF4\x90\x80\x80", "????"},
                                         InvalidRow{"NoLeadByte", "\xF5\x80\x80\x80", "????"},
                                         InvalidRow{"NeverUsedByte", "\xFF", "?"}),
                         [](const auto& row) { return row.param.name; });

TEST(IsValidUtf8, TakesCharactersOfEveryLength) {
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_TRUE(IsValidUtf8("a\u00E9\u20AC\U0001F600"));
    EXPECT_TRUE(IsValidUtf8("\u0080\u07FF\u0800\uFFFF\U00010000"));
    EXPECT_TRUE(IsValidUtf8("\uD7FF\uE000\U0010FFFF"));
}

TEST(PathToUtf8, KeepsUtf8) {
    EXPECT_EQ(PathToUtf8("/home/\u4E2D/wall.con"), "/home/\u4E2D/wall.con");
}

TEST(LowerCase, KnowsTheCapitalsOfWindows1252) {
    EXPECT_EQ(LowerCase("AZ[az"), "az[az");
    EXPECT_EQ(LowerCase("\xC0\xD6\xD7\xD8\xDE\xDF"), "\xE0\xF6\xD7\xF8\xFE\xDF");
    EXPECT_EQ(LowerCase("\x8A\x8C\x8E\x9F"), "\x9A\x9C\x9E\xFF");
    EXPECT_EQ(LowerCase("\x80\x8B\x8D\xA9"), "\x80\x8B\x8D\xA9");
}

} // namespace
} // namespace strativo
