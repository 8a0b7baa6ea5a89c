#pragma once

#include "cli/CommandTable.h"

#include <string>

namespace strativo {

/// What is wrong with options that a command knows but that do not go together, or that have texts
/// it does not know; empty when nothing is.
std::string OptionFault(const Invocation& call, const Command& command);

/// Number of files that the call works on at a time; 0 for a text that says none.
int JobsOf(const Invocation& call);

} // namespace strativo
