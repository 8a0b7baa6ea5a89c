#include "text/Lines.h"

#include "text/RuntimeError.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace strativo {

namespace {

constexpr char endOfFileMark = 26;

/// Whether any of the eight bytes is a control character up to the end-of-file mark (26): only for
/// those does the subtraction set the highest bit where it was clear before.
bool HasControl(std::uint64_t bytes) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    return ((bytes - ones * (endOfFileMark + 1)) & ~bytes & (ones << 7)) != 0;
}

std::uint64_t EightBytes(const char* from) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

/// Whether a line may need more than trimming at its ends. Checks eight characters at a time,
/// because every character of a file passes through here.
bool HasControls(std::string_view line) {
    constexpr std::size_t step = 8;
    if (line.size() < step)
        return std::any_of(line.begin(), line.end(), [](char c) {
            return static_cast<unsigned char>(c) <= static_cast<unsigned char>(endOfFileMark);
        });
    for (std::size_t at = 0; at + step < line.size(); at += step)
        if (HasControl(EightBytes(line.data() + at)))
            return true;
    return HasControl(EightBytes(line.data() + line.size() - step));
}

std::string_view WithoutLeadingBlanks(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(' '), line.size()));
}

} // namespace

std::string_view LineReader::Next() {
    const auto end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return line;
}

std::string_view CleanLine(std::string_view line, std::string& scratch) {
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (!HasControls(line))
        return WithoutLeadingBlanks(line);
    scratch.clear();
    for (const char c : line.substr(0, line.find('\n')))
        if (c != '\r' && c != endOfFileMark)
            scratch += c == '\t' ? ' ' : c;
    return WithoutLeadingBlanks(scratch);
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string_view QuotedText(std::string_view line) {
    const auto open = line.find('\'');
    const auto close = open == std::string_view::npos ? open : line.find('\'', open + 1);
    if (close == std::string_view::npos)
        throw RuntimeError(ErrorNumber::invalidArgument);
    return line.substr(open + 1, close - open - 1);
}

void PieceReader::SkipBlanks() {
    while (position < text.size() && (text[position] == ' ' || text[position] == '\t'))
        ++position;
}

void PieceReader::SkipBlanksAndControls() {
    while (position < text.size() && static_cast<unsigned char>(text[position]) < 33)
        ++position;
}

std::string_view PieceReader::PieceBeforeBlank() {
    const std::string_view piece = Piece();
    if (position == text.size())
        throw RuntimeError(ErrorNumber::invalidArgument);
    return piece;
}

std::string_view PieceReader::Piece() {
    const std::size_t start = position;
    while (position < text.size() && text[position] != ' ')
        ++position;
    return text.substr(start, position - start);
}

} // namespace strativo
