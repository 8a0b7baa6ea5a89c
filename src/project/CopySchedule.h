#pragma once

#include <chrono>
#include <optional>

namespace strativo {

/// When work is written down: some time after the last edit, but not longer than another time
/// after the first.
struct KeepIntervals {
    std::chrono::milliseconds afterLast{2000};
    std::chrono::milliseconds afterFirst{10000};
};

/// Says when the next copy is due. It has no clock of its own: each call is told the time.
class CopySchedule {
public:
    using Clock = std::chrono::steady_clock;

    explicit CopySchedule(KeepIntervals times = {}) : intervals(times) {}

    void Edited(Clock::time_point now);
    /// Everything is written down, or there is nothing to write.
    void Settled() { first.reset(); }
    /// How long to wait for the next copy, 0 when it is due; nothing when there was no edit.
    std::optional<std::chrono::milliseconds> Wait(Clock::time_point now) const;

private:
    KeepIntervals intervals;
    std::optional<Clock::time_point> first; ///< edit since the last copy
    Clock::time_point last;                 ///< edit
};

} // namespace strativo
