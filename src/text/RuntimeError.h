#pragma once

#include <new>
#include <stdexcept>
#include <string>

namespace strativo {

/// The numbered failures of files and of their content, as messages show them.
enum class ErrorNumber {
    invalidArgument = 5,
    overflow = 6,
    outOfMemory = 7,
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

/// The text for a failure that has no message of its own.
inline std::string FailureText(const std::exception& error) {
    const bool noMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr
                          || dynamic_cast<const std::length_error*>(&error) != nullptr;
    return noMemory ? "There is not enough memory for that" : error.what();
}

} // namespace strativo
