#pragma once

#include "cli/CommandTable.h"

#include <string>

namespace strativo {

/// Why the options of a command do not go together or have unknown values; empty if nothing is
/// wrong.
std::string OptionFault(const Invocation& call, const Command& command);

/// The number of files that the call works on at a time; 0 for an invalid text.
int JobsOf(const Invocation& call);

} // namespace strativo
