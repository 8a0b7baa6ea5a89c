#include "exchange/ProjectFromJson.h"
#include "files/ConstructionWriter.h"
#include "project/ReadBack.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The faults as "POINTER RULE", in order.
std::vector<std::string> Faults(const std::string& json, bool force = false) {
    std::vector<std::string> lines;
    const auto any = [](NamedPart, const std::string&) { return true; };
    for (const Fault& fault : BuildProject(json, force ? NameTest(any) : ComesBack).faults)
        lines.push_back(fault.pointer.value_or("?") + " " + fault.rule);
    return lines;
}

std::vector<std::string> Texts(const std::string& json) {
    std::vector<std::string> lines;
    for (const Fault& fault : BuildProject(json, ComesBack).faults)
        lines.push_back(fault.text);
    return lines;
}

std::string WithConstruction(const std::string& members) {
    return R"({"standardLibraryFile": "s.lby", "constructions": [{"name": "W", )" + members + "}]}";
}

std::string WithLayer(const std::string& members) {
    return WithConstruction(R"("layers": [{)" + members + "}]");
}

std::string Numbers(int count) {
    std::string text = "[";
    for (int i = 0; i < count; ++i)
        text += i == 0 ? "0.5" : ", 0.5";
    return text + "]";
}

std::string WithGlass(const std::string& members) {
    return R"({"standardLibraryFile": "s", "glassTypes": [{"transmission": )" + Numbers(11)
           + R"(, "absorption": )" + Numbers(11) + ", " + members + "}]}";
}

std::string Written(const std::string& json) {
    const BuiltProject built = BuildProject(json, ComesBack);
    EXPECT_TRUE(built.faults.empty()) << built.faults[0].text;
    return FormatConstructionFile(built.project);
}

TEST(BuildProject, TheSmallestUsefulInputIsEnough) {
    EXPECT_EQ(Written(R"({"standardLibraryFile": "stdmat.lby", "constructions": [{"name": "Wall",
        "layers": [{"materialCode": 110, "thickness": 102},
                   {"materialCode": -1, "thickness": 50},
                   {"materialCode": 580, "thickness": 75}]}]})"),
              "!MATERIALS FILE = 'stdmat.lby'\r\n\r\n"
              "!CONSTRUCTION 'Wall'\r\n!TYPE OPAQUE\r\n!PARTS\r\n"
              "_ 1 =       110      0.102      0            * 1\r\n"
              "_ 2 =       -1      0.050      0            * CAVITY Type 1 NORMAL\r\n"
              "_ 3 =       580      0.075      0            * 3\r\n"
              "!END\r\n\r\n");
}

TEST(BuildProject, SlotsKeepTheirGaps) {
    const std::string file = Written(WithConstruction(
        R"("layers": [{"slot": 3, "materialCode": 1, "thickness": 1, "name": "A"},
                      {"materialCode": 2, "thickness": 1, "name": "B"},
                      {"slot": 15.0, "materialCode": 0, "thickness": 1}])"));
    EXPECT_THAT(file, HasSubstr("_ 3 =       1 "));
    EXPECT_THAT(file, HasSubstr("_ 4 =       2 "));
    EXPECT_THAT(file, HasSubstr("_ 15 =       0      0.001      0            * 15\r\n"));
}

TEST(BuildProject, TheUserLibraryIsWrittenWhenItHasAPath) {
    const std::string library = R"({"standardLibraryFile": "s", "userLibraryFile": "u")";
    EXPECT_THAT(Written(library + "}"), HasSubstr("!MATERIALS USER FILE = 'u'"));
    EXPECT_THAT(Written(library + R"(, "userLoaded": false})"),
                testing::Not(HasSubstr("!MATERIALS USER FILE")));
}

TEST(BuildProject, PathsAreTheBytesThatTheirEncodingSays) {
    EXPECT_THAT(Written(R"({"standardLibraryFile": "é.lby"})"), HasSubstr("'\xC3\xA9.lby'"));
    EXPECT_THAT(Written(R"({"standardLibraryFileEncoding": "windows-1252",
                            "standardLibraryFile": "é.lby"})"),
                HasSubstr("'\xE9.lby'"));
}

