#pragma once

#include <chrono>
#include <optional>

namespace strativo {

/// How soon work is copied to the disk: this long after the last edit, but no later than that long
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
    /// To be called when everything has been written or there is nothing to write.
    void Settled() { first.reset(); }
    /// The time until the next copy is due; 0 when it is due now, nothing when there was no edit.
    std::optional<std::chrono::milliseconds> Wait(Clock::time_point now) const;

private:
    KeepIntervals intervals;
    std::optional<Clock::time_point> first; ///< first edit since the last copy
    Clock::time_point last;                 ///< edit
};

} // namespace strativo
