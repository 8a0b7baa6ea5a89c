#include "text/Lines.h"

#include "text/RuntimeError.h"

#include <gtest/gtest.h>
#include <vector>

namespace strativo {
namespace {

std::vector<std::string> AllLines(std::string_view bytes) {
    LineReader reader(bytes);
    std::vector<std::string> lines;
    while (!reader.AtEnd())
        lines.emplace_back(reader.Next());
    return lines;
}

TEST(LineReader, SplitsAtLineFeedsOnly) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(AllLines("a\nb"), (Lines{"a", "b"}));
    EXPECT_EQ(AllLines("a\r\nb\r\n"), (Lines{"a\r", "b\r"}));
    EXPECT_EQ(AllLines("\n\nx"), (Lines{"", "", "x"}));
    EXPECT_EQ(AllLines("a\rb"), (Lines{"a\rb"}));
    EXPECT_EQ(AllLines(""), Lines{});
}

TEST(LineReader, KnowsItsPosition) {
    LineReader reader("one\ntwo");
    EXPECT_EQ(reader.Position(), 0U);
    reader.Next();
    EXPECT_EQ(reader.Position(), 4U);
    reader.Next();
    EXPECT_EQ(reader.Position(), 7U);
    EXPECT_EQ(reader.Next(), "");
}

struct CleanRow {
    const char* name;
    std::string line;
    std::string clean;
};

class CleanLineRow : public testing::TestWithParam<CleanRow> {};

TEST_P(CleanLineRow, GivesTheTextToLookAt) {
    std::string scratch = "left over";
    EXPECT_EQ(CleanLine(GetParam().line, scratch), GetParam().clean);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, CleanLineRow,
    testing::Values(CleanRow{"Plain", "!END", "!END"}, CleanRow{"Empty", "", ""},
                    CleanRow{"CarriageReturnAtTheEnd", "!END\r", "!END"},
                    CleanRow{"CarriageReturnsInside", "!E\rN\rD\r\r", "!END"},
                    CleanRow{"LeadingBlanks", "   !END", "!END"},
                    CleanRow{"TrailingBlanksStay", "!END  ", "!END  "},
                    CleanRow{"TabsAreBlanks", "\t!TYPE\tOPAQUE\t", "!TYPE OPAQUE "},
                    CleanRow{"EndOfFileMarks",
                             "!EN\x1A"
                             "D\x1A",
                             "!END"},
                    CleanRow{"LineFeedEnds", "one\ntwo", "one"}, CleanRow{"OnlyBlanks", "    ", ""},
                    CleanRow{"OnlyATab", "\t\r", ""},
                    CleanRow{"BlankBehindAMark", "\x1A !END", "!END"}),
    [](const auto& row) { return row.param.name; });

TEST(CleanLine, FindsControlsAtEachPlaceOfALine) {
    std::string scratch;
    for (std::size_t length = 1; length <= 20; ++length)
        for (std::size_t place = 0; place < length; ++place) {
            std::string line(length, '\xff');
            line[place] = '\x1A';
            EXPECT_EQ(CleanLine(line, scratch), std::string(length - 1, '\xff')) << place;
            line[place] = '\x1B';
            EXPECT_EQ(CleanLine(line, scratch), line) << place;
        }
}

TEST(Contains, LooksAnywhereInTheText) {
    EXPECT_TRUE(Contains("text !END", "!END"));
    EXPECT_FALSE(Contains("!end", "!END"));
}

TEST(QuotedText, StandsBetweenTheFirstTwoApostrophes) {
    EXPECT_EQ(QuotedText("!CONSTRUCTION 'Wall' 'x'"), "Wall");
    EXPECT_EQ(QuotedText("''"), "");
}

TEST(QuotedText, IsErrorFiveWithoutBothApostrophes) {
    for (const char* line : {"!CONSTRUCTION 'Wall", "!CONSTRUCTION Wall", ""}) {
        try {
            QuotedText(line);
            ADD_FAILURE() << line;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::invalidArgument) << line;
        }
    }
}

TEST(PieceReader, TakesPieceAfterPiece) {
    PieceReader reader("  12\t 0.1 last", 0);
    reader.SkipBlanks();
    EXPECT_EQ(reader.PieceBeforeBlank(), "12\t");
    reader.SkipBlanks();
    EXPECT_EQ(reader.Piece(), "0.1");
    reader.SkipBlanks();
    EXPECT_EQ(reader.Piece(), "last");
    reader.SkipBlanks();
    EXPECT_EQ(reader.Piece(), "");
}

TEST(PieceReader, NeedsABlankBehindSomePieces) {
    PieceReader reader("12", 0);
    EXPECT_THROW(reader.PieceBeforeBlank(), RuntimeError);
}

TEST(PieceReader, KnowsTheLastCharacter) {
    PieceReader reader("a b", 1);
    EXPECT_FALSE(reader.AtLastCharacter());
    reader.SkipBlanks();
    EXPECT_TRUE(reader.AtLastCharacter());
    reader.Piece();
    EXPECT_FALSE(reader.AtLastCharacter());
}

TEST(PieceReader, TakesControlsForTextWhereOnlyBlanksAreSkipped) {
    PieceReader reader(" \t \x01 a", 0);
    reader.SkipBlanks();
    EXPECT_EQ(reader.Piece(), "\x01");
}

TEST(PieceReader, TakesCodesAboveTheBlankAsText) {
    PieceReader reader("\x01\x1F !\xFF", 0);
    reader.SkipBlanksAndControls();
    EXPECT_EQ(reader.Piece(), "!\xFF");
}

} // namespace
} // namespace strativo
