#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <vector>

namespace strativo {

/// A table of fixed size whose slots are numbered First to Last; a number outside throws
/// std::out_of_range.
template <class T, int First, int Last>
class NumberedTable {
public:
    static constexpr int first = First;
    static constexpr int last = Last;

    T& operator[](int number) { return items.at(Index(number)); }
    const T& operator[](int number) const { return items.at(Index(number)); }

    auto begin() { return items.begin(); }
    auto end() { return items.end(); }
    auto begin() const { return items.begin(); }
    auto end() const { return items.end(); }

    bool operator==(const NumberedTable&) const = default;

private:
    static std::size_t Index(int number) { return static_cast<std::size_t>(number - First); }

    std::array<T, Last - First + 1> items{};
};

/// A table that grows, with slots numbered from 1. A number outside throws std::out_of_range.
template <class T>
class NumberedList {
public:
    NumberedList() = default;
    /// A table with that many empty slots.
    explicit NumberedList(int size) : items(static_cast<std::size_t>(size)) {}

    int Size() const { return static_cast<int>(items.size()); }
    bool Has(int number) const { return number >= 1 && number <= Size(); }

    T& operator[](int number) { return items.at(Index(number)); }
    const T& operator[](int number) const { return items.at(Index(number)); }

    /// Adds an empty slot and returns its number.
    int Append() {
        items.emplace_back();
        return Size();
    }

    /// Takes memory for so many slots at once.
    void Reserve(int size) { items.reserve(static_cast<std::size_t>(size)); }

    /// Adds empty slots at the end, or drops the last ones.
    void Resize(int size) { items.resize(static_cast<std::size_t>(size)); }

    auto begin() { return items.begin(); }
    auto end() { return items.end(); }
    auto begin() const { return items.begin(); }
    auto end() const { return items.end(); }

    bool operator==(const NumberedList&) const = default;

private:
    static std::size_t Index(int number) { return static_cast<std::size_t>(number) - 1; }

    std::vector<T> items;
};

} // namespace strativo
