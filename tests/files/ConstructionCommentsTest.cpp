#include "support/ParseText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ConstructionComments : public testing::Test {
protected:
    const Comments& Parse(std::string_view text) {
        ParseText(text, project);
        return project.comments;
    }

    Project project;
};

TEST_F(ConstructionComments, BelongToTheSectionThatIsOpen) {
    const Comments& comments = Parse("Head *one\n"
                                     "!MATERIALS FILE = 's'* two \n"
                                     "!MATERIALS USER FILE = 'u' *\tthree\n"
                                     "!CONSTRUCTION 'A' *four\n!TYPE OPAQUE *five\n!PARTS*six\n"
                                     "!END *seven\n"
                                     "!WINDOW = 'G' *eight\n!TRANSMISSION = *nine\n1 * no\n"
                                     "!END *ten\n"
                                     "!WINDOW 2D = 'H' *eleven\n } *twelve\n!END\n");
    EXPECT_THAT(comments.fileHead, ElementsAre("one"));
    EXPECT_THAT(comments.standardLibrary, ElementsAre(" two "));
    EXPECT_THAT(comments.userLibrary, ElementsAre(" three"));
    EXPECT_THAT(comments.constructions.Of(1), ElementsAre("four", "five", "six"));
    EXPECT_THAT(comments.glassTypes.Of(1), ElementsAre("eight", "nine"));
    EXPECT_THAT(comments.glassTypes2D.Of(1), ElementsAre("eleven", "twelve"));
    EXPECT_THAT(comments.noSection, ElementsAre("seven", "ten"));
}

TEST_F(ConstructionComments, AreLostFromLinesThatHoldNothingElse) {
    const Comments& comments = Parse("* lost\n  \t* lost too\n!CONSTRUCTION 'A'\n*lost\n!END\n");
    EXPECT_THAT(comments.fileHead, IsEmpty());
    EXPECT_THAT(comments.constructions.Of(1), IsEmpty());
}

TEST_F(ConstructionComments, OfPartLinesAreNeverKept) {
    const Comments& comments = Parse("!CONSTRUCTION 'A'\n_ 1 = 12 0.1 0 * FACE BRICK\n!END\n");
    EXPECT_THAT(comments.constructions.Of(1), IsEmpty());
}

TEST_F(ConstructionComments, OfWhatLooksLikeAPartLineOutsideAConstructionAreKept) {
    EXPECT_THAT(Parse("_ 1 = 12 0.1 0 * head\n").fileHead, ElementsAre(" head"));
}

TEST_F(ConstructionComments, StartAtTheFirstAsterisk) {
    EXPECT_THAT(Parse("x * a * b\nx ** c\n").fileHead, ElementsAre(" a * b", "* c"));
}

TEST_F(ConstructionComments, OfAnEndThatClosesNothingStayWithTheSectionBefore) {
    const Comments& comments = Parse("!END * head\n!MATERIALS FILE = 's'\n!END * library\n");
    EXPECT_THAT(comments.fileHead, ElementsAre(" head"));
    EXPECT_THAT(comments.standardLibrary, ElementsAre(" library"));
}

TEST_F(ConstructionComments, BelongToTheirOwnConstruction) {
    const Comments& comments = Parse("!CONSTRUCTION 'A' *a\n!END\n!CONSTRUCTION 'B' *b\n!END\n");
    EXPECT_THAT(comments.constructions.Of(1), ElementsAre("a"));
    EXPECT_THAT(comments.constructions.Of(2), ElementsAre("b"));
}

TEST_F(ConstructionComments, ReturnToTheGlassTypeAroundAConstruction) {
    const Comments& comments = Parse("!WINDOW = 'G'\n!CONSTRUCTION 'A' *a\n!END *g\n"
                                     "!END\n!WINDOW 2D = 'H'\n!CONSTRUCTION 'B'\n!END *h\n");
    EXPECT_THAT(comments.constructions.Of(1), ElementsAre("a"));
    EXPECT_THAT(comments.glassTypes.Of(1), ElementsAre("g"));
    EXPECT_THAT(comments.glassTypes2D.Of(1), ElementsAre("h"));
}

} // namespace
} // namespace strativo
