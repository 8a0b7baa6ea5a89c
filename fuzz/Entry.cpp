#include "fuzz/Targets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    strativo::fuzz::FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
    return 0;
}
