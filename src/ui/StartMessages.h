#pragma once

namespace strativo {

/// Lives while Qt starts. Without a display, Qt ends the process with several lines and an abort;
/// this turns that into one line and status 1. Other messages of Qt are printed after a successful
/// start.
class StartMessages {
public:
    StartMessages();
    ~StartMessages();
    StartMessages(const StartMessages&) = delete;
    StartMessages& operator=(const StartMessages&) = delete;
};

} // namespace strativo
