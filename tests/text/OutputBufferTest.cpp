#include "text/OutputBuffer.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace strativo {
namespace {

class OutputBufferTest : public testing::Test {
protected:
    std::string All() const {
        std::string all;
        for (const std::string& piece : pieces)
            all += piece;
        return all;
    }

    std::vector<std::string> pieces;
    const ByteSink sink = [this](std::string_view piece) { pieces.emplace_back(piece); };
    OutputBuffer out{sink};
};

TEST_F(OutputBufferTest, HandsOnNothingBeforeThereIsMuch) {
    out.Put("_ ");
    out.PutInteger(-3);
    out.Put("  ");
    out.PutNumber(0.105, "#0.000");
    EXPECT_TRUE(pieces.empty());
    out.Flush();
    EXPECT_EQ(pieces, std::vector<std::string>{"_ -3  0.105"});
}

TEST_F(OutputBufferTest, HandsOnNoEmptyPiece) {
    out.Put({});
    out.Flush();
    out.Put("x");
    out.Flush();
    out.Flush();
    EXPECT_EQ(pieces, std::vector<std::string>{"x"});
}

TEST_F(OutputBufferTest, KeepsTheOrderOfShortAndLongTexts) {
    const std::string longText(1000000, 'l');
    out.Put("first ");
    out.Put(longText);
    out.Put(" last");
    out.Flush();
    EXPECT_EQ(pieces, (std::vector<std::string>{"first ", longText, " last"}));
}

TEST_F(OutputBufferTest, EndsAPieceBeforeATextThatHasNoRoom) {
    const std::string text(1000, 'x');
    for (int number = 0; number < 100; ++number)
        out.Put(text);
    out.Flush();
    EXPECT_EQ(pieces, (std::vector<std::string>{std::string(65000, 'x'), std::string(35000, 'x')}));
}

TEST_F(OutputBufferTest, LosesNothingWhereAPieceEnds) {
    std::string expected;
    for (int number = 0; number < 50000; ++number) {
        const std::string text(static_cast<std::size_t>(number % 17), 'x');
        out.Put(text);
        out.PutInteger(number);
        out.PutNumber(number / 8.0, "0.0##");
        expected += text + std::to_string(number) + FormatNumber(number / 8.0, "0.0##");
    }
    out.Flush();
    EXPECT_GT(pieces.size(), 5U);
    EXPECT_TRUE(All() == expected);
}

} // namespace
} // namespace strativo
