#pragma once

#include <cstdlib>
#include <string>

namespace strativo {

/// Sets a variable and puts it back at the end; null removes it.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* variable, const char* value) : name(variable) {
        const char* present = std::getenv(name);
        wasSet = present != nullptr;
        before = wasSet ? present : "";
        Set(value);
    }
    ~EnvironmentVariable() { Set(wasSet ? before.c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void Set(const char* value) const {
        if (value != nullptr)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }

    const char* name;
    bool wasSet = false;
    std::string before;
};

} // namespace strativo
