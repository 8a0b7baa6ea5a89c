#include "ui/WorkWatch.h"

#include "ui/Text.h"

#include <cstdlib>

namespace strativo {

namespace {

/// A held key is a series of actions; looking after each one would be wasted work.
constexpr std::chrono::milliseconds breath(100);

/// Shortens the intervals a little, because an edit is noticed late and its copy must be on the
/// disk in time.
KeepIntervals SoThatItIsWrittenIn(const KeepIntervals& intervals) {
    constexpr std::chrono::milliseconds writing(100);
    return {intervals.afterLast - breath, intervals.afterFirst - breath - writing};
}

/// The intervals of the program, unless a test shortens them: milliseconds after the last edit and
/// after the first, separated by a comma.
KeepIntervals Intervals() {
    KeepIntervals intervals;
    const char* text = std::getenv("STRATIVO_KEEP_INTERVALS");
    char* comma = nullptr;
    const long last = text != nullptr ? std::strtol(text, &comma, 10) : 0;
    const long first = comma != nullptr && *comma == ',' ? std::strtol(comma + 1, nullptr, 10) : 0;
    if (last > 0 && first > 0)
        intervals = {std::chrono::milliseconds(last), std::chrono::milliseconds(first)};
    return intervals;
}

} // namespace

WorkWatch::WorkWatch(const Project& watched, QObject* parent)
    : QObject(parent), project(watched),
      keeper(RecoveryFolders(), SoThatItIsWrittenIn(Intervals())) {
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &WorkWatch::Look);
}

void WorkWatch::ActionBegins() {
    if (keeper.IsUnsettled(project))
        Look();
    keeper.EndExpectation();
}

void WorkWatch::ActionEnded() {
    // A timer that is already running is not extended.
    if (!timer.isActive() || timer.remainingTimeAsDuration() > breath)
        timer.start(breath);
}

void WorkWatch::Look() {
    if (const auto wait = keeper.Look(project, CopySchedule::Clock::now()))
        timer.start(*wait);
    Tell();
}

void WorkWatch::KeepNow() {
    keeper.KeepNow(project);
    Tell();
}

void WorkWatch::End(bool givenUp) {
    if (givenUp)
        keeper.GiveUp();
    else
        keeper.KeepNow(project);
    timer.stop();
}

void WorkWatch::Tell() {
    if (const std::string text = TextOf(keeper.TakeNotice()); !text.empty())
        emit Told(ToText(text));
}

} // namespace strativo
