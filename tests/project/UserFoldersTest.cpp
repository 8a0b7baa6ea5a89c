#include "project/UserFolders.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace strativo {
namespace {

TEST(UserFolders, AreBelowHome) {
    const EnvironmentVariable home("HOME", "/home/me");
    const EnvironmentVariable state("XDG_STATE_HOME", nullptr);
    const EnvironmentVariable config("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(HomeFolder(), "/home/me");
    EXPECT_EQ(StateFolder(), "/home/me/.local/state/strativo");
    EXPECT_EQ(ConfigFolder(), "/home/me/.config");
}

TEST(UserFolders, MayBeElsewhere) {
    const EnvironmentVariable state("XDG_STATE_HOME", "/elsewhere/state");
    const EnvironmentVariable config("XDG_CONFIG_HOME", "/elsewhere/config");
    EXPECT_EQ(StateFolder(), "/elsewhere/state/strativo");
    EXPECT_EQ(ConfigFolder(), "/elsewhere/config");
}

TEST(UserFolders, DoNotDependOnTheWorkingFolder) {
    const passwd* user = getpwuid(geteuid());
    if (user == nullptr)
        GTEST_SKIP() << "the system does not know this user";
    const std::string home = user->pw_dir;
    for (const char* value : {static_cast<const char*>(nullptr), "", "relative", "."}) {
        const EnvironmentVariable homeVariable("HOME", value);
        const EnvironmentVariable state("XDG_STATE_HOME", value);
        const EnvironmentVariable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(StateFolder(), home + "/.local/state/strativo");
        EXPECT_EQ(ConfigFolder(), home + "/.config");
    }
}

} // namespace
} // namespace strativo
