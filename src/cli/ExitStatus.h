#pragma once

namespace strativo {

// The highest of several counts.
inline constexpr int exitAllWell = 0;
inline constexpr int exitFindings = 1;
inline constexpr int exitWrongUsage = 2;
inline constexpr int exitFailure = 3;
inline constexpr int exitInterrupted = 130; ///< as shells report a program that Ctrl+C ended

} // namespace strativo
