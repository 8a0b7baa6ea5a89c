#include "benchmarks/ConstructionFileGenerator.h"

#include "calc/CavityTypes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <random>

namespace strativo {

namespace {

constexpr std::array kinds = {"BRICK", "BLOCK",   "INSULATION", "PLASTER", "TIMBER",
                              "STONE", "CERAMIC", "METAL",      "BOARD",   "GLASS"};
constexpr std::array grades = {"LIGHT",  "MEDIUM", "HEAVY", "OUTER",  "INNER",
                               "COARSE", "FINE",   "DRY",   "SEALED", "RECYCLED"};
constexpr std::array uses = {"Outer wall", "Inner wall", "Roof", "Ground floor", "Ceiling"};
constexpr std::array millimetres = {4, 6, 10, 13, 18, 25, 50, 75, 100, 115, 150, 200, 240};
constexpr std::array cavities = {-1, -1, -1, -2, -3, -5, -6, -11};

constexpr int materialCount = 93;
constexpr int glassColumns = 11;
constexpr int glassRows2D = 19;

int MaterialCode(int material) {
    return 100 + 5 * material;
}

std::string MaterialName(int material) {
    const auto number = static_cast<std::size_t>(material);
    return std::string(kinds[number % kinds.size()]) + ' ' + grades[number / kinds.size()];
}

template <class... Values>
void Append(std::string& out, const char* format, Values... values) {
    std::array<char, 200> line{};
    const int length = std::snprintf(line.data(), line.size(), format, values...);
    out.append(line.data(), static_cast<std::size_t>(length));
}

/// The glass value with one to three decimals.
void AppendGlassValue(std::string& out, double value) {
    Append(out, "%.3f", value);
    for (int digit = 0; digit < 2 && out.back() == '0'; ++digit)
        out.pop_back();
}

class Generator {
public:
    explicit Generator(const GeneratedFile& file) : content(file), random(file.seed) {}

    std::string Run() {
        AppendHead();
        int number = 0;
        while (number < content.constructions || Size() < content.bytes) {
            ++number;
            AppendConstruction(number);
            if (number % 10 == 0)
                AppendGlassType(number / 10);
            if (number % 200 == 0)
                AppendGlassType2D(number / 200);
        }
        return constructions + glassTypes + glassTypes2D;
    }

private:
    std::size_t Size() const {
        return constructions.size() + glassTypes.size() + glassTypes2D.size();
    }

    // Not a standard distribution: those differ between libraries.
    int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    bool OneIn(int count) { return Below(count) == 0; }

    template <class Table>
    auto Pick(const Table& table) {
        return table[static_cast<std::size_t>(Below(static_cast<int>(table.size())))];
    }

    void AppendHead() {
        if (content.comments)
            constructions += "Generated * a file for measuring, nobody's house\r\n";
        constructions += "!MATERIALS FILE = '" + content.library + "'\r\n\r\n";
    }

    void AppendConstruction(int number) {
        const bool transparent = number % 10 == 0;
        Append(constructions, "!CONSTRUCTION '%s %d'", transparent ? "Window" : Pick(uses), number);
        if (content.comments && OneIn(5))
            Append(constructions, " * drawing %d, sheet %d", 1 + Below(900), 1 + Below(20));
        constructions += transparent ? "\r\n!TYPE TRANSPARENT\r\n" : "\r\n!TYPE OPAQUE\r\n";
        if (content.comments && OneIn(10))
            constructions += "* not kept: a line that is only a comment\r\n";
        constructions += "!PARTS\r\n";
        for (int slot = 1; slot <= content.layers; ++slot)
            AppendLayer(slot, transparent);
        constructions += "!END\r\n\r\n";
    }

    void AppendLayer(int slot, bool transparent) {
        if (slot > 1 && slot < content.layers && OneIn(6))
            AppendCavity(slot, transparent);
        else
            AppendMaterial(slot, transparent);
    }

    void AppendMaterial(int slot, bool transparent) {
        const int material = Below(materialCount);
        Append(constructions, "_ %d =       %d      %.3f   ", slot, MaterialCode(material),
               Pick(millimetres) / 1000.0);
        AppendLayerEnd(transparent ? 0.02 + Below(14) / 100.0 : -1, MaterialName(material));
    }

    void AppendCavity(int slot, bool transparent) {
        const int code = Pick(cavities);
        Append(constructions, "_ %d =       %d      ", slot, code);
        if (code == resistanceCavity)
            Append(constructions, "%.6f", (50 + Below(500)) / 1e6);
        else
            Append(constructions, "%.3f   ", Pick(millimetres) / 1000.0);
        AppendLayerEnd(transparent ? 0 : -1, CavityLayerName(code));
    }

    void AppendLayerEnd(double absorption, const std::string& name) {
        constructions += "   0      ";
        if (absorption >= 0)
            Append(constructions, "%.2f", absorption);
        constructions.append("      * ").append(name).append("\r\n");
    }

    void AppendGlassType(int number) {
        Append(glassTypes, "!WINDOW = 'GLASS %d'", number);
        if (content.comments && OneIn(5))
            glassTypes += " * of all panes together";
        glassTypes += "\r\n!TRANSMISSION =\r\n";
        AppendCurve(glassTypes, glassColumns, 0.3 + Below(500) / 1000.0);
        glassTypes += "!ABSORPTION =\r\n";
        AppendCurve(glassTypes, glassColumns, 0.1 + Below(100) / 1000.0);
        if (number % 4 == 0) {
            glassTypes += "!DIFFUSION =\r\n";
            AppendCurve(glassTypes, glassColumns, Below(100) / 1000.0);
        }
        glassTypes += "!END\r\n\r\n";
    }

    void AppendGlassType2D(int number) {
        Append(glassTypes2D, "!WINDOW 2D = 'BLIND %d'\r\n", number);
        for (const char* keyword : {"!TRANSMISSION =\r\n", "!ABSORPTION =\r\n"}) {
            glassTypes2D += keyword;
            for (int row = 0; row < glassRows2D; ++row)
                AppendCurve(glassTypes2D, glassRows2D, Below(400) / 1000.0);
            glassTypes2D += " }\r\n";
        }
        glassTypes2D += "!END\r\n\r\n";
    }

    /// A line of values that fall from the top to 0 as a pane's do towards grazing incidence.
    static void AppendCurve(std::string& out, int count, double top) {
        for (int i = 0; i < count; ++i) {
            const double turn = static_cast<double>(i) / (count - 1);
            AppendGlassValue(out, top * (1 - std::pow(turn, 4)));
            out += i + 1 < count ? ", " : "\r\n";
        }
    }

    const GeneratedFile& content;
    std::mt19937 random;
    std::string constructions;
    std::string glassTypes;
    std::string glassTypes2D;
};

} // namespace

std::string MakeConstructionFile(const GeneratedFile& content) {
    return Generator(content).Run();
}

std::string MakeStandardLibrary(int materials) {
    std::string out;
    for (int i = 0; i < std::min(materials, materialCount); ++i) {
        const int density = 400 + i * 53 % materialCount * 20;
        Append(out, "%d'%s' %.3f %d %d\r\n", MaterialCode(i), MaterialName(i).c_str(),
               0.02 + 0.0004 * density, density, 800 + i * 11 % materialCount * 8);
    }
    return out;
}

} // namespace strativo
