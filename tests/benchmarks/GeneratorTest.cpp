#include "benchmarks/ConstructionFileGenerator.h"
#include "files/ConstructionWriter.h"
#include "files/MaterialLibraryFile.h"
#include "project/ReadConstructionFile.h"
#include "support/TestProject.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::IsEmpty;

Project ReadGenerated(const GeneratedFile& content) {
    const TemporaryFolder folder;
    ScriptedPrompts prompts;
    folder.Write("stdmat.lby", MakeStandardLibrary());
    folder.Write("generated.con", MakeConstructionFile(content));
    Project project;
    ReadConstructionFile(project, "generated.con", prompts);
    EXPECT_THAT(prompts.Texts(), IsEmpty());
    return project;
}

TEST(ConstructionFileGenerator, IsWrittenBackToTheSameBytes) {
    GeneratedFile content;
    content.constructions = 400;
    content.comments = false;
    EXPECT_EQ(FormatConstructionFile(ReadGenerated(content)), MakeConstructionFile(content));
}

TEST(ConstructionFileGenerator, GivesWhatWasAskedFor) {
    GeneratedFile content;
    content.constructions = 200;
    content.layers = 15;
    const Project project = ReadGenerated(content);
    EXPECT_EQ(project.constructionCount, 200);
    EXPECT_EQ(LayerCount(project.constructions[1]), 15);
    EXPECT_EQ(project.constructions[9].type, opaqueType);
    EXPECT_EQ(project.constructions[10].type, transparentType);
    EXPECT_EQ(project.glassTypes[20].name, "GLASS 20");
    EXPECT_EQ(project.glassTypes2D[1].name, "BLIND 1");
    EXPECT_FALSE(project.comments.fileHead.empty());
}

TEST(ConstructionFileGenerator, EveryLayerHasItsMaterial) {
    GeneratedFile content;
    content.constructions = 100;
    const Project project = ReadGenerated(content);
    for (int number = 1; number <= 100; ++number)
        for (int slot = 1; slot <= content.layers; ++slot)
            EXPECT_GE(project.constructions[number].layers[slot].name.size(), 3U)
                << number << ' ' << slot;
}

TEST(ConstructionFileGenerator, IsAtLeastAsLargeAsAsked) {
    GeneratedFile content;
    content.bytes = 100'000;
    const std::size_t size = MakeConstructionFile(content).size();
    EXPECT_GE(size, 100'000U);
    EXPECT_LT(size, 120'000U);
}

TEST(ConstructionFileGenerator, RepeatsItselfForTheSameSeedOnly) {
    GeneratedFile content;
    content.constructions = 50;
    const std::string bytes = MakeConstructionFile(content);
    EXPECT_EQ(MakeConstructionFile(content), bytes);
    content.seed = 2;
    EXPECT_NE(MakeConstructionFile(content), bytes);
}

TEST(ConstructionFileGenerator, LibraryHoldsTheMaterialsAskedFor) {
    EXPECT_EQ(MaterialCount(ParseStandardLibrary(MakeStandardLibrary()).library), 93 + 6);
    EXPECT_EQ(MaterialCount(ParseStandardLibrary(MakeStandardLibrary(10)).library), 10 + 6);
}

} // namespace
} // namespace strativo
