#include "exchange/JsonReader.h"

#include "text/Numbers.h"
#include "text/RuntimeError.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace strativo {

namespace {

bool FitsDouble(std::string_view number) {
    try {
        LeadingNumber(number);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// Number of letters to change, add or leave out to get from one word to the other, ignoring case.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = diagonal + (Lower(a[i - 1]) == Lower(b[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string Described(JsonValue value) {
    switch (value.Kind()) {
    case JsonKind::array:
        return "an array";
    case JsonKind::object:
        return "an object";
    case JsonKind::string:
        return "the string " + Quoted(value.Text());
    case JsonKind::number:
        return "the number " + Excerpt(value.Raw());
    default:
        return std::string(value.Raw());
    }
}

std::string_view NearestName(std::string_view name, const std::vector<std::string_view>& known) {
    constexpr std::size_t longest = 60;
    std::string_view nearest;
    std::size_t best = 3; // words more than two letters apart are not alike
    for (const std::string_view candidate : known) {
        if (name.size() > longest || 2 * best > candidate.size() + 2)
            continue;
        const std::size_t distance = Distance(name, candidate);
        if (distance < best) {
            best = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

bool JsonReader::Check(JsonValue value, JsonKind kind, const char* what) {
    if (value.Kind() != kind) {
        FailExpecting("wrong-type", value, what);
        return false;
    }
    if (kind == JsonKind::number && !FitsDouble(value.Raw())) {
        FailExpecting("number-range", value, std::string(what) + " within a 64-bit float");
        return false;
    }
    expected = what;
    return true;
}

void JsonReader::Fail(const char* rule, JsonValue value, const std::string& text) {
    faults.Add(value.Offset(), {rule, text, Pointer(), std::nullopt});
}

void JsonReader::FailExpecting(const char* rule, JsonValue value, const std::string& what) {
    Fail(rule, value, "expected " + what + ", got " + Described(value));
}

void JsonReader::FailUnknown(JsonValue key, const std::string& name,
                             const std::vector<std::string_view>& known) {
    const std::string_view nearest = NearestName(name, known);
    const std::string hint = nearest.empty() ? "" : "; is " + Quoted(nearest) + " meant?";
    faults.Add(key.Offset(), {"unknown-key", "the key " + Quoted(name) + " is not known" + hint,
                              Pointer() + PointerPart(name), std::nullopt});
}

void JsonReader::FailMissing(JsonValue object, std::string_view key, const char* what) {
    faults.Add(object.Offset() + object.Raw().size(),
               {"missing-key", std::string("expected ") + what + ", but the key is missing",
                Pointer() + PointerPart(key), std::nullopt});
}

std::string JsonReader::Pointer() const {
    std::string pointer;
    for (const auto& step : path) {
        if (const auto* const place = std::get_if<std::size_t>(&step))
            pointer += "/" + std::to_string(*place);
        else
            pointer += PointerPart(std::get<std::string_view>(step));
    }
    return pointer;
}

bool JsonReader::Has(JsonValue object, std::string_view key) {
    bool found = false;
    object.ForEachMember([&](JsonValue name, JsonValue) { found = found || name.Text() == key; });
    return found;
}

double JsonReader::Number(JsonValue number) {
    return LeadingNumber(number.Raw());
}

std::optional<int> JsonReader::Integer(JsonValue number, int lowest, int highest) {
    const double value = Number(number);
    if (value != std::floor(value)) {
        FailExpecting("not-integer", number, std::string(expected) + ", a whole number");
        return std::nullopt;
    }
    if (value < lowest || value > highest) {
        FailExpecting("number-range", number,
                      std::string(expected) + " from " + std::to_string(lowest) + " to "
                          + std::to_string(highest));
        return std::nullopt;
    }
    return static_cast<int>(value);
}

std::optional<float> JsonReader::Single(JsonValue number) {
    // Halfway between the largest float and the next power of two; from here on, a value would
    // round to infinity.
    constexpr double limit = 3.4028235677973366e38;
    constexpr double largest = std::numeric_limits<float>::max();
    const double value = Number(number);
    if (!(std::abs(value) < limit)) {
        FailExpecting("number-range", number, std::string(expected) + " within a 32-bit float");
        return std::nullopt;
    }
    return static_cast<float>(std::clamp(value, -largest, largest));
}

std::optional<std::string> JsonReader::Bytes(JsonValue string) {
    const std::string text = string.Text();
    std::string bytes;
    for (std::string_view rest = text; !rest.empty();) {
        const char32_t code = TakeCodePoint(rest).value_or(0);
        const std::optional<char> byte = ByteOf(code);
        if (!byte) {
            Fail("unstorable-character", string,
                 "expected " + std::string(expected) + " in Windows-1252, which has no "
                     + CodePointName(code) + ", got " + Described(string));
            return std::nullopt;
        }
        bytes += *byte;
    }
    return bytes;
}

} // namespace strativo
