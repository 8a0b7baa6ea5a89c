#pragma once

namespace strativo {

// Where several files have different statuses, the program's is the highest.
inline constexpr int exitAllWell = 0;
inline constexpr int exitFindings = 1; ///< `check` found an error, or `export` left something out
inline constexpr int exitWrongUsage = 2;
inline constexpr int exitFailure = 3;       ///< a file could not be read or written, or was refused
inline constexpr int exitInterrupted = 130; ///< as shells report a program that Ctrl+C ended

} // namespace strativo
