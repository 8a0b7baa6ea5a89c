#include "edit/HeldKeys.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

constexpr int del = 1;
constexpr int enter = 2;

TEST(HeldKeysTest, AFirstPressIsReal) {
    EXPECT_FALSE(HeldKeys().IsRepeat(del, 500, false));
    EXPECT_FALSE(HeldKeys().IsRepeat(del, 0, false));
}

TEST(HeldKeysTest, APressAtTheTimeOfItsKeysReleaseIsARepeatThatTheToolkitMissed) {
    HeldKeys keys;
    keys.Released(del, 500);
    EXPECT_TRUE(keys.IsRepeat(del, 500, false));
    EXPECT_TRUE(keys.IsRepeat(del, 500, false)) << "however often it is asked";
}

TEST(HeldKeysTest, APressAfterTheReleaseIsReal) {
    HeldKeys keys;
    keys.Released(del, 500);
    EXPECT_FALSE(keys.IsRepeat(del, 501, false));
}

TEST(HeldKeysTest, AnotherKeyAtTheSameTimeIsReal) {
    HeldKeys keys;
    keys.Released(del, 500);
    EXPECT_FALSE(keys.IsRepeat(enter, 500, false));
}

TEST(HeldKeysTest, WhatTheToolkitCallsARepeatIsOne) {
    HeldKeys keys;
    EXPECT_TRUE(keys.IsRepeat(del, 0, true));
    keys.Released(del, 500);
    EXPECT_TRUE(keys.IsRepeat(del, 540, true));
}

TEST(HeldKeysTest, UnknownTimesTellNothing) {
    HeldKeys keys;
    keys.Released(del, 0);
    EXPECT_FALSE(keys.IsRepeat(del, 0, false));
}

TEST(HeldKeysTest, AKeyHeldForTenRepeatsIsPressedOnce) {
    HeldKeys keys;
    int presses = keys.IsRepeat(del, 1000, false) ? 0 : 1;
    for (std::uint64_t time = 1660; time < 1960; time += 30) {
        keys.Released(del, time);
        presses += keys.IsRepeat(del, time, false) ? 0 : 1;
    }
    keys.Released(del, 1985);
    EXPECT_EQ(presses, 1);
    EXPECT_FALSE(keys.IsRepeat(del, 2100, false)) << "the next press of the user";
}

} // namespace
} // namespace strativo
