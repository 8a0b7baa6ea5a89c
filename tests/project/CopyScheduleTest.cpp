#include "project/CopySchedule.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

using std::chrono::milliseconds;

constexpr CopySchedule::Clock::time_point start{std::chrono::hours(1)};

CopySchedule::Clock::time_point After(int ms) {
    return start + milliseconds(ms);
}

TEST(CopySchedule, WithoutAnEditNothingIsDue) {
    EXPECT_EQ(CopySchedule().Wait(start), std::nullopt);
}

TEST(CopySchedule, ACopyIsDueTwoSecondsAfterTheLastEdit) {
    CopySchedule schedule;
    schedule.Edited(start);
    EXPECT_EQ(schedule.Wait(start), milliseconds(2000));
    schedule.Edited(After(1500));
    EXPECT_EQ(schedule.Wait(After(2000)), milliseconds(1500));
    EXPECT_EQ(schedule.Wait(After(3499)), milliseconds(1));
    EXPECT_EQ(schedule.Wait(After(3500)), milliseconds(0));
    EXPECT_EQ(schedule.Wait(After(9999)), milliseconds(0));
}

TEST(CopySchedule, EditsWithoutAPauseDelayItTenSecondsAtTheMost) {
    CopySchedule schedule;
    for (int ms = 0; ms <= 9500; ms += 500)
        schedule.Edited(After(ms));
    EXPECT_EQ(schedule.Wait(After(9500)), milliseconds(500));
    EXPECT_EQ(schedule.Wait(After(10000)), milliseconds(0));
}

TEST(CopySchedule, AFractionOfAMillisecondIsWaitedForInFull) {
    CopySchedule schedule;
    schedule.Edited(start);
    EXPECT_EQ(schedule.Wait(After(1999) + std::chrono::microseconds(1)), milliseconds(1));
}

TEST(CopySchedule, AfterACopyTheNextEditIsTheFirst) {
    CopySchedule schedule;
    schedule.Edited(start);
    schedule.Settled();
    EXPECT_EQ(schedule.Wait(After(5000)), std::nullopt);
    schedule.Edited(After(9000));
    EXPECT_EQ(schedule.Wait(After(9000)), milliseconds(2000));
}

TEST(CopySchedule, TakesOtherIntervals) {
    CopySchedule schedule({milliseconds(200), milliseconds(1000)});
    schedule.Edited(start);
    EXPECT_EQ(schedule.Wait(start), milliseconds(200));
    schedule.Edited(After(950));
    EXPECT_EQ(schedule.Wait(After(950)), milliseconds(50));
}

} // namespace
} // namespace strativo
