#include "ui/WorkWatch.h"

#include "ui/Text.h"

#include <cstdlib>

namespace strativo {

namespace {

/// Keys held down are one action after the other; looking at each would be work for nothing.
constexpr std::chrono::milliseconds breath(100);

/// An edit is noticed a breath late, and its copy is to lie on the disk when the time is up.
KeepIntervals SoThatItIsWrittenIn(const KeepIntervals& intervals) {
    constexpr std::chrono::milliseconds writing(100);
    return {intervals.afterLast - breath, intervals.afterFirst - breath - writing};
}

/// Those of the program, unless a test shortens them: milliseconds after the last edit and after
/// the first, with a comma between.
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
    // A time that is running already is not put off.
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
