#include "exchange/LibraryTable.h"

#include "calc/CavityTypes.h"
#include "files/MaterialLibraryFile.h"
#include "support/Samples.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string header = "code,name,conductivity,density,specificheat\r\n";

/// The faults as "LINE:COLUMN TEXT [RULE]".
std::vector<std::string> Faults(const std::string& csv,
                                LibraryLayout layout = LibraryLayout::standard) {
    std::vector<std::string> lines;
    for (const Fault& fault : BuildLibrary(csv, layout).faults)
        lines.push_back(std::to_string(fault.place->line) + ":"
                        + std::to_string(fault.place->column) + " " + fault.text + " [" + fault.rule
                        + "]");
    return lines;
}

std::string Made(const std::string& csv, LibraryLayout layout = LibraryLayout::standard) {
    const BuiltLibrary built = BuildLibrary(csv, layout);
    EXPECT_THAT(Faults(csv, layout), IsEmpty());
    return built.bytes;
}

TEST(LibraryTable, GivesTheLayoutAskedFor) {
    const std::string csv =
        header + "110,Brick clay 1760,0.78,1760,790\r\n" + "7,\"OAK, \u00C4GYPTEN\",1e-1,.5,0\r\n";
    EXPECT_EQ(Made(csv), "110'BRICK CLAY 1760' 0.78 1760 790\r\n7'OAK, \xC4GYPTEN' 0.1 0.5 0\r\n");
    EXPECT_EQ(Made(csv, LibraryLayout::user),
              "110* BRICK CLAY 1760,0.78 1760 790\r\n\"7* OAK, \xC4GYPTEN\",0.1 0.5 0\r\n");
}

TEST(LibraryTable, ColumnsStandInAnyOrderWithTheirUnits) {
    const std::string expected = "1'A' 2 3 4\r\n";
    for (const char* csv :
         {"Material;Number;\u03C1;Lambda (W/mK);Density [kg/m\u00B3];cp [J/kgK]\nA;1;x;2;3;4\n",
          "specific_heat_j_per_kg_k\tconductivity_w_per_m_k\tdensity_kg_per_m3\tname\tcode\r"
          "4\t2\t3\tA\t1\r",
          "\xEF\xBB\xBFsep=,\r\n\"code\",name,\"Thermal conductivity, W/(m K)\",\"density, kg/m3\","
          "\"Specific heat capacity, J/(kg K)\"\r\n1,A,2,3,4"})
        EXPECT_EQ(Made(csv), expected) << csv;
}

TEST(LibraryTable, DecimalCommasGoWithSemicolonsAndTabsOnly) {
    const std::string row =
        "code;name;conductivity;density;specificheat\n1;A;0,84;\u00A01700 ;8e2\n";
    EXPECT_EQ(Made(row), "1'A' 0.84 1700 800\r\n");
    EXPECT_THAT(Faults(header + "1,A,\"0,84\",1,1\n"),
                ElementsAre("2:3 conductivity: \"0,84\" is not a number [bad-number]"));
    EXPECT_THAT(Faults("code;name;conductivity;density;specificheat\n1;A;1.700,5;1 700;8'0\n"),
                ElementsAre("2:3 conductivity: \"1.700,5\" is not a number [bad-number]",
                            "2:4 density: \"1 700\" is not a number [bad-number]",
                            "2:5 specific heat: \"8'0\" is not a number [bad-number]"));
}

TEST(LibraryTable, ZeroHasNoSign) {
    EXPECT_EQ(Made(header + "1,A,2,-0,-0.0\n"), "1'A' 2 0 0\r\n");
}

TEST(LibraryTable, TheHeaderChoosesTheSeparatorAndNotAnEmptyLineBeforeIt) {
    EXPECT_EQ(Made(" \t \n" + header + "1,A,2,3,4\n"), "1'A' 2 3 4\r\n");
}

TEST(LibraryTable, ASemicolonInsideQuotesSeparatesNothing) {
    EXPECT_EQ(Made("code,name,conductivity,density,specificheat,\"a;b\"\n1,A,2,3,4,5\n"),
              "1'A' 2 3 4\r\n");
}

TEST(LibraryTable, RowsOfEmptyCellsAreSkipped) {
    EXPECT_EQ(Made("\n,,\n" + header + ",,,,\n1,A,2,3,4,,\n\n , \n"), "1'A' 2 3 4\r\n");
}

