#pragma once

#include <stdexcept>
#include <string>

namespace strativo {

/// The numbered failures of files and of their content, as messages show them.
enum class ErrorNumber {
    invalidArgument = 5,
    overflow = 6,
    subscriptOutOfRange = 9,
    fileNotFound = 53,
    deviceIo = 57,
    diskFull = 61,
    tooManyFiles = 67,
    deviceUnavailable = 68,
    permissionDenied = 70,
    pathFileAccess = 75,
    pathNotFound = 76,
};

/// A failure that is described by its number.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(ErrorNumber errorNumber)
        : std::runtime_error("Run-time error " + std::to_string(static_cast<int>(errorNumber))),
          number(errorNumber) {}

    ErrorNumber Number() const { return number; }

private:
    ErrorNumber number;
};

} // namespace strativo
