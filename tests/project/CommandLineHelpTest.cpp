#include "project/CommandLineHelp.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

TEST(CommandLineHelp, AnswersHelpAndVersionAlone) {
    EXPECT_THAT(HelpOrVersion({"--help"}), testing::StartsWith("Usage: strativo [FILE.con]\n"));
    EXPECT_THAT(HelpOrVersion({"--version"}), testing::MatchesRegex("strativo [0-9.]+\n"));
}

TEST(CommandLineHelp, LeavesEveryOtherCommandLineToBeAPath) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{},
                                               {""},
                                               {"house.con"},
                                               {"-h"},
                                               {"--helps"},
                                               {"--Version"},
                                               {"./--help"},
                                               {"--help", "house.con"},
                                               {"house.con", "--version"},
                                               {"--help", "--version"}})
        EXPECT_EQ(HelpOrVersion(arguments), "") << testing::PrintToString(arguments);
}

} // namespace
} // namespace strativo