TEST(LibraryTable, EveryFaultIsToldByLineAndColumn) {
    EXPECT_THAT(
        Faults(header
               + "x,{,O.84,-1,1e999\n"
                 "0,,0,,\n"
                 "1.5,-999,1e-60,0,0,more\n"
                 "5,\"A\nB\",1,1,1\n"
                 "6,A,1,1,1\n"
                 "6,O'NEILL,1e39,1\n"
                 "7,\u2265,1,1,1\n"),
        ElementsAre(
            "2:1 code: \"x\" is not a number [bad-number]",
            "2:2 name: \"{\" holds U+007B, which a library cannot hold "
            "[unstorable-character]",
            "2:3 conductivity: \"O.84\" is not a number [bad-number]",
            "2:4 density: \"-1\" is below 0 [number-range]",
            "2:5 specific heat: \"1e999\" is beyond a 64-bit float [number-range]",
            "3:1 code: \"0\" is no whole number from 1 to 32767 [code-range]",
            "3:2 name: the cell is empty [empty-cell]",
            "3:3 conductivity: \"0\" is not above 0 or beyond a 32-bit float [number-range]",
            "3:4 density: the cell is empty [empty-cell]",
            "3:5 specific heat: the cell is empty [empty-cell]",
            "4:1 code: \"1.5\" is no whole number from 1 to 32767 [code-range]",
            "4:2 name: \"-999\" marks the end of a library [reserved-name]",
            "4:3 conductivity: \"1e-60\" is not above 0 or beyond a 32-bit float "
            "[number-range]",
            "4:6 \"more\" stands behind the last header [extra-cell]",
            "5:2 name: \"A\\u000AB\" holds U+000A, which a library cannot hold "
            "[unstorable-character]",
            "8:1 code: 6 was given before [duplicate-code]",
            "8:2 name: \"O'NEILL\" holds U+0027, which a library cannot hold "
            "[unstorable-character]",
            "8:3 conductivity: \"1e39\" is not above 0 or beyond a 32-bit float "
            "[number-range]",
            "8:5 specific heat: the cell is empty [empty-cell]",
            "9:2 name: \"\u2265\" holds U+2265, which a library cannot hold "
            "[unstorable-character]"));
}

TEST(LibraryTable, NamesThatOnlyTheUserLayoutLoses) {
    EXPECT_THAT(
        Faults(header + "1, A,1,1,1\n2,A,1,1,1\n3,\"A,\"\"B\",1,1,1\n4,O'NEILL*,1,1,1\n",
               LibraryLayout::user),
        ElementsAre(HasSubstr("2:2 name: \" A\" begins with a blank"),
                    HasSubstr("3:2 name: \"A\" is of one character"),
                    HasSubstr("4:2 name: \"A,\"B\" holds both a comma and a double quote")));
}

TEST(LibraryTable, FaultsOfTheHeaderAreToldAlone) {
    EXPECT_THAT(Faults("\ncode,name,Density [g/cm3],code,lambda\nx,x,x,x,x\n"),
                ElementsAre("2:0 density: no such column; found: \"Density [g/cm3]\"; known: "
                            "density in kg/m3 [missing-column]",
                            "2:0 specific heat: no such column; found: \"code name Density [g/cm3] "
                            "code lambda\"; known: specific heat in J/kg K or J/kg C "
                            "[missing-column]",
                            "2:4 code: a second column of it, \"code\" [duplicate-column]"));
    EXPECT_THAT(Faults(""), ElementsAre("1:0 the table is empty [missing-column]"));
    EXPECT_THAT(Faults("\r\n;;\r\n; \r\n"), ElementsAre("1:0 the table is empty [missing-column]"));
    EXPECT_THAT(Faults("\n" + header),
                ElementsAre("2:0 the table has no row behind its header [no-materials]"));
}

TEST(LibraryTable, WhatIsNoTableIsTheOnlyFault) {
    EXPECT_THAT(Faults(header + "1,\"A\nB,1,1,1\n"),
                ElementsAre("2:2 the quote is not closed [csv-quote]"));
    EXPECT_THAT(Faults(header + "1,\"A\nC\"B,1,1,1\n"),
                ElementsAre("2:2 text behind the closing quote [csv-quote]"));
    EXPECT_THAT(Faults(header + "1,\xE9,1,1,1\n"),
                ElementsAre("2:0 a byte that is not UTF-8; save the table as CSV UTF-8 "
                            "[csv-encoding]"));
    EXPECT_THAT(Faults(std::string("\xFF\xFE"
                                   "c\0",
                                   4)),
                ElementsAre("1:0 the table is UTF-16 or UTF-32; save the table as CSV UTF-8 "
                            "[csv-encoding]"));
    EXPECT_THAT(Faults(std::string((16 << 20) + 1, ',')),
                ElementsAre("0:0 the table is larger than 16 MiB [csv-limit]"));
}

