#include "edit/TypeAhead.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

const std::vector<std::string> names = {"AIR GAP",          "BLOCK",    "BRICK",    "BRICK INNER",
                                        "GLASS INSULATION", "\xC4RMEL", "\x8AKVARA"};

struct TypedRow {
    const char* name;
    const char* typed;
    int from;
    int line;
};

class TypeAhead : public testing::TestWithParam<TypedRow> {};

TEST_P(TypeAhead, LeadsToALine) {
    EXPECT_EQ(LineOfTyped(names, GetParam().typed, GetParam().from), GetParam().line);
}

constexpr TypedRow rows[] = {
    {"ABeginning", "br", 0, 2},
    {"TheLineItselfWhileItStillMatches", "bri", 3, 3},
    {"RoundTheEnd", "bl", 4, 1},
    {"NoSelectionStartsAtTheTop", "b", -1, 1},
    {"ABeginningBeforeAnyOtherPlace", "g", 0, 4},
    {"WithinAName", "insul", 0, 4},
    {"AWordBehindABlank", "K INN", 0, 3},
    {"AnyLetterCase", "aIr", 2, 0},
    {"LettersBeyondAscii", "\xE4r", 0, 5},
    {"LettersWhoseCapitalsLieElsewhere", "\x9Ak", 0, 6},
    {"NothingTyped", "", 0, -1},
    {"NothingFound", "zinc", 0, -1},
    {"OneLetterAgainGoesOn", "bb", 1, 2},
    {"AndOn", "bbb", 2, 3},
    {"AndRound", "bbbb", 3, 1},
    {"BehindTheLast", "b", 99, 1},
};

INSTANTIATE_TEST_SUITE_P(Typed, TypeAhead, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(TypeAheadInAnEmptyList, FindsNothing) {
    EXPECT_EQ(LineOfTyped({}, "b", 0), -1);
}

} // namespace
} // namespace strativo
