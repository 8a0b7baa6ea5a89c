#include "files/LibraryFindings.h"

#include "files/MaterialLibraryFile.h"
#include "support/Mutation.h"
#include "support/Samples.h"
#include "text/RuntimeError.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr LibraryLayout standard = LibraryLayout::standard;
constexpr LibraryLayout user = LibraryLayout::user;

/// "line: rule: text" of each finding.
std::vector<std::string> Told(const std::string& bytes, LibraryLayout layout) {
    std::vector<std::string> told;
    for (const Finding& finding : FindingsOfLibrary(bytes, layout))
        told.push_back(std::to_string(finding.line) + ": " + finding.rule + ": " + finding.text);
    return told;
}

std::vector<std::string> RulesIn(const std::string& bytes, LibraryLayout layout) {
    std::vector<std::string> rules;
    for (const Finding& finding : FindingsOfLibrary(bytes, layout))
        rules.push_back(finding.rule);
    return rules;
}

TEST(LibraryFindings, NoneInTheLibrariesThatComeWithTheProgram) {
    EXPECT_THAT(Told(SourceFile("data/stdmat.lby"), standard), IsEmpty());
    EXPECT_THAT(Told(SourceFile("data/examples/user.lby"), user), IsEmpty());
    EXPECT_THAT(Told("", standard), IsEmpty());
    EXPECT_THAT(Told("", user), IsEmpty());
}

TEST(LibraryFindings, EachLineOfTheStandardLayoutThatIsNotReadAndWhy) {
    EXPECT_THAT(Told("no apostrophe\r\n"
                     "'NAME' 1 2000 1000\r\n"
                     "1'A' 1 2000 1000\r\n"
                     "\r\n"
                     "2'B 1 2000 1000\r\n"
                     "3''\r\n"
                     "4'D' 1 2000\r\n"
                     "5'E' 7\r\n"
                     "1e999'F' 1 2000 1000\r\n"
                     "6'G' 1 1e999 1000\r\n"
                     "7'H' 1 2000 1000",
                     standard),
                ElementsAre("1: line-not-read: no apostrophe before the name",
                            "2: line-not-read: no number before the name",
                            "5: line-not-read: no name between apostrophes",
                            "6: line-not-read: no name between apostrophes",
                            "7: line-not-read: behind the name three numbers are needed, with "
                            "blanks between them",
                            "8: line-not-read: behind the name three numbers are needed, with "
                            "blanks between them",
                            "9: line-not-read: a number is too large",
                            "10: line-not-read: a number is too large"));
}

TEST(LibraryFindings, EachRecordOfTheUserLayoutThatIsNotReadAndWhy) {
    EXPECT_THAT(Told("no asterisk,1 2000 1000\r\n"
                     "* AB,1 2000 1000\r\n"
                     "1* AB,1 2000 1000\r\n"
                     "2*CD,1 2000 1000\r\n"
                     "3* E,1 2000 1000\r\n"
                     "4* FG\r\n"
                     "5* HI,1 2000\r\n"
                     "6* JK,1 2000 1e999\r\n"
                     "7* LM,1 2000 1000\r\n",
                     user),
                ElementsAre("1: line-not-read: no asterisk behind the number",
                            "2: line-not-read: no number before the asterisk",
                            "4: line-not-read: no blank between the asterisk and the name",
                            "5: line-not-read: a name needs two characters",
                            "6: line-not-read: behind the name three numbers are needed, with "
                            "blanks between them",
                            "7: line-not-read: behind the name three numbers are needed, with "
                            "blanks between them",
                            "8: line-not-read: a number is too large"));
}

TEST(LibraryFindings, ALineWithAFieldTooManyShiftsNothing) {
    EXPECT_THAT(Told("1* AB,1 2000 1000,more\r\n"
                     "2* CD,1 2000 1000\r\n"
                     "2* EF,1 2000 1000\r\n",
                     user),
                ElementsAre("1: line-not-read: no asterisk behind the number",
                            "3: duplicate-code: Material 3 \"EF\": line 2 has the number 2 too; "
                            "layers get the last one"));
}

