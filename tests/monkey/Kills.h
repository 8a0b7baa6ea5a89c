#pragma once

#include <functional>
#include <string>

namespace strativo::monkey {

struct KillOptions {
    int kills = 0;
    int afterLast = 200;   ///< ms
    int afterFirst = 1000; ///< ms; also the most that may be lost
    unsigned seed = 1;
};

/// Lets random users work, each in a process that is killed at a random time, and looks for what
/// is left of their work. The user is handed a seed, a folder for his files and the path of his
/// log. A user whom one of his own checks ends is followed by another. Returns the number of kills
/// that cost too much, of copies that cannot be read and of users who ended by themselves.
int KillRandomly(const KillOptions& options,
                 const std::function<void(unsigned seed, const std::string& folder)>& user);

/// The log of the user who works in a folder.
std::string LogIn(const std::string& folder);

} // namespace strativo::monkey
