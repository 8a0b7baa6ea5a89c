#include "cli/CommandRun.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <random>

namespace strativo {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

class ShowJson : public CliTest {
protected:
    ShowJson() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
    }
};

TEST_F(ShowJson, HoldsEverythingThatTheFileHolds) {
    folder.Write("a.con",
                 Lines({"head * on top", standardLine + " * std", userLine + " * own",
                        "!CONSTRUCTION 'Wall' * note", "!TYPE TRANSPARENT", "!PARTS",
                        "_ 1 =       12      0.105      0      0.15      * FACE BRICK",
                        "_ 2 =      @12      0.100      0      0.00      * HEMP", "!END * late",
                        "!WINDOW = 'G' * pane", "!TRANSMISSION =",
                        "0.05, 0.8, 0.79, 0.78, 0.77, 0.75, 0.71, 0.64, 0.5, 0.28, 0.0",
                        "!ABSORPTION =", "0.1, 0.2, 0.3", "!DIFFUSION =", "1, 0.123", "!END"}));
    const RunResult result = RunTool({"show", "--json", "a.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    json document = Document(result);
    EXPECT_EQ(document, json::parse(SourceFile("tests/golden/cli/everything.json")));
}

TEST_F(ShowJson, MembersStandInTheOrderOfTheManual) {
    folder.Write("a.con", WallFile({brickPart}));
    const auto document = nlohmann::ordered_json::parse(RunTool({"show", "--json", "a.con"}).out);
    std::vector<std::string> names;
    for (const auto& member : document.at(0).items())
        names.push_back(member.key());
    EXPECT_THAT(names, ElementsAre("schemaVersion", "file", "messages", "ended", "readToEnd",
                                   "standardLibraryFile", "standardLibraryFileEncoding",
                                   "userLibraryFile", "userLibraryFileEncoding", "standardLoaded",
                                   "userLoaded", "userLibraryNeeded", "changed", "constructions",
                                   "glassTypes", "glassTypes2D", "comments"));
    names.clear();
    for (const auto& member : document[0]["constructions"][0]["layers"][0].items())
        names.push_back(member.key());
    EXPECT_THAT(names, ElementsAre("slot", "name", "materialCode", "library", "conductivity",
                                   "density", "specificHeat", "thickness", "absorption", "line"));
}

TEST_F(ShowJson, SaysWhetherRewriteWouldWriteTheFile) {
    folder.Write("good.con", WallFile({brickPart}));
    folder.Write("broken.con", WallFile({brickPart, "_ 2 = 1e99 0.1"}));
    folder.Write("nolibrary.con", WallFile({"!MATERIALS FILE = 'gone.lby'"}, {brickPart}));
    for (const char* file : {"good.con", "broken.con", "nolibrary.con", "gone.con"}) {
        const json document = Document(RunTool({"show", "--json", file}));
        EXPECT_EQ(document[0]["readToEnd"], RunTool({"rewrite", file, "out.con"}).status == 0)
            << file;
    }
}

TEST_F(ShowJson, SaysThatRewriteWouldNotWriteAFileWithoutALineOfTheFormat) {
    folder.Write("letter.con", "Dear Sir,\r\nthe walls are wet!\r\n");
    const RunResult result = RunTool({"show", "--json", "--standard", "std.lby", "letter.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Document(result)[0]["readToEnd"], false);
}

TEST_F(ShowJson, TellsPathsApartThatPrintAlike) {
    for (const bool utf8 : {true, false}) {
        const std::string name = utf8 ? "\xC3\xA9.lby" : "\xE9.lby";
        folder.Write(name, standardLibraryBytes);
        folder.Write("a.con", WallFile({"!MATERIALS FILE = '" + name + "'"}, {brickPart}));
        const json document = Document(RunTool({"show", "--json", "a.con"}));
        EXPECT_EQ(document[0]["standardLibraryFile"], "\xC3\xA9.lby");
        EXPECT_EQ(document[0]["standardLibraryFileEncoding"], utf8 ? "utf-8" : "windows-1252");
        EXPECT_EQ(document[0]["userLibraryFileEncoding"], "utf-8");
    }
}

TEST_F(ShowJson, HasOneObjectForEachFileAlsoForOnesThatCannotBeRead) {
    folder.Write("a.con", WallFile({}));
    const RunResult result = RunTool({"show", "--json", "a.con", "gone.con", "a.con"});
    EXPECT_EQ(result.status, 3);
    const json document = Document(result);
    ASSERT_EQ(document.size(), 3);
    EXPECT_EQ(document[0]["file"], "a.con");
    EXPECT_EQ(document[1]["file"], "gone.con");
    EXPECT_EQ(document[1]["ended"], false);
    EXPECT_EQ(document[1]["constructions"], json::array());
    EXPECT_EQ(document[2], document[0]);
}

TEST_F(ShowJson, MessagesAreVerbatimAndEncodedInUtf8) {
    const json document = Document(RunTool({"show", "--json", "gone.con"}));
    EXPECT_EQ(document[0]["messages"], json::parse(R"([{"title": "", "text":
                           "Command line error\rConstruction file (p) is missing."}])"));
}

TEST_F(ShowJson, WritesLargeFloatsAsTheShortestDecimalToo) {
    folder.Write("std.lby", "12'BRICK' 123456789 1 1\r\n");
    folder.Write("a.con", Lines({standardLine, "!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0 ", "!END"}));
    EXPECT_THAT(RunTool({"show", "--json", "a.con"}).out,
                HasSubstr("\"conductivity\": 123456790.0, "));
}

TEST_F(ShowJson, WritesFloatsAndDoublesAsTheShortestDecimal) {
    folder.Write("std.lby", "12'BRICK' 0.84 0.656472 3.119699\r\n");
    folder.Write("a.con", Lines({standardLine, "!CONSTRUCTION 'A'", "!TYPE TRANSPARENT",
                                 "_ 1 = 12 0.009660412 0 0.15 * x", "!END"}));
    const std::string out = RunTool({"show", "--json", "a.con"}).out;
    EXPECT_THAT(out, HasSubstr("\"conductivity\": 0.84, \"density\": 0.656472, "
                               "\"specificHeat\": 3.119699, \"thickness\": 9.660412, "
                               "\"absorption\": 0.15,"));
}

TEST_F(ShowJson, WholeNumbersOfFractionsKeepAPoint) {
    folder.Write("a.con", WallFile({brickPart}));
    EXPECT_THAT(RunTool({"show", "--json", "a.con"}).out,
                HasSubstr("\"density\": 1700.0, \"specificHeat\": 800.0, \"thickness\": 105.0"));
}

TEST_F(ShowJson, GlassTypes2DHave19RowsOf19Values) {
    std::vector<std::string> lines = {standardLine, "!WINDOW 2D = 'T'", "!TRANSMISSION ="};
    for (int row = 1; row <= 19; ++row)
        lines.push_back("0." + std::to_string(row) + ", 0.5");
    lines.insert(lines.end(), {" }", "!END"});
    folder.Write("a.con", Lines(lines));
    const json type = Document(RunTool({"show", "--json", "a.con"}))[0]["glassTypes2D"][0];
    EXPECT_EQ(type["number"], 1);
    EXPECT_EQ(type["name"], "T");
    EXPECT_EQ(type["hasDiffusion"], false);
    for (const char* table : {"transmission", "absorption", "diffusion"}) {
        ASSERT_EQ(type[table].size(), 19);
        for (const auto& row : type[table])
            EXPECT_EQ(row.size(), 19);
    }
    EXPECT_EQ(type["transmission"][6][0], 0.7);
    EXPECT_EQ(type["transmission"][18][1], 0.5);
}

TEST_F(ShowJson, LeavesOutGlassTypesWithoutAName) {
    folder.Write("a.con", Lines({standardLine, "!WINDOW = ''", "!END"}));
    EXPECT_EQ(Document(RunTool({"show", "--json", "a.con"}))[0]["glassTypes"], json::array());
}

TEST_F(ShowJson, DecodesWindows1252) {
    folder.Write("a.con",
                 Lines({standardLine, "!CONSTRUCTION '<\x80\x81\xFC>' * \x93x\x94", "!END"}));
    const json construction = Document(RunTool({"show", "--json", "a.con"}))[0]["constructions"][0];
    EXPECT_EQ(construction["name"], "<\u20AC\u0081\u00FC>");
    EXPECT_EQ(construction["comments"][0], " \u201Cx\u201D");
}

TEST_F(ShowJson, APathOfValidUtf8IsTakenAsUtf8) {
    folder.Write("d\u00E4ch.con", WallFile({"!MATERIALS FILE = 'd\u00E4ch.lby'"}, {}));
    folder.Write("d\u00E4ch.lby", standardLibraryBytes);
    folder.Write("d\xE4"
                 "ch.con",
                 WallFile({}));
    const json document = Document(RunTool({"show", "--json", "d\u00E4ch.con",
                                            "d\xE4"
                                            "ch.con"}));
    EXPECT_EQ(document[0]["file"], "d\u00E4ch.con");
    EXPECT_EQ(document[0]["standardLibraryFile"], "d\u00E4ch.lby");
    EXPECT_EQ(document[0]["standardLoaded"], true);
    EXPECT_EQ(document[1]["file"], "d\u00E4ch.con");
}

TEST_F(ShowJson, IsOneValidDocumentForEveryByte) {
    std::string name;
    for (int byte = 0; byte < 256; ++byte)
        if (byte != '\n' && byte != '\'' && byte != '*')
            name += static_cast<char>(byte);
    folder.Write("a.con", Lines({standardLine + " * " + name, "!CONSTRUCTION '" + name + "'"}));
    const json object = Document(RunTool({"show", "--json", "a.con"}))[0];
    const std::string shown = object["constructions"][0]["name"];
    EXPECT_THAT(shown, HasSubstr(std::string("\0\x01\x02", 3)));
    EXPECT_THAT(shown, HasSubstr("\u00FD\u00FE\u00FF"));
    EXPECT_EQ(object["comments"]["standardLibrary"].size(), 1);
}

TEST_F(ShowJson, IsOneValidDocumentForRandomBytes) {
    std::mt19937 random(1);
    for (int round = 0; round < 100; ++round) {
        std::string bytes =
            round % 2 == 0 ? "" : standardLine + "\n!CONSTRUCTION 'A'\n!WINDOW = 'G'\n";
        for (int i = 0; i < 2000; ++i)
            bytes += static_cast<char>(random() % 256);
        folder.Write("a.con", bytes);
        const json document = Document(RunTool({"show", "--json", "a.con"}));
        EXPECT_EQ(document.size(), 1);
        EXPECT_EQ(Document(RunTool({"check", "--json", "a.con"})).size(), 1);
    }
}

TEST_F(ShowJson, AgreesWithTheTextAboutTheHouse) {
    std::filesystem::remove("user.lby"); // it would be taken for that of the house
    const std::string house = std::string(STRATIVO_SOURCE) + "/data/examples/house.con";
    const json object = Document(RunTool({"show", "--json", house}))[0];
    const std::string text = SourceFile("tests/golden/cli/house.txt");
    EXPECT_EQ(object["constructions"].size(), 17);
    for (const auto& construction : object["constructions"]) {
        std::string block = "Construction " + construction["number"].dump() + "  "
                            + construction["name"].get<std::string>() + "  ("
                            + (construction["type"] == 1 ? "Transparent" : "Opaque") + ")\n";
        for (const auto& layer : construction["layers"])
            block += "  " + layer["line"].get<std::string>() + "\n";
        block += "  Indicative Uvalue W/Cm2  " + construction["result"].get<std::string>() + "\n";
        EXPECT_THAT(text, HasSubstr(block));
    }
    EXPECT_EQ(object["glassTypes"].size(), 6);
    EXPECT_EQ(object["glassTypes2D"].size(), 1);
}

} // namespace
} // namespace strativo
