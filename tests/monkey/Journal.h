#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

namespace strativo::monkey {

/// What happened in a run. The last events are told when the run fails, crashes or hangs, so that
/// it can be repeated.
class Journal {
public:
    Journal(unsigned runSeed, bool tellAll);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// An event is about to happen; the watchdog starts anew.
    void Event(const char* kind, const std::string& detail);
    /// The run came to a state that not every run does.
    void Reach(const std::string& state) { ++states[state]; }

    int Events() const { return events; }
    const std::map<std::string, int>& Kinds() const { return kinds; }
    const std::map<std::string, int>& States() const { return states; }

    /// Tells seed, event number, last events and what went wrong, and ends the process with 1.
    [[noreturn]] void Fail(const char* promise) const;
    /// The same for crashes and the watchdog, with nothing but what a signal handler may do.
    void TellLast(const char* reason) const;

private:
    static constexpr int kept = 40;
    static constexpr int width = 160;
    static constexpr unsigned patience = 90; ///< seconds that an event may take

    unsigned seed;
    bool verbose;
    int events = 0;
    std::array<std::array<char, width>, kept> last{};
    std::map<std::string, int> kinds;
    std::map<std::string, int> states;
};

/// Lets crashes, reports of the sanitizers and the watchdog tell the last events of the journal
/// that exists then.
void WatchForCrashes();

} // namespace strativo::monkey
