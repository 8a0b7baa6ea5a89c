#include "text/Format.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace strativo {
namespace {

// A slow formatter that knows nothing of the fast one: it rounds the shortest decimal as a pupil
// does, on a string of digits.

struct Digits {
    std::string whole;
    std::string decimals;
};

Digits ShortestDigits(double magnitude) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                   std::chars_format::scientific)
                         .ptr;
    const std::string number(text.data(), end);
    const auto e = number.find('e');
    const int exponent = std::stoi(number.substr(e + 1));
    std::string digits = number.substr(0, 1) + (e > 1 ? number.substr(2, e - 2) : "");
    int point = exponent + 1;
    for (; point < 0; ++point)
        digits.insert(0, "0");
    while (static_cast<int>(digits.size()) < point)
        digits += '0';
    const auto split = static_cast<std::size_t>(point);
    return {digits.substr(0, split), digits.substr(split)};
}

/// Adds one to a string of digits.
std::string Incremented(std::string digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return digits;
        }
        digits[i] = '0';
    }
    return "1" + digits;
}

std::string SlowFormat(double value, int minWhole, int minDecimals, int maxDecimals) {
    const auto places = static_cast<std::size_t>(maxDecimals);
    Digits number = ShortestDigits(std::abs(value));
    number.decimals.resize(std::max(number.decimals.size(), places + 1), '0');
    const bool up = number.decimals[places] >= '5';
    std::string all = number.whole + number.decimals.substr(0, places);
    if (up)
        all = Incremented(all);
    std::string whole = all.substr(0, all.size() - places);
    std::string decimals = all.substr(all.size() - places);
    while (static_cast<int>(decimals.size()) > minDecimals && decimals.back() == '0')
        decimals.pop_back();
    whole.erase(0, whole.find_first_not_of('0'));
    while (static_cast<int>(whole.size()) < minWhole)
        whole.insert(0, "0");
    return (value < 0 ? "-" : "") + whole + (maxDecimals > 0 ? "." : "") + decimals;
}

struct ReferencePattern {
    const char* pattern;
    int minWhole;
    int minDecimals;
    int maxDecimals;
};

constexpr ReferencePattern patterns[] = {
    {"#0.000", 1, 3, 3}, {"#0.000000", 1, 6, 6}, {"0.00", 1, 2, 2},
    {"0.0##", 1, 1, 3},  {"0.0000", 1, 4, 4},    {"##.00", 0, 2, 2},
    {"##.0", 0, 1, 1},   {"#####", 0, 0, 0},     {"#0", 1, 0, 0},
};

class FormatNumberReference : public testing::Test {
protected:
    void ExpectSame(double value) const {
        for (const ReferencePattern& p : patterns)
            ASSERT_EQ(FormatNumber(value, p.pattern),
                      SlowFormat(value, p.minWhole, p.minDecimals, p.maxDecimals))
                << p.pattern << " of " << std::hexfloat << value;
    }
    /// The value and its neighbours.
    void ExpectSameAround(double value) const {
        ExpectSame(value);
        ExpectSame(std::nextafter(value, 1e300));
        ExpectSame(std::nextafter(value, -1e300));
    }

    std::mt19937_64 random{20240229};
};

TEST_F(FormatNumberReference, AgreesOnHalvesOfEveryLastDigit) {
    std::uniform_int_distribution<int> numerators(0, 40'000'000);
    for (const double unit : {1.0, 1e1, 1e2, 1e3, 1e4, 1e6})
        for (int i = 0; i < 200 && !HasFatalFailure(); ++i)
            ExpectSameAround((numerators(random) + 0.5) / unit);
}

TEST_F(FormatNumberReference, AgreesJustBesideHalves) {
    std::uniform_int_distribution<int> numerators(0, 3000);
    std::uniform_real_distribution<double> exponents(-17, -3);
    for (int i = 0; i < 600 && !HasFatalFailure(); ++i) {
        const double half = (numerators(random) + 0.5) / 1000;
        const double distance = std::pow(10, exponents(random));
        ExpectSame(half + distance);
        ExpectSame(half - distance);
    }
}

TEST_F(FormatNumberReference, AgreesOnNumbersOfEveryMagnitude) {
    std::uniform_real_distribution<double> exponents(-12, 30);
    for (int i = 0; i < 600 && !HasFatalFailure(); ++i)
        ExpectSame((i % 2 == 0 ? 1 : -1) * std::pow(10, exponents(random)));
}

TEST_F(FormatNumberReference, AgreesOnWidenedFloats) {
    std::uniform_real_distribution<float> fractions(0, 2);
    for (int i = 0; i < 600 && !HasFatalFailure(); ++i)
        ExpectSame(fractions(random));
}

TEST_F(FormatNumberReference, AgreesOnAnyBits) {
    for (int i = 0; i < 200 && !HasFatalFailure(); ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value))
            ExpectSame(value);
    }
}

TEST_F(FormatNumberReference, AgreesWhereTheFastWayEnds) {
    for (const double value :
         {1e9, 1e8, 1e7, 1e6, 1e5, 1e3, 999.9999995, 999999.9995, 4294967295.5})
        ExpectSameAround(value);
}

} // namespace
} // namespace strativo
