#include "cli/CommandRun.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using nlohmann::json;
using testing::ElementsAre;

constexpr char missing[] = "Standard material file is missing.";
constexpr char userMissing[] = "User material file is missing.";

class Prompts : public CliTest {
protected:
    Prompts() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
        folder.Write("lost.con", WallFile({"!MATERIALS FILE = 'gone.lby'"}, {brickPart}));
    }

    /// The object of the one file shown; the run must have that status.
    static json Shown(std::vector<std::string> arguments, int status) {
        arguments.insert(arguments.begin(), {"show", "--json"});
        const RunResult result = RunTool(arguments);
        EXPECT_EQ(result.status, status) << result.err;
        return Document(result)[0];
    }
};

TEST_F(Prompts, AMissingStandardLibraryEndsTheFile) {
    const json object = Shown({"lost.con"}, 3);
    EXPECT_THAT(Messages(object), ElementsAre(missing, "Cancel pressed aborting load"));
    EXPECT_EQ(object["ended"], true);
    EXPECT_EQ(object["standardLoaded"], false);
}

TEST_F(Prompts, StandardAnswersThePromptForTheStandardLibrary) {
    const json object = Shown({"lost.con", "--standard", "std.lby"}, 0);
    EXPECT_THAT(Messages(object), ElementsAre(missing));
    EXPECT_EQ(object["ended"], false);
    EXPECT_EQ(object["standardLibraryFile"], "std.lby");
    EXPECT_EQ(object["constructions"][0]["layers"][0]["name"], "FACE BRICK");
}

TEST_F(Prompts, TheSecondPromptIsAnsweredWithCancel) {
    const json object = Shown({"lost.con", "--standard", "gone-too.lby"}, 3);
    EXPECT_THAT(Messages(object), ElementsAre(missing, missing, "Cancel pressed aborting load"));
    EXPECT_EQ(object["ended"], true);
}

TEST_F(Prompts, EachFileHasAPromptOfItsOwn) {
    const RunResult result = RunTool({"show", "lost.con", "lost.con", "--standard", "std.lby"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "strativo-cli: lost.con: Standard material file is missing.\n"
                          "strativo-cli: lost.con: Standard material file is missing.\n");
}

TEST_F(Prompts, AFileThatNeedsAStandardLibraryAsksForOne) {
    folder.Write("glass.con", Lines({"!WINDOW = 'G'", "!END"}));
    const json answered = Shown({"glass.con", "--standard", "std.lby"}, 0);
    EXPECT_EQ(answered["messages"], json::parse(R"([{"title": "Material file Required", "text":
                           "This construction file requires a standard material library"}])"));
    EXPECT_EQ(answered["standardLoaded"], true);
    const json cancelled = Shown({"glass.con"}, 3);
    EXPECT_THAT(Messages(cancelled),
                ElementsAre("This construction file requires a standard material library",
                            "Unable to load this file due to missing library"));
    EXPECT_EQ(cancelled["ended"], true);
}

TEST_F(Prompts, AFileThatNeedsAUserLibraryAsksForOne) {
    folder.Write("own.con", WallFile({hempPart}));
    const json answered = Shown({"own.con", "--user-library", "user.lby"}, 0);
    EXPECT_EQ(answered["messages"], json::parse(R"([{"title": "User file Required", "text":
                           "This construction file requires a user material library"}])"));
    EXPECT_EQ(answered["userLibraryFile"], "user.lby");
    EXPECT_EQ(answered["userLibraryNeeded"], true);
    EXPECT_EQ(answered["constructions"][0]["layers"][0]["name"], "HEMP");
    const json cancelled = Shown({"own.con"}, 3);
    EXPECT_THAT(Messages(cancelled),
                ElementsAre("This construction file requires a user material library",
                            "Unable to load this file due to missing user library"));
    EXPECT_EQ(cancelled["ended"], true);
}