TEST(LibraryFindings, LinesAreCountedWhateverEndsThem) {
    for (const char* end : {"\n", "\r", "\r\n"}) {
        const std::string bytes =
            std::string("1* AB,1 2000 1000") + end + "2* CD" + end + "1 2000 1000" + end + "bad,x";
        EXPECT_THAT(Told(bytes, user),
                    ElementsAre("4: line-not-read: no asterisk behind the number"));
    }
}

TEST(LibraryFindings, AQuotedNameMayGoOverLines) {
    EXPECT_THAT(Told("\"1* A\r\nB\",1 2000 1000\r\nbad,x", user),
                ElementsAre("3: line-not-read: no asterisk behind the number"));
}

std::string Records(int count, const std::string& before, const std::string& behind) {
    std::string bytes;
    for (int number = 1; number <= count; ++number)
        bytes += std::to_string(number) + before + std::to_string(number) + behind + "\r\n";
    return bytes;
}

TEST(LibraryFindings, MoreMaterialsThanALibraryHolds) {
    EXPECT_THAT(Told(Records(93, "'M", "' 1 2000 1000"), standard), IsEmpty());
    EXPECT_THAT(Told(Records(95, "'M", "' 1 2000 1000"), standard),
                ElementsAre("94: too-many-materials: Material 94 \"M94\": a library of this layout "
                            "holds at most 93 materials"));
    EXPECT_THAT(Told(Records(99, "* M", ",1 2000 1000"), user), IsEmpty());
    EXPECT_THAT(Told(Records(101, "* M", ",1 2000 1000"), user),
                ElementsAre("100: too-many-materials: Material 100 \"M100\": a library of this "
                            "layout holds at most 99 materials"));
}

TEST(LibraryFindings, NumbersThatNoLayerCanReferTo) {
    const auto rules = [](const std::string& code) {
        return RulesIn(code + "'A' 1 2000 1000", standard);
    };
    for (const char* code : {"0", "-1", "1.5", "32768"})
        EXPECT_THAT(rules(code), ElementsAre("code-range")) << code;
    for (const char* code : {"1", "32767", "5.0"})
        EXPECT_THAT(rules(code), IsEmpty()) << code;
}

TEST(LibraryFindings, NamesThatCannotBeUsed) {
    EXPECT_THAT(Told("1'' 1 2000 1000\n2'-999' 1 2000 1000\n", standard),
                ElementsAre("1: empty-name: Material 1 \"\": layers of a material without a name "
                            "vanish",
                            "2: reserved-name: Material 2 \"-999\": this name ends the library "
                            "before it"));
}

TEST(LibraryFindings, NamesThatAreChangedOrCutOrGivenTwice) {
    const std::string longName(34, 'N');
    EXPECT_THAT(Told("1'a{b' 1 2000 1000\n2'Brick' 1 2000 1000\n3'BRICK ' 1 2000 1000\n4'"
                         + longName + "' 1 2000 1000\n",
                     standard),
                ElementsAre("1: name-changed: Material 1 \"A[B\": the file has \"a{b\"",
                            "3: duplicate-name: Material 3 \"BRICK \": the material of line 2 has "
                            "this name too",
                            "4: name-cut: Material 4 \"" + longName
                                + "\": lists show 33 to 35 of its 34 characters"));
    EXPECT_THAT(Told("1*old AB,1 2000 1000\n\"2* CD\"EF,1 2000 1000\n", user),
                ElementsAre("1: name-changed: Material 1 \"AB\": the file has \"old AB\"",
                            "2: name-changed: Material 2 \"CD\": \"EF\" behind the closing quote "
                            "is not read"));
}

