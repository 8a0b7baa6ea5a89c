#pragma once

#include <string>

namespace strativo {
class UValueMDI;
}

namespace strativo::monkey {

class Journal;

/// What must be true of the windows between any two actions of the user; throws
/// fuzz::BrokenPromise.
void RequireWindows(UValueMDI& program);

/// The windows of the constructions show what the project holds.
void RequireConstructionWindows(UValueMDI& program);

/// A description for finding the cause: the active window, the one with the focus, and the
/// construction.
std::string WhereThingsAre(UValueMDI& program);

/// From now on each menu that opens is looked at: what it offers fits the project.
void WatchMenus(UValueMDI& program, Journal& journal);

} // namespace strativo::monkey
