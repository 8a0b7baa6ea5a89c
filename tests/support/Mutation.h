#pragma once

#include <array>
#include <random>
#include <string>

namespace strativo {

/// Damages texts at random, the same way for the same seed.
class Mutation {
public:
    explicit Mutation(unsigned seed) : random(seed) {}

    std::string Of(std::string text) {
        for (std::size_t changes = 1 + Below(6); changes > 0; --changes)
            Change(text);
        return text;
    }

private:
    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    }

    void Change(std::string& text) {
        const std::size_t position = Below(text.size() + 1);
        switch (Below(6)) {
        case 0:
            text.insert(position, 1, static_cast<char>(Below(256)));
            break;
        case 1:
            text.insert(position, tokens[Below(tokens.size())]);
            break;
        case 2:
            text.erase(position, Below(40));
            break;
        case 3:
            text.insert(position, text.substr(Below(text.size() + 1), Below(200)));
            break;
        case 4:
            text.resize(Below(50) == 0 ? position : text.size());
            break;
        default:
            if (position < text.size())
                text[position] = static_cast<char>(Below(256));
        }
    }

    static constexpr std::array tokens = {"!EOF",
                                          "!CONSTRUCTION '",
                                          "!TYPE TRANSPARENT",
                                          "!END",
                                          "!WINDOW = '",
                                          "!WINDOW 2D = '",
                                          "!TRANS",
                                          "!ABSORP",
                                          "!DIFFU",
                                          "@",
                                          "'",
                                          "*",
                                          "\n",
                                          "\r",
                                          "\x1a",
                                          "1e999",
                                          "-1e39",
                                          "40000",
                                          "nan",
                                          "0x10",
                                          " ",
                                          ",",
                                          "\"",
                                          "-3 ",
                                          "_ =",
                                          " }",
                                          "\xe9",
                                          "-999",
                                          "1e",
                                          "."};

    std::mt19937 random;
};

} // namespace strativo