TEST(LibraryFindings, TextsWhereNumbersShouldStand) {
    EXPECT_THAT(Told("7x'A' 0,84 2000 1000kg rest of it\n", standard),
                ElementsAre("1: text-after-number: Material 1 \"A\": number \"7x\" is read as 7",
                            "1: text-after-number: Material 1 \"A\": conductivity \"0,84\" is read "
                            "as 0",
                            "1: text-after-number: Material 1 \"A\": specific heat \"1000kg\" is "
                            "read as 1000",
                            "1: text-after-number: Material 1 \"A\": \"rest of it\" behind the "
                            "numbers is not read",
                            "1: no-conductivity: Material 1 \"A\": the material has no "
                            "conductivity"));
    EXPECT_THAT(RulesIn("1'A' +5.e-1 .2e4 1E3 \n", standard), IsEmpty());
    EXPECT_THAT(RulesIn("1'A' nan 2000 inf\n", standard),
                ElementsAre("text-after-number", "text-after-number", "no-conductivity",
                            "no-heat-storage"));
    EXPECT_THAT(RulesIn("1* AB,\"1 2000 1000\"kg\n", user), ElementsAre("text-after-number"));
}

TEST(LibraryFindings, ValuesThatNoMaterialHas) {
    EXPECT_THAT(Told("1'A' -1 2000 1000\n2'B' 1 800 1700\n3'C' 1 0 1000", standard),
                ElementsAre("1: negative-value: Material 1 \"A\": conductivity -1 is negative",
                            "2: density-heat-swapped: Material 2 \"B\": density 800 and specific "
                            "heat 1700 look exchanged",
                            "3: no-heat-storage: Material 3 \"C\": the material has no density"));
}

TEST(LibraryFindings, BytesThatAreNoCharacters) {
    EXPECT_THAT(Told("1'A\x81' 1 2000 1000\n2'\x80\xC4' 1 2000 1000\n", standard),
                ElementsAre("1: undefined-byte: Material 1 \"A\x81\": the name has the byte 81, "
                            "which is no character"));
}

TEST(LibraryFindings, LongTextsOfTheFileAreCut) {
    const std::vector<Finding> findings =
        FindingsOfLibrary("1'" + std::string(5000, 'A') + "' 1 2000 1000", standard);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_LT(findings[0].text.size(), 200U);
    EXPECT_EQ(findings[0].material, 1);
    EXPECT_EQ(findings[0].name.size(), 5000U);
}

TEST(LibraryFindings, TheLayoutIsThatOfTheFirstLineWithAText) {
    EXPECT_EQ(LayoutOfLibrary("12* FACE BRICK,0.84 1700 800"), user);
    EXPECT_EQ(LayoutOfLibrary("\r\n \n12* O'BRIEN,0.84 1700 800"), user);
    EXPECT_EQ(LayoutOfLibrary("12'FACE* BRICK' 0.84 1700 800\n13* AB,1 2 3"), standard);
    EXPECT_EQ(LayoutOfLibrary("nothing\n13* AB,1 2 3"), standard);
    EXPECT_EQ(LayoutOfLibrary(""), standard);
}

bool LoaderStops(const std::string& bytes, LibraryLayout layout) {
    try {
        const LibraryContent content =
            layout == user ? ParseUserLibrary(bytes) : ParseStandardLibrary(bytes);
        return content.wrongVersion || content.failure.has_value();
    } catch (const RuntimeError&) {
        return true;
    }
}

bool TellsThatTheLoaderStops(const std::string& bytes, LibraryLayout layout) {
    const std::vector<std::string> rules = RulesIn(bytes, layout);
    return std::any_of(rules.begin(), rules.end(), [](const std::string& rule) {
        return rule == "line-not-read" || rule == "too-many-materials";
    });
}

TEST(LibraryFindings, TellOfEveryLibraryAtWhichTheLoaderStopsAndOfNoOther) {
    const std::string standardBytes = SourceFile("data/stdmat.lby");
    const std::string userBytes = SourceFile("data/examples/user.lby");
    int stops = 0;
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        SCOPED_TRACE(seed);
        for (const LibraryLayout layout : {standard, user}) {
            const std::string bytes = Mutation(seed).Of(layout == user ? userBytes : standardBytes);
            const bool stopped = LoaderStops(bytes, layout);
            EXPECT_EQ(TellsThatTheLoaderStops(bytes, layout), stopped);
            stops += stopped ? 1 : 0;
        }
    }
    EXPECT_GT(stops, 100);
    EXPECT_LT(stops, 3900);
}

} // namespace
} // namespace strativo
