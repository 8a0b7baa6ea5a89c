#pragma once

#include "text/Format.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <memory>
#include <string_view>

namespace strativo {

/// Takes the bytes of a file piece by piece.
using ByteSink = std::function<void(std::string_view piece)>;

/// Gathers small texts and hands them on in large pieces. A file is written through it in pieces
/// that stay in the processor's cache; all of its bytes at once would cost as much again in fresh
/// memory.
class OutputBuffer {
public:
    explicit OutputBuffer(const ByteSink& taker) : sink(taker) {}
    explicit OutputBuffer(ByteSink&&) = delete; // would be gone before the first piece

    void Put(std::string_view text) {
        if (text.size() > Room())
            HandOn(text);
        else
            end += text.copy(end, text.size());
    }
    void PutInteger(int value) {
        MakeRoom();
        end = std::to_chars(end, end + longestNumber, value).ptr;
    }
    /// A value that rounds to zero has no sign: it would be gone when the file is written again.
    void PutNumber(double value, NumberPattern pattern) {
        MakeRoom();
        char* const start = end;
        end = strativo::PutNumber(start, value, pattern);
        if (value < 0 && std::none_of(start, end, [](char c) { return c >= '1' && c <= '9'; }))
            end = strativo::PutNumber(start, 0, pattern);
    }
    /// Hands on what is left; to be called at the end.
    void Flush();

private:
    static constexpr std::size_t size = 1 << 16;

    std::size_t Room() const { return static_cast<std::size_t>(bytes.get() + size - end); }
    void MakeRoom() {
        if (Room() < longestNumber)
            Flush();
    }
    void HandOn(std::string_view text);

    const ByteSink& sink;
    std::unique_ptr<char[]> bytes{new char[size]};
    char* end = bytes.get();
};

} // namespace strativo
