#pragma once

#include <cstddef>
#include <pthread.h>

namespace strativo {

/// As long as it lives, no thread can be started, as where a user has as many as allowed: each
/// would have a stack larger than any memory.
class NoThreads {
public:
    NoThreads() {
        pthread_getattr_default_np(&before);
        pthread_attr_t huge;
        pthread_getattr_default_np(&huge);
        pthread_attr_setstacksize(&huge, std::size_t{1} << 47);
        pthread_setattr_default_np(&huge);
        pthread_attr_destroy(&huge);
    }
    ~NoThreads() {
        pthread_setattr_default_np(&before);
        pthread_attr_destroy(&before);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

private:
    pthread_attr_t before{};
};

} // namespace strativo
