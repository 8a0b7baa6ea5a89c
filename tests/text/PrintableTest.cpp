#include "text/Printable.h"

#include "text/Windows1252.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(Printable, ShowsEachControlCharacterByItsNumber) {
    EXPECT_EQ(Printable(std::string("\0", 1)), "\\u0000");
    EXPECT_EQ(Printable("\t\n\r"), "\\u0009\\u000A\\u000D");
    EXPECT_EQ(Printable("\x1B]0;title\x07"), "\\u001B]0;title\\u0007");
    EXPECT_EQ(Printable("\x1F \x7E\x7F"), "\\u001F ~\\u007F");
    EXPECT_EQ(Printable("\xC2\x80\xC2\x9B\xC2\x9F"), "\\u0080\\u009B\\u009F");
}

TEST(Printable, LeavesAllOtherCharactersAsTheyAre) {
    const std::string text = "Wall \"A\\B\" \u00A0 \u00E9 \u00C2 \u2019 \u20AC \U0001F3E0";
    EXPECT_EQ(Printable(text), text);
    EXPECT_EQ(Printable(""), "");
    EXPECT_EQ(Printable("cut off \xC2"), "cut off \xC2");
}

TEST(Printable, LetsNoByteOfACodePageSteerATerminal) {
    for (int code = 0; code < 256; ++code) {
        const std::string shown = Printable(ToUtf8(std::string(1, static_cast<char>(code))));
        const bool isControl = code < 32 || code == 127 || code == 0x81 || code == 0x8D
                               || code == 0x8F || code == 0x90 || code == 0x9D;
        EXPECT_EQ(shown.size() == 6, isControl) << code;
    }
}

TEST(PrintableLine, ShowsEachLineBreakAsOneBlank) {
    EXPECT_EQ(PrintableLine("a\rb\nc\r\nd\n\re"), "a b c d e");
    EXPECT_EQ(PrintableLine("a\n\nb\r\rc"), "a  b  c");
    EXPECT_EQ(PrintableLine("\r\n\x1B[2J\r\n"), " \\u001B[2J ");
}

} // namespace
} // namespace strativo
