#include "project/UserFolders.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace strativo {
namespace {

/// Sets a variable and puts it back at the end; null removes it.
class Variable {
public:
    Variable(const char* variable, const char* value) : name(variable) {
        const char* present = std::getenv(name);
        wasSet = present != nullptr;
        before = wasSet ? present : "";
        Set(value);
    }
    ~Variable() { Set(wasSet ? before.c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void Set(const char* value) const {
        if (value != nullptr)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }

    const char* name;
    bool wasSet = false;
    std::string before;
};

TEST(UserFolders, AreBelowHome) {
    const Variable home("HOME", "/home/me");
    const Variable state("XDG_STATE_HOME", nullptr);
    const Variable config("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(HomeFolder(), "/home/me");
    EXPECT_EQ(StateFolder(), "/home/me/.local/state/strativo");
    EXPECT_EQ(ConfigFolder(), "/home/me/.config");
}

TEST(UserFolders, MayBeElsewhere) {
    const Variable state("XDG_STATE_HOME", "/elsewhere/state");
    const Variable config("XDG_CONFIG_HOME", "/elsewhere/config");
    EXPECT_EQ(StateFolder(), "/elsewhere/state/strativo");
    EXPECT_EQ(ConfigFolder(), "/elsewhere/config");
}

TEST(UserFolders, DoNotDependOnTheWorkingFolder) {
    const passwd* user = getpwuid(geteuid());
    if (user == nullptr)
        GTEST_SKIP() << "the system does not know this user";
    const std::string home = user->pw_dir;
    for (const char* value : {static_cast<const char*>(nullptr), "", "relative", "."}) {
        const Variable homeVariable("HOME", value);
        const Variable state("XDG_STATE_HOME", value);
        const Variable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(StateFolder(), home + "/.local/state/strativo");
        EXPECT_EQ(ConfigFolder(), home + "/.config");
    }
}

} // namespace
} // namespace strativo
