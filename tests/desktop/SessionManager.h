#pragma once

#include <atomic>
#include <thread>

namespace strativo {

/// The session manager of a desktop, for the programs started while it lives.
class SessionManager {
public:
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;

    /// Asks the programs to save themselves before a log-out and waits until one says that it has;
    /// false when none does in time.
    bool PrepareLogOut();
    /// Tells the programs that the log-out was cancelled.
    void CancelLogOut();

private:
    std::atomic<bool> over = false;
    std::thread server;
};

} // namespace strativo
