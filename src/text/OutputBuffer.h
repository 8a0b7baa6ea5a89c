#pragma once

#include "text/Format.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <memory>
#include <string_view>

namespace strativo {

/// Accepts the bytes of a file piece by piece.
using ByteSink = std::function<void(std::string_view piece)>;

/// Collects small texts and passes them on in pieces that stay in the processor's cache. Holding
/// all bytes of a file at once would cost as much time again, for fresh memory.
class OutputBuffer {
public:
    explicit OutputBuffer(const ByteSink& taker) : sink(taker) {}
    explicit OutputBuffer(ByteSink&&) = delete; // a temporary would be gone before the first piece

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
    /// A value that rounds to zero is written without a sign, which would be lost when the file is
    /// read and written again.
    void PutNumber(double value, NumberPattern pattern) {
        MakeRoom();
        char* const start = end;
        end = strativo::PutNumber(start, value, pattern);
        if (value < 0 && std::none_of(start, end, [](char c) { return c >= '1' && c <= '9'; }))
            end = strativo::PutNumber(start, 0, pattern);
    }
    /// Passes on what is left; to be called at the end.
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
