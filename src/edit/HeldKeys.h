#pragma once

#include <cstdint>

namespace strativo {

/// Tells a user's key presses from the repeats of a key held down. Whether Qt marks a release as a
/// repeat depends on what is in its queue at that moment, so on a busy machine a held key can look
/// like one pressed over and over. A repeat's release and the press after it carry the same time,
/// which gives them away.
class HeldKeys {
public:
    /// Records the release of a key, whether or not it is marked as a repeat. Times are the window
    /// system's, in milliseconds; 0 stands for an unknown time. Recording a release twice is
    /// harmless.
    void Released(int key, std::uint64_t time) {
        releasedKey = key;
        releasedAt = time;
    }

    /// Whether the press only repeats a key that is held down: either Qt says so, or it has the
    /// same time as the release of that key just before it.
    bool IsRepeat(int key, std::uint64_t time, bool saidToRepeat) const {
        return saidToRepeat || (time != 0 && key == releasedKey && time == releasedAt);
    }

private:
    int releasedKey = 0;
    std::uint64_t releasedAt = 0;
};

} // namespace strativo
