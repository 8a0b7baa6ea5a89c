#include "cli/CommandRun.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <cctype>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::HasSubstr;

/// Sets a terminal's title, clears it, and moves on to a C1 control of Windows-1252.
const std::string hostile = "x\x1B]0;title\x07\x1B[2J\x7F\x9D";
const std::string shown = "x\\u001B]0;title\\u0007\\u001B[2J\\u007F\\u009D";
const std::string hostilePath = "x\x1B[2J\r\n\xC2\x9Btwo.con";

/// Expects no byte that a terminal would treat as more than text, except line ends.
bool IsHarmless(const std::string& utf8) {
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto code = static_cast<unsigned char>(utf8[i]);
        const bool highControl =
            code == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0;
        if ((code < ' ' && code != '\n') || code == 0x7F || highControl)
            return false;
    }
    return IsValidUtf8(utf8);
}

std::string WithoutRowEnds(std::string csv) {
    for (auto end = csv.find("\r\n"); end != std::string::npos; end = csv.find("\r\n"))
        csv.replace(end, 2, "\n");
    return csv;
}

class ControlCharacters : public CliTest {
protected:
    ControlCharacters() {
        folder.Write("std.lby",
                     standardLibraryBytes + Lines({"40'" + hostile + "' 0.84 1700 800"}));
        folder.Write("user.lby", Lines({"12* " + hostile + ",0.04 40 1600"}));
        const std::string part = "_ 1 =       40      0.105      0            * x";
        folder.Write(
            hostilePath,
            Lines({standardLine, userLine, "!CONSTRUCTION '" + hostile + "'", "!TYPE OPAQUE",
                   "!PARTS", part, "_ 2 =       -4      0.100      0            * x", "!END",
                   "!CONSTRUCTION 'none" + hostile + "'", "!END", "!WINDOW = '" + hostile + "'",
                   "!TRANSMISSION =", "2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0", "!END"}));
    }
};

TEST_F(ControlCharacters, OfNamesReachNoTerminalFromShow) {
    const RunResult result = RunTool({"show", hostilePath});
    EXPECT_TRUE(IsHarmless(result.out)) << result.out;
    EXPECT_TRUE(IsHarmless(result.err)) << result.err;
    EXPECT_THAT(result.out, HasSubstr("Construction 1  " + shown + "  (Opaque)\n"));
    EXPECT_THAT(result.out, HasSubstr("\n  X\\u001B]0;TITLE\\u0007")) << "the layer's line";
    EXPECT_THAT(result.out, HasSubstr("Glass type 1  " + shown + "  "));
}

TEST_F(ControlCharacters, OfNamesAndPathsReachNoTerminalFromATable) {
    const RunResult result = RunTool({"show", "--csv", hostilePath});
    EXPECT_TRUE(IsHarmless(WithoutRowEnds(result.out))) << result.out;
    EXPECT_THAT(result.out, HasSubstr("\nx\\u001B[2J\\u000D\\u000A\\u009Btwo.con,1," + shown));
}

TEST_F(ControlCharacters, OfNamesAndPathsReachNoTerminalFromFindings) {
    const RunResult result = RunTool({"check", hostilePath});
    EXPECT_TRUE(IsHarmless(result.out)) << result.out;
    EXPECT_TRUE(IsHarmless(result.err)) << result.err;
    EXPECT_THAT(result.out, HasSubstr("\"" + shown + "\""));
    EXPECT_THAT(result.out,
                testing::StartsWith("x\\u001B[2J\\u000D\\u000A\\u009Btwo.con: unknown-cavity: "));
}

TEST_F(ControlCharacters, OfMaterialsReachNoTerminal) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"materials", "std.lby"}, {"materials", "--user", "user.lby"}}) {
        const RunResult result = RunTool(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_TRUE(IsHarmless(result.out)) << result.out;
        EXPECT_THAT(result.out, HasSubstr("X\\u001B]0;TITLE\\u0007"));
    }
}

TEST_F(ControlCharacters, OfATableOfMaterialsReachAFileButNoTerminal) {
    std::string name = hostile;
    std::transform(name.begin(), name.end(), name.begin(), [](char c) { return std::toupper(c); });
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"materials", "--csv", "std.lby"}, {"materials", "--csv", "--user", "user.lby"}}) {
        EXPECT_THAT(RunProgram(arguments).out, HasSubstr("," + ToUtf8(name) + ",0."));
        const Terminal terminal;
        EXPECT_EQ(RunProgram(arguments, {.standardOutput = terminal.Path()}).status, 0);
        const std::string seen = WithoutRowEnds(WithoutRowEnds(terminal.Read()));
        EXPECT_TRUE(IsHarmless(seen)) << seen;
        EXPECT_THAT(seen, HasSubstr("X\\u001B]0;TITLE\\u0007\\u001B[2J\\u007F\\u009D,0."));
        EXPECT_THAT(seen, testing::StartsWith("code,name,"));
    }
}

TEST_F(ControlCharacters, OfAMessageReachNoTerminalAndItsLineBreaksAreBlanks) {
    folder.Write("lost.con", Lines({"!MATERIALS FILE = 'gone\x1B[2J.lby'"}));
    for (const char* command : {"show", "check", "report"}) {
        const RunResult result = RunTool({command, "lost.con"});
        EXPECT_EQ(result.status, 3) << command;
        EXPECT_TRUE(IsHarmless(result.err)) << result.err;
    }
    const RunResult unsaved = RunTool({"rewrite", hostilePath, "gone\x1B/\r\nout"});
    EXPECT_EQ(unsaved.status, 3);
    EXPECT_TRUE(IsHarmless(unsaved.err)) << unsaved.err;
    EXPECT_THAT(unsaved.err, HasSubstr("strativo-cli: x\\u001B[2J \\u009Btwo.con: "));
    EXPECT_THAT(unsaved.err, HasSubstr("gone\\u001B/ out The file was not saved: No such file"));
}

TEST_F(ControlCharacters, OfTheCommandLineReachNoTerminal) {
    const std::vector<std::vector<std::string>> wrongUsages = {
        {"\x1B[2J"},
        {"show", "--\x1B[2J"},
        {"show", "--\x1B[2J=\x9B", "a.con"},
        {"materials", "--sort", "\x1B[2J", "std.lby"}};
    for (const std::vector<std::string>& arguments : wrongUsages) {
        const RunResult result = RunTool(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.err, HasSubstr("\\u001B[2J"));
        EXPECT_TRUE(IsHarmless(result.err)) << result.err;
    }
}

TEST_F(ControlCharacters, StayInJsonAsItsEscapes) {
    const RunResult result = RunTool({"show", "--json", hostilePath});
    const nlohmann::json document = Document(result);
    EXPECT_EQ(document[0]["constructions"][0]["name"], ToUtf8(hostile));
}

} // namespace
} // namespace strativo
