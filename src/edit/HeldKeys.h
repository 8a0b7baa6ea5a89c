#pragma once

#include <cstdint>

namespace strativo {

/// Tells the presses of a user from those that the window system makes of a key held down. What
/// Qt says of a release depends on what lies in its queue at that moment, and on a busy
/// machine a key held down looks like one that is pressed again and again; but a release that is
/// none, and the press after it, were made at the same time.
class HeldKeys {
public:
    /// Takes note of a key's release, also of one that is said to be a repeat's. Times are the
    /// window system's, in milliseconds; 0 is an unknown one. Taking note twice changes nothing.
    void Released(int key, std::uint64_t time) {
        releasedKey = key;
        releasedAt = time;
    }

    /// Whether the press only repeats a key that is held down: Qt says so, or it carries
    /// the time of the same key's release right before it.
    bool IsRepeat(int key, std::uint64_t time, bool saidToRepeat) const {
        return saidToRepeat || (time != 0 && key == releasedKey && time == releasedAt);
    }

private:
    int releasedKey = 0;
    std::uint64_t releasedAt = 0;
};

} // namespace strativo
