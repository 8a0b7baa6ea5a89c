#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <functional>

namespace strativo {

/// What every window knows of the program.
struct Program {
    Project& project;
    Prompts& prompts;
    /// Runs a user's action: turns a failure into a message, ends the program if the action asked
    /// for it, and then brings the windows and the status bar up to date.
    std::function<void(const std::function<void()>&)> perform;
};

} // namespace strativo
