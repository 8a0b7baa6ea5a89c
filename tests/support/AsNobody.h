#pragma once

#include <stdexcept>
#include <unistd.h>

namespace strativo {

/// Runs the action with the rights of a user who owns nothing, since an administrator may read and
/// write everything. Where the tests already run as an ordinary user it just runs.
template <class Action>
void AsNobody(Action action) {
    constexpr uid_t nobody = 65534;
    if (geteuid() != 0) {
        action();
        return;
    }
    if (setegid(nobody) != 0 || seteuid(nobody) != 0)
        throw std::runtime_error("cannot become another user");
    action();
    if (seteuid(0) != 0 || setegid(0) != 0)
        throw std::runtime_error("cannot become the administrator again");
}

} // namespace strativo