TEST(BuildProject, WholeNumbersMayBeWrittenInAnyWay) {
    for (const char* code : {"12", "12.0", "1.2e1", "120E-1"})
        EXPECT_THAT(Written(WithLayer(R"("thickness": 1, "materialCode": )" + std::string(code))),
                    HasSubstr("_ 1 =       12 "));
}

TEST(BuildProject, TheLargestFloatAsShownIsInRange) {
    const std::string start = R"("materialCode": 1, "thickness": 1, "conductivity": )";
    EXPECT_THAT(Faults(WithLayer(start + "3.4028235e38")), ElementsAre());
    EXPECT_THAT(Faults(WithLayer(start + "-3.4028235e38")), ElementsAre());
    EXPECT_THAT(Faults(WithLayer(start + "3.4028236e38")),
                ElementsAre("/constructions/0/layers/0/conductivity number-range"));
}

struct Refused {
    const char* name;
    std::string json;
    std::string fault;
};

class BuildRefuses : public testing::TestWithParam<Refused> {};

TEST_P(BuildRefuses, WithPointerAndRule) {
    EXPECT_THAT(Faults(GetParam().json), ElementsAre(GetParam().fault));
}

const std::string layer = "/constructions/0/layers/0";

INSTANTIATE_TEST_SUITE_P(
    Exchange, BuildRefuses,
    testing::Values(
        Refused{"NoJson", "{", " json-syntax"}, Refused{"NoProject", "[]", " one-project"},
        Refused{"TwoProjects", R"([{"standardLibraryFile": ""}, {}])", " one-project"},
        Refused{"RootIsNull", "null", " wrong-type"},
        Refused{"ProjectIsNull", "[null]", "/0 wrong-type"},
        Refused{"NoLibrary", "[{}]", "/0/standardLibraryFile missing-key"},
        Refused{"NullIsNoValue", R"({"standardLibraryFile": null})",
                "/standardLibraryFile wrong-type"},
        Refused{"IgnoredKeyOfAnotherType", R"({"standardLibraryFile": "", "changed": 0})",
                "/changed wrong-type"},
        Refused{"IgnoredNumberTooLarge",
                WithLayer(R"("materialCode": 1, "thickness": 1, "density": 1e999)"),
                layer + "/density number-range"},
        Refused{"SchemaVersion", R"({"standardLibraryFile": "", "schemaVersion": 2})",
                "/schemaVersion schema-version"},
        Refused{"Ended", R"({"standardLibraryFile": "", "ended": true})", "/ended incomplete"},
        Refused{"NotReadToEnd", R"({"standardLibraryFile": "", "readToEnd": false})",
                "/readToEnd incomplete"},
        Refused{"Encoding", R"({"standardLibraryFile": "", "userLibraryFileEncoding": "latin1"})",
                "/userLibraryFileEncoding not-allowed"},
        Refused{"UnknownKey", R"({"standardLibraryFile": "", "constuctions": []})",
                "/constuctions unknown-key"},
        Refused{"Type", WithConstruction(R"("type": 2)"), "/constructions/0/type not-allowed"},
        Refused{"TypeInHalves", WithConstruction(R"("type": 0.5)"),
                "/constructions/0/type not-allowed"},
        Refused{"NoThickness", WithLayer(R"("materialCode": 1)"), layer + "/thickness missing-key"},
        Refused{"ThicknessAsText", WithLayer(R"("materialCode": 1, "thickness": "12,5")"),
                layer + "/thickness wrong-type"},
        Refused{"ThicknessTooLarge", WithLayer(R"("materialCode": 1, "thickness": 1e400)"),
                layer + "/thickness number-range"},
        Refused{"HalfACode", WithLayer(R"("materialCode": 1.5, "thickness": 1)"),
                layer + "/materialCode not-integer"},
        Refused{"CodeTooLarge", WithLayer(R"("materialCode": 32768, "thickness": 1)"),
                layer + "/materialCode number-range"},
        Refused{"SlotZero", WithLayer(R"("materialCode": 1, "thickness": 1, "slot": -0)"),
                layer + "/slot number-range"},
        Refused{"Library", WithLayer(R"("materialCode": 1, "thickness": 1, "library": 3)"),
                layer + "/library not-allowed"},
        Refused{"UserLibraryMissing",
                WithLayer(R"("materialCode": 1, "thickness": 1, "library": 2)"),
                layer + "/library user-library-missing"},
        Refused{"UserLoadedWithoutAPath", R"({"standardLibraryFile": "", "userLoaded": true})",
                "/userLoaded user-library-missing"},
        Refused{"CavityMismatch",
                WithLayer(R"("conductivity": -2, "materialCode": -1, "thickness": 1)"),
                layer + "/conductivity cavity-mismatch"},
        Refused{"EmptyLayerName", WithLayer(R"("materialCode": 1, "thickness": 1, "name": "")"),
                layer + "/name empty-name"},
        Refused{"Unstorable", WithLayer(R"("materialCode": 1, "thickness": 1, "name": "5 ≥ 4")"),
                layer + "/name unstorable-character"},
        Refused{"UnstorableControl",
                WithLayer(R"("materialCode": 1, "thickness": 1, "name": "\u0080")"),
                layer + "/name unstorable-character"},
        Refused{"CommentOverLines", WithConstruction(R"("comments": ["a", "b\n!EOF"])"),
                "/constructions/0/comments/1 unstorable-text"},
        Refused{"CommentIsNoText", WithConstruction(R"("comments": [1])"),
                "/constructions/0/comments/0 wrong-type"},
        Refused{"PathWithApostrophe", R"({"standardLibraryFile": "o'neill.lby"})",
                "/standardLibraryFile unstorable-name"},
        Refused{"PathUnstorable",
                R"({"standardLibraryFile": "≥", "standardLibraryFileEncoding": "windows-1252"})",
                "/standardLibraryFile unstorable-character"},
        Refused{"GlassNameWithSlash", WithGlass(R"("name": "A/B")"),
                "/glassTypes/0/name unstorable-name"},
        Refused{"GlassNameEmpty", WithGlass(R"("name": "")"), "/glassTypes/0/name empty-name"},
        Refused{"DiffusionMissing", WithGlass(R"("name": "A", "hasDiffusion": true)"),
                "/glassTypes/0/diffusion missing-key"},
        Refused{"DiffusionTooShort", WithGlass(R"("name": "A", "diffusion": [1])"),
                "/glassTypes/0/diffusion array-length"},
        Refused{"ValueTooLarge",
                WithGlass(R"("name": "A", "diffusion": [0,0,0,0,0,0,0,0,0,0,1e39])"),
                "/glassTypes/0/diffusion/10 number-range"},
        Refused{"NameWithEndMark",
                R"({"standardLibraryFile": "", "constructions": [{"name": "a\u001a"}]})",
                "/constructions/0/name unstorable-name"}),
    [](const auto& test) { return test.param.name; });

