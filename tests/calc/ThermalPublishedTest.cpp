#include "calc/PublishedCases.h"
#include "project/ReadConstructionFile.h"
#include "text/Format.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

class PublishedResults : public testing::TestWithParam<PublishedCase> {};

TEST_P(PublishedResults, ComeOutWithinTheirPrintedRounding) {
    const PublishedCase& published = GetParam();
    const ThermalLayers layers = ThermalLayersOf(published);
    for (const auto& expected : published.json.at("expected")) {
        const std::string key = expected.at("key");
        const double figure = Figure(key, layers, published.GivenFilms(), published.Air());
        const double difference = std::abs(figure - expected.at("value").get<double>());
        // A figure exactly between two printed ones, give or take the last bit.
        const double tolerance = expected.at("tolerance").get<double>() + 1e-12;
        if (expected.value("agrees", true))
            EXPECT_LE(difference, tolerance) << key << ' ' << figure << ' ' << expected;
        else
            EXPECT_GT(difference, tolerance) << key << ' ' << figure << ' ' << expected;
    }
}

INSTANTIATE_TEST_SUITE_P(All, PublishedResults, testing::ValuesIn(PublishedCases()),
                         [](const auto& test) {
                             std::string name = test.param.Id();
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(PublishedResults, ThatDifferDoSoAsTheirNotesSay) {
    for (const PublishedCase& published : PublishedCases()) {
        const auto figure = [&](const char* key) {
            return Figure(key, ThermalLayersOf(published), published.GivenFilms(), published.Air());
        };
        if (published.Id() == "ES1") {
            EXPECT_NEAR(1 - 0.25 * figure("transmittance"), 0.80, 0.005);
        }
        if (published.Id() == "UK1") {
            EXPECT_NEAR(1 / (std::round(figure("resistance") * 100) / 100), 1.85, 0.005);
        }
    }
}

/// Writes a case as files, reads them, and calculates from what was read.
class PublishedResultsFromAFile : public testing::TestWithParam<std::string> {
protected:
    PublishedResultsFromAFile() {}

    static PublishedCase Case() {
        for (const PublishedCase& published : PublishedCases())
            if (published.Id() == GetParam())
                return published;
        throw std::out_of_range(GetParam());
    }

    void Read(const PublishedCase& published) {
        std::string library;
        std::vector<std::string> lines = {"!MATERIALS FILE = 'own.lby'", "!CONSTRUCTION 'A'"};
        int slot = 0;
        for (const auto& layer : published.Layers()) {
            const std::string part = "_ " + std::to_string(++slot) + " = ";
            if (layer.contains("resistance")) {
                lines.push_back(part + "-3 "
                                + FormatGeneral(layer.at("resistance").get<double>() / 1000)
                                + " 0");
                continue;
            }
            const std::string number = std::to_string(slot);
            library += number + "'LAYER' " + FormatGeneral(layer.at("conductivity")) + ' '
                       + FormatGeneral(layer.at("density")) + ' '
                       + FormatGeneral(layer.at("specificHeat")) + "\r\n";
            lines.push_back(part + number + ' '
                            + FormatGeneral(layer.at("thicknessMm").get<double>() / 1000) + " 0");
        }
        lines.emplace_back("!END");
        folder.Write("own.lby", library);
        folder.Write("own.con", Lines(lines));
        ReadConstructionFile(project, "own.con", prompts);
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_P(PublishedResultsFromAFile, DifferByNoMoreThanSingleConductivities) {
    const PublishedCase published = Case();
    Read(published);
    ASSERT_TRUE(InUse(project, 1));
    const LayersOrReason read =
        ThermalLayersOf(project.constructions[1],
                        published.IsInsideFirst() ? FirstLayer::inside : FirstLayer::outside);
    ASSERT_EQ(ReasonText(read.reason), "");
    for (const auto& expected : published.json.at("expected")) {
        const std::string key = expected.at("key");
        const double direct =
            Figure(key, ThermalLayersOf(published), published.GivenFilms(), published.Air());
        const double figure = Figure(key, read.layers, published.GivenFilms(), published.Air());
        EXPECT_NEAR(figure, direct, 1e-6 * std::abs(direct)) << key;
    }
}

INSTANTIATE_TEST_SUITE_P(Six, PublishedResultsFromAFile,
                         testing::Values("D1", "BE2", "BE3", "OU1", "TM3", "TM5"));

} // namespace
} // namespace strativo
