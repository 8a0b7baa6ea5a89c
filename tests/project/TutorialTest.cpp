// Follows the tutorials of the manual: the materials, thicknesses and U-values are read from their
// pages, and the core must come to the same figures.

#include "calc/LayerList.h"
#include "calc/UValue.h"
#include "edit/ConstructionEntry.h"
#include "edit/LayerClipboard.h"
#include "project/NewProject.h"
#include "support/Samples.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <regex>

namespace strativo {
namespace {

using testing::IsEmpty;

/// The cells of the page's table, row by row, without the row of headings.
std::vector<std::vector<std::string>> TableOf(const std::string& page) {
    std::vector<std::vector<std::string>> rows;
    const std::regex row("<tr>(<td>.*?</td>)</tr>");
    const std::regex cell("<td>(.*?)</td>");
    for (std::sregex_iterator found(page.begin(), page.end(), row), end; found != end; ++found) {
        const std::string cells = (*found)[1];
        rows.emplace_back();
        for (std::sregex_iterator each(cells.begin(), cells.end(), cell); each != end; ++each)
            rows.back().push_back((*each)[1]);
    }
    return rows;
}

class Tutorial : public testing::Test {
protected:
    Tutorial() {
        std::filesystem::current_path(std::string(STRATIVO_SOURCE) + "/data/examples");
        StartUp(project, Settings());
        NewConstruction(project, prompts);
    }

    void Append(const std::string& material) {
        for (int slot = 1; slot <= MaterialCount(project.standardLibrary); ++slot)
            if (project.standardLibrary[slot].name == material)
                project.selectedMaterial = slot;
        ASSERT_TRUE(TakeMaterial(project)) << material;
        PasteLayers(project, prompts);
    }

    /// Builds the construction of the page's table, and expects the resistances in it.
    void Follow(const std::vector<std::vector<std::string>>& rows) {
        for (const auto& row : rows)
            Append(row[0]);
        EXPECT_EQ(View().result, "n/a");
        SelectLine(project, 1, 0, {});
        for (const auto& row : rows)
            EXPECT_EQ(EnterThickness(project, 1, row[1], prompts), EntryResult::accepted);
        for (std::size_t line = 0; line < rows.size(); ++line)
            EXPECT_THAT(View().lines[line],
                        testing::ContainsRegex(rows[line][0] + " .* " + rows[line][2] + " *"
                                               + rows[line][1] + "$"));
        EXPECT_THAT(prompts.messages, IsEmpty());
        EXPECT_THAT(prompts.filePrompts, IsEmpty());
    }

    LayerListView View() const { return ViewLayerList(project.constructions[1]); }

    TemporaryFolder before; ///< brings the working directory back
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(Tutorial, WallHasTheFiveMaterialsAndTheUValueThatItNames) {
    const std::string page = SourceFile("docs/manual/tutorial-wall.html");
    const auto rows = TableOf(page);
    ASSERT_EQ(rows.size(), 5U);
    Follow(rows);
    EXPECT_THAT(
        page, testing::HasSubstr("the last one shows the U-value,\n<b>" + View().result + "</b>."));
    EXPECT_THAT(page, testing::HasSubstr("its U-value, " + View().result + "\""));
    for (const auto& row : rows)
        EXPECT_THAT(page, testing::HasSubstr("<b>" + row[1] + "</b>"));
}

TEST_F(Tutorial, GlazingHasTheUValueThatItNames) {
    const std::string page = SourceFile("docs/manual/tutorial-glazing.html");
    const auto rows = TableOf(page);
    ASSERT_EQ(rows.size(), 3U);
    ChangeType(project, 1, transparentType);
    Follow(rows);
    for (int line = 0; line < 3; ++line) {
        SelectLine(project, 1, line, {});
        EXPECT_EQ(EnterAbsorption(project, 1, rows[line][3], prompts), EntryResult::accepted);
    }
    EXPECT_FLOAT_EQ(project.constructions[1].layers[1].absorption, 0.15F);
    EXPECT_THAT(page, testing::HasSubstr("The U-value is <b>" + View().result + "</b>."));
}

TEST_F(Tutorial, StartsWhereTheTextsSay) {
    const std::string start = "cd data/examples";
    EXPECT_THAT(SourceFile("docs/manual/tutorial-wall.html"), testing::HasSubstr(start));
    EXPECT_THAT(SourceFile("README.md"), testing::HasSubstr(start));
    EXPECT_THAT(SourceFile("run"), testing::HasSubstr("cd \"$here/data/examples\""));
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_THAT(prompts.filePrompts, IsEmpty());
}

/// The example of the page about the U-value: three solids and, as layer 4, the cavity.
TEST(ManualExample, OfTheUValueIsCalculatedRight) {
    const std::string page = SourceFile("docs/manual/u-value.html");
    const std::string solid = R"((\d+) mm at ([\d.]+) \(([\d.]+)\))";
    const std::regex example("Example: brick " + solid + ", a type 1 cavity \\(0.11\\), block "
                             + solid + ", plaster " + solid + ": .* = <b>([\\d.]+)</b>");
    std::smatch figures;
    ASSERT_TRUE(std::regex_search(page, figures, example));
    Construction construction;
    for (const int number : {1, 2, 3}) {
        Layer& layer = construction.layers.Edit(number);
        layer.name = "SOLID";
        layer.materialCode = 1;
        layer.thickness = std::stod(figures[3 * number - 2]);
        layer.conductivity = std::stof(figures[3 * number - 1]);
        EXPECT_NEAR(LayerResistance(layer), std::stod(figures[3 * number]), 0.0005);
    }
    Layer& cavity = construction.layers.Edit(4);
    cavity.name = "CAVITY";
    cavity.materialCode = -1;
    cavity.conductivity = -1;
    cavity.thickness = 50;
    EXPECT_EQ(figures[10], UValueText(construction));
}

} // namespace
} // namespace strativo
