#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <functional>

namespace strativo {

/// What every window is given of the program.
struct Program {
    Project& project;
    Prompts& prompts;
    /// Runs a user's action: a failure becomes a message, the program's end is carried out, and
    /// the status bar is brought up to date afterwards.
    std::function<void(const std::function<void()>&)> perform;
};

} // namespace strativo