TEST(LibraryTable, AQuoteInsideAnUnquotedCellIsACharacter) {
    EXPECT_EQ(Made(header + "1,5\" PIPE,2,3,4\n"), "1'5\" PIPE' 2 3 4\r\n");
}

std::string Rows(int count) {
    std::string rows = header;
    for (int code = 1; code <= count; ++code)
        rows += std::to_string(code) + ",AB,1,1,1\n";
    return rows;
}

TEST(LibraryTable, HoldsAsManyMaterialsAsTheLoaderTakes) {
    EXPECT_NO_THROW(ParseStandardLibrary(Made(Rows(93))));
    EXPECT_THAT(Faults(Rows(94) + "x\n"),
                ElementsAre("95:0 a library of this layout holds at most 93 materials "
                            "[too-many-materials]"));
    EXPECT_NO_THROW(ParseUserLibrary(Made(Rows(99), LibraryLayout::user)));
    EXPECT_THAT(Faults(Rows(100), LibraryLayout::user), ElementsAre(HasSubstr("101:0 ")));
}

TEST(LibraryTable, ALongNameIsNotedButNoFault) {
    const BuiltLibrary built =
        BuildLibrary(header + "1," + std::string(34, 'A') + ",1,1,1\n", LibraryLayout::standard);
    EXPECT_THAT(built.faults, IsEmpty());
    ASSERT_EQ(built.notes.size(), 1u);
    EXPECT_EQ(built.notes[0].rule, "name-cut");
    EXPECT_EQ(built.notes[0].place->line, 2);
}

void ExpectSame(const MaterialLibrary& a, const MaterialLibrary& b) {
    ASSERT_EQ(MaterialCount(a), MaterialCount(b));
    for (int slot = 1; slot <= MaterialCount(a); ++slot) {
        EXPECT_EQ(a[slot].name, b[slot].name);
        EXPECT_EQ(a[slot].code, b[slot].code);
        EXPECT_EQ(a[slot].conductivity, b[slot].conductivity);
        EXPECT_EQ(a[slot].density, b[slot].density);
        EXPECT_EQ(a[slot].specificHeat, b[slot].specificHeat);
    }
}

TEST(LibraryTable, TheShippedLibrariesComeBackTheSame) {
    const MaterialLibrary standard = ParseStandardLibrary(SourceFile("data/stdmat.lby")).library;
    const std::string table = FormatLibraryTable(standard);
    const std::string made = Made(table);
    ExpectSame(ParseStandardLibrary(made).library, standard);
    EXPECT_EQ(Made(FormatLibraryTable(ParseStandardLibrary(made).library)), made);
    const MaterialLibrary user = ParseUserLibrary(SourceFile("data/examples/user.lby")).library;
    ExpectSame(ParseUserLibrary(Made(FormatLibraryTable(user), LibraryLayout::user)).library, user);
}

/// Libraries with every storable byte in their names and numbers of every size.
TEST(LibraryTable, AnyLibraryWithoutFaultsComesBackTheSame) {
    std::mt19937 random(16);
    const auto below = [&](int limit) {
        return std::uniform_int_distribution<int>(0, limit - 1)(random);
    };
    for (int round = 0; round < 200; ++round) {
        MaterialLibrary library;
        const int count = 1 + below(90);
        for (int slot = 1; slot <= count; ++slot) {
            std::string name = "AB";
            for (int length = below(40); length > 0; --length) {
                const auto c = static_cast<char>(' ' + below(256 - ' '));
                const bool storable = c != '\x7F' && c != '\'' && c != '"' && (c < 'a' || c > '{');
                name += storable ? c : '-';
            }
            library[slot] = {static_cast<double>(slot * 7), name,
                             std::ldexp(1 + below(1000), below(40) - 20),
                             std::ldexp(below(1000), below(40) - 20), below(5000) / 10.0};
        }
        library[count + 1].name = endOfLibrary;
        const std::string table = FormatLibraryTable(library);
        ExpectSame(ParseUserLibrary(Made(table, LibraryLayout::user)).library, library);
        AppendCavityEntries(library, count + 1);
        ExpectSame(ParseStandardLibrary(Made(table)).library, library);
        EXPECT_EQ(FormatLibraryTable(library), table);
    }
}

} // namespace
} // namespace strativo
