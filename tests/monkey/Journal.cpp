#include "Journal.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <unistd.h>

// Present only in a program built with the sanitizers.
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace strativo::monkey {

namespace {

const Journal* current = nullptr;

void Tell(const char* text) {
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text, std::strlen(text));
}

void TellDeath(const char* reason) {
    if (current != nullptr)
        current->TellLast(reason);
    current = nullptr;
}

void HandleSignal(int number) {
    TellDeath(number == SIGALRM ? "hangs" : "crashed");
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

} // namespace

Journal::Journal(unsigned runSeed, bool tellAll) : seed(runSeed), verbose(tellAll) {
    current = this;
    alarm(patience);
}

Journal::~Journal() {
    alarm(0);
    current = nullptr;
}

void Journal::Event(const char* kind, const std::string& detail) {
    auto& line = last[static_cast<std::size_t>(events % kept)];
    ++events;
    std::snprintf(line.data(), line.size(), "%7d %-16s %.120s\n", events, kind, detail.c_str());
    ++kinds[kind];
    if (verbose)
        std::cout << line.data() << std::flush;
    alarm(patience);
}

void Journal::TellLast(const char* reason) const {
    std::array<char, width> head{};
    std::snprintf(head.data(), head.size(),
                  "\nwindow-monkey: seed %u, event %d: %.100s\nThe last events:\n", seed, events,
                  reason);
    Tell(head.data());
    for (int event = std::max(0, events - kept); event < events; ++event)
        Tell(last[static_cast<std::size_t>(event % kept)].data());
    std::snprintf(head.data(), head.size(), "Again: window-monkey --seed %u --events %d\n", seed,
                  events + 1);
    Tell(head.data());
}

void Journal::Fail(const char* promise) const {
    std::cout << std::flush;
    TellLast(promise);
    std::_Exit(1);
}

void WatchForCrashes() {
    std::signal(SIGALRM, HandleSignal);
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback([] { TellDeath("stopped by a sanitizer"); });
        return;
    }
    for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
        std::signal(number, HandleSignal);
}

} // namespace strativo::monkey
