#pragma once

namespace strativo {

/// Stands around the start of Qt, which ends the process with several lines and an abort
/// when there is no display: that becomes one line and status 1. Its other messages follow when
/// the start went well.
class StartMessages {
public:
    StartMessages();
    ~StartMessages();
    StartMessages(const StartMessages&) = delete;
    StartMessages& operator=(const StartMessages&) = delete;
};

} // namespace strativo