TEST(BuildProject, NamesThatAReaderLosesAreAllowedByForceButNoLineEnds) {
    for (const char* name : {"o'neill", "a*b", "x !EOF y"}) {
        const std::string json = R"({"standardLibraryFile": "", "constructions": [{"name": ")"
                                 + std::string(name) + R"("}]})";
        EXPECT_THAT(Faults(json), ElementsAre("/constructions/0/name unstorable-name"));
        EXPECT_THAT(Faults(json, true), ElementsAre());
    }
    for (const char* name : {"\\t", "\\r", "\\n", "\\u001a"})
        EXPECT_THAT(Faults(R"({"standardLibraryFile": "", "constructions": [{"name": ")"
                               + std::string(name) + R"("}]})",
                           true),
                    ElementsAre("/constructions/0/name unstorable-name"));
}

TEST(BuildProject, LayersBeyondTheLastSlotAreTold) {
    std::string layers;
    for (int i = 0; i < 16; ++i)
        layers += std::string(i == 0 ? "" : ", ") + R"({"bad": 1})";
    EXPECT_THAT(Faults(WithConstruction("\"layers\": [" + layers + "]")),
                ElementsAre("/constructions/0/layers too-many-layers"));
    const std::string plain = R"({"materialCode": 1, "thickness": 1)";
    EXPECT_THAT(
        Faults(WithConstruction("\"layers\": [" + plain + ", \"slot\": 15}, " + plain + "}]")),
        ElementsAre("/constructions/0/layers/1 slot-order"));
}

