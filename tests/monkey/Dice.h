#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace strativo::monkey {

/// Random numbers that are the same for the same seed, whatever standard library they are built
/// with.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : random(seed) {}

    /// From 0 to below the limit; 0 for a limit below 1.
    int Below(int limit) {
        return limit < 1
                   ? 0
                   : static_cast<int>(random() % static_cast<std::mt19937::result_type>(limit));
    }
    int Between(int least, int most) { return least + Below(most - least + 1); }
    bool OneIn(int times) { return Below(times) == 0; }

    /// An element of a container that is not empty.
    template <class Container>
    const auto& Pick(const Container& from) {
        return *std::next(std::begin(from), Below(static_cast<int>(std::size(from))));
    }

private:
    std::mt19937 random;
};

} // namespace strativo::monkey
