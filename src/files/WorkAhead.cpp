#include "files/WorkAhead.h"

#include <sched.h>

namespace strativo {

unsigned HelpingThreads() {
    constexpr int most = 3;
    // Not those of the machine: a container or its user may have allowed fewer.
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (sched_getaffinity(0, sizeof allowed, &allowed) != 0)
        return 0;
    return static_cast<unsigned>(std::clamp(CPU_COUNT(&allowed) - 1, 0, most));
}

} // namespace strativo