TEST(BuildProject, AfterAFaultySlotTheCountGoesOn) {
    const std::string plain = R"({"materialCode": 1, "thickness": 1, "slot": )";
    EXPECT_THAT(Faults(WithConstruction("\"layers\": [" + plain + "4}, " + plain + "4}, " + plain
                                        + "5}, " + plain + "7}]")),
                ElementsAre("/constructions/0/layers/1/slot slot-order",
                            "/constructions/0/layers/2/slot slot-order"));
}

TEST(BuildProject, FaultsComeInDocumentOrder) {
    EXPECT_THAT(Faults(R"({"userLoaded": true, "constructions": [{"layers": [
                    {"conductivity": -3, "slot": 99, "materialCode": -1, "thicknes": 2}]}],
                    "comments": {"fileHead": 1}})"),
                ElementsAre("/userLoaded user-library-missing",
                            "/constructions/0/layers/0/conductivity cavity-mismatch",
                            "/constructions/0/layers/0/slot number-range",
                            "/constructions/0/layers/0/thicknes unknown-key",
                            "/constructions/0/layers/0/thickness missing-key",
                            "/constructions/0/name missing-key", "/comments/fileHead wrong-type",
                            "/standardLibraryFile missing-key"));
}

TEST(BuildProject, AKeyUpToTwoLettersAwayIsSuggested) {
    for (const char* key : {"thckess", "thiicknesss", "hicknesss", "THICKMESS"})
        EXPECT_THAT(Texts(WithLayer(R"("materialCode": 1, "thickness": 1, ")" + std::string(key)
                                    + R"(": 2)")),
                    ElementsAre("the key \"" + std::string(key)
                                + "\" is not known; is \"thickness\" meant?"));
    EXPECT_THAT(Texts(WithLayer(R"("materialCode": 1, "thickness": 1, "thickn": 2)")),
                ElementsAre("the key \"thickn\" is not known"));
}

TEST(BuildProject, TextsSayWhatWasExpectedAndWhatStoodThere) {
    EXPECT_THAT(Texts(WithLayer(R"("materialCode": 1, "thickness": "12,5", "nmae": "")")),
                ElementsAre("expected a number (millimetres), got the string \"12,5\"",
                            "the key \"nmae\" is not known; is \"name\" meant?"));
    EXPECT_THAT(Texts(WithLayer(R"("materialCode": 1, "thickness": 1, "name": "5 ≥ 4")")),
                ElementsAre("expected a string (name of the material) in Windows-1252, which has "
                            "no U+2265, got the string \"5 \xE2\x89\xA5 4\""));
    EXPECT_THAT(Texts(R"({"standardLibraryFile": "a\tb\u001b[2J"})"),
                ElementsAre("expected a text without a tab, a line break or an end-of-file mark "
                            "(26), got the string \"a\\u0009b\\u001B[2J\""));
    EXPECT_THAT(Texts("{\"standardLibraryFile\": [\"" + std::string(200, 'x') + "\"]}"),
                ElementsAre("expected a string (path of the standard library), got an array"));
    EXPECT_THAT(
        Texts(WithLayer(R"("materialCode": ")" + std::string(200, 'x') + R"(", "thickness": 1)")),
        ElementsAre("expected a material number, got the string \"" + std::string(60, 'x')
                    + "...\""));
}

TEST(BuildProject, KeysOfOthersAreIgnoredAnywhere) {
    EXPECT_THAT(Faults(R"({"$schema": 1, "x-a": {"b": [1e999]}, "standardLibraryFile": "",
                   "comments": {"x-c": 1}, "constructions": [{"name": "", "x-thermal": {"u": 1},
                   "$schema": null, "layers": [{"materialCode": 1, "thickness": 2, "x-": 1}]}]})"),
                ElementsAre());
}

TEST(BuildProject, AThousandFaultsAreKeptAndTheOthersCounted) {
    std::string json = R"({"standardLibraryFile": "", "glassTypes": [0)";
    for (int i = 1; i < 5000; ++i)
        json += ", 0";
    const BuiltProject built = BuildProject(json + "]}", ComesBack);
    ASSERT_EQ(built.faults.size(), 1000u);
    EXPECT_EQ(built.faults[999].pointer, "/glassTypes/999");
    EXPECT_EQ(built.moreFaults, 4000u);
}

} // namespace
} // namespace strativo
