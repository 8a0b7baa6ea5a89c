#pragma once

#include "model/Project.h"
#include "text/RuntimeError.h"

#include <stdexcept>

namespace strativo::fuzz {

/// Something does not hold that always should. Nothing in the core catches it.
class BrokenPromise : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

inline void Require(bool holds, const char* promise) {
    if (!holds)
        throw BrokenPromise(promise);
}

/// What holds of a project between any two actions of its user.
void RequireInvariants(const Project& project);

/// What holds of a library just read.
void RequireInvariants(const MaterialLibrary& library);

/// The failure is one of those that the function may report by number.
void RequireNumber(const RuntimeError& error, std::initializer_list<ErrorNumber> allowed);

} // namespace strativo::fuzz