TEST_F(Prompts, AUserLibraryPromptThatComesBackAfterACancelEndsTheFile) {
    folder.Write("own.con",
                 WallFile({standardLine, "!MATERIALS USER FILE = 'gone.lby'"}, {hempPart}));
    const json cancelled = Shown({"own.con"}, 3);
    EXPECT_THAT(Messages(cancelled),
                ElementsAre(userMissing, userMissing,
                            "Unable to load this file due to missing user library"));
    EXPECT_EQ(cancelled["ended"], true);
    const json wrongAnswer = Shown({"own.con", "--user-library", "gone-too.lby"}, 3);
    EXPECT_THAT(Messages(wrongAnswer),
                ElementsAre(userMissing, userMissing, userMissing,
                            "Unable to load this file due to missing user library"));
    const json answered = Shown({"own.con", "--user-library", "user.lby"}, 0);
    EXPECT_THAT(Messages(answered), ElementsAre(userMissing));
    EXPECT_EQ(answered["userLibraryFile"], "user.lby");
}

TEST_F(Prompts, ALibraryThatFailsWithoutAPromptMakesTheStatus) {
    folder.Write("std.lby", "12'FACE BRICK' 0.84 1700 800\r\nno record\r\n");
    folder.Write("a.con", WallFile({brickPart}));
    const json object = Shown({"a.con", "--standard", "std.lby"}, 3);
    EXPECT_EQ(object["ended"], false);
    EXPECT_EQ(object["standardLoaded"], true);
    // Once for the first construction, once at the end of the file.
    EXPECT_THAT(Messages(object), ElementsAre("Standard material file is incorrect version",
                                              "Standard material file is incorrect version"));
}

TEST_F(Prompts, AnAnswerToOnePromptDoesNotMakeGoodAnotherFailure) {
    folder.Write("std.lby", "no record\r\n");
    folder.Write("own.con", WallFile({hempPart}));
    EXPECT_THAT(
        Messages(Shown({"own.con", "--user-library", "user.lby", "--standard", "std.lby"}, 3)),
        ElementsAre("Standard material file is incorrect version",
                    "This construction file requires a user material library",
                    "Standard material file is incorrect version"));
    folder.Write("named.con", WallFile({standardLine, "!MATERIALS USER FILE = ''"}, {hempPart}));
    EXPECT_EQ(Shown({"named.con", "--user-library", "user.lby"}, 3)["userLoaded"], true);
}

TEST_F(Prompts, TheSettingNamesTheDefaultLibrary) {
    folder.Write("a.con", WallFile(std::vector<std::string>(), {brickPart}));
    folder.Write("other.lby", "12'OTHER BRICK' 0.5 1 1\r\n");
    folder.Write("Stratv.ini", "[Files]\nStdMat=other.lby\n");
    // The default loads at the first construction, so no prompt comes.
    const json remembered = Shown({"a.con"}, 0);
    EXPECT_EQ(remembered["messages"], json::array());
    EXPECT_EQ(remembered["constructions"][0]["layers"][0]["name"], "OTHER BRICK");
    const json given = Shown({"a.con", "--standard", "std.lby"}, 0);
    EXPECT_EQ(given["messages"], json::array());
    EXPECT_EQ(given["standardLibraryFile"], "std.lby");
    EXPECT_EQ(given["constructions"][0]["layers"][0]["name"], "FACE BRICK");
}

TEST_F(Prompts, WithoutASettingTheDefaultIsBesideTheWorkingFolder) {
    folder.Write("a.con", WallFile(std::vector<std::string>(), {brickPart}));
    const RunResult result = RunTool({"show", "--json", "a.con"});
    EXPECT_EQ(Document(result)[0]["ended"], true);
    folder.Write("inner/a.con", WallFile(std::vector<std::string>(), {brickPart}));
    folder.Write("stdmat.lby", standardLibraryBytes);
    const json object = Shown({"inner/a.con"}, 0);
    EXPECT_EQ(object["standardLibraryFile"], "..\\stdmat.lby");
}

} // namespace
} // namespace strativo
