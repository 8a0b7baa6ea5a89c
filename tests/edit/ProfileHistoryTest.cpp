#include "edit/ProfileHistory.h"

#include "edit/GlassTypes.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace strativo {
namespace {

class ProfileHistoryTest : public testing::Test {
protected:
    ProfileHistoryTest() {
        AddGlassType(project, "CLEAR");
        profile = OpenProfile(project);
    }
    void Set(int column, double value, int gesture) {
        project.selectedProfileColumn = column;
        history.Begin(project, profile);
        TypeValue(project, profile, std::to_string(value));
        history.End(profile, gesture);
    }

    Project project;
    GlassProfile profile;
    ProfileHistory history;
};

TEST_F(ProfileHistoryTest, HasNoStepWithoutAChangedValue) {
    Set(3, 0, 1);
    EXPECT_FALSE(history.Undo(project, profile));
}

TEST_F(ProfileHistoryTest, TakesTheMovesOfAGestureForOneStep) {
    for (const double value : {0.2, 0.4, 0.6})
        Set(3, value, 1);
    Set(3, 0.8, 2);
    EXPECT_TRUE(history.Undo(project, profile));
    EXPECT_EQ(profile.transmission[3], 0.6F);
    EXPECT_TRUE(history.Undo(project, profile));
    EXPECT_EQ(profile.transmission[3], 0);
    EXPECT_FALSE(history.Undo(project, profile));
    EXPECT_TRUE(history.Redo(project, profile));
    EXPECT_EQ(profile.transmission[3], 0.6F);
}

TEST_F(ProfileHistoryTest, BeginsAStepAnewInAGestureThatWasTakenBack) {
    Set(3, 0.2, 1);
    history.Undo(project, profile);
    Set(3, 0.4, 1);
    EXPECT_FALSE(history.Redo(project, profile)) << "something else was done";
    EXPECT_TRUE(history.Undo(project, profile));
    EXPECT_EQ(profile.transmission[3], 0);
}

TEST_F(ProfileHistoryTest, LeavesTheFlagAsItWas) {
    project.changed = false;
    Set(3, 0.2, 1);
    EXPECT_TRUE(project.changed);
    history.Undo(project, profile);
    EXPECT_FALSE(project.changed);
    history.Redo(project, profile);
    EXPECT_TRUE(project.changed);
}

TEST_F(ProfileHistoryTest, UndoneToTheStartGivesTheStart) {
    std::mt19937 dice(1);
    std::vector<AngularValues> states;
    for (int gesture = 1; gesture <= 200; ++gesture) {
        const AngularValues before = profile.transmission;
        Set(1 + static_cast<int>(dice() % profileColumns), static_cast<int>(dice() % 4) / 4.0,
            gesture);
        if (profile.transmission != before)
            states.push_back(before);
    }
    const AngularValues end = profile.transmission;
    for (auto state = states.rbegin(); state != states.rend(); ++state) {
        ASSERT_TRUE(history.Undo(project, profile));
        ASSERT_EQ(profile.transmission, *state);
    }
    EXPECT_FALSE(history.Undo(project, profile));
    while (history.Redo(project, profile)) {
    }
    EXPECT_EQ(profile.transmission, end);
}

} // namespace
} // namespace strativo
