#include "files/ConstructionWriter.h"
#include "files/GlassImport.h"
#include "files/MaterialLibraryFile.h"
#include "support/Mutation.h"
#include "support/ParseText.h"
#include "support/Samples.h"
#include "text/RuntimeError.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

/// Every damaged file ends in a result or in a numbered failure, and both happen.
template <class Read>
void ReadDamaged(const std::string& sample, unsigned rounds, Read read) {
    unsigned failures = 0;
    for (unsigned seed = 1; seed <= rounds; ++seed) {
        SCOPED_TRACE(seed);
        try {
            read(Mutation(seed).Of(sample));
        } catch (const RuntimeError&) {
            ++failures;
        }
    }
    EXPECT_GT(failures, 0U);
    EXPECT_LT(failures, rounds);
}

TEST(DamagedFiles, EndInAStandardLibraryOrANumberedFailure) {
    ReadDamaged(SourceFile("data/stdmat.lby"), 2000, [](const std::string& bytes) {
        const LibraryContent content = ParseStandardLibrary(bytes);
        if (content.failure)
            throw RuntimeError(*content.failure);
        EXPECT_LE(MaterialCount(content.library), 99);
    });
}

TEST(DamagedFiles, EndInAUserLibraryOrANumberedFailure) {
    ReadDamaged(SourceFile("data/examples/user.lby"), 2000, [](const std::string& bytes) {
        const LibraryContent content = ParseUserLibrary(bytes);
        if (content.failure)
            throw RuntimeError(*content.failure);
        EXPECT_LE(MaterialCount(content.library), 99);
    });
}

TEST(DamagedFiles, EndInImportedGlassTypesOrANumberedFailure) {
    ScriptedPrompts prompts;
    const std::string sample = SourceFile("data/examples/house.con");
    ReadDamaged(sample, 500, [&](const std::string& bytes) {
        Project project;
        EXPECT_TRUE(ParseGlassDefinitions(bytes, project));
        for (const GlassType& type : project.glassTypes)
            EXPECT_EQ(type.name.find('\''), std::string::npos);
    });
}

/// What is written after reading the bytes, comments apart.
std::string Rewritten(const std::string& bytes, const std::string& standardLibraryFile) {
    ScriptedPrompts prompts;
    Project project;
    project.standardLibraryFile = standardLibraryFile;
    ParseText(bytes, project);
    project.comments = Comments();
    return FormatConstructionFile(project);
}

TEST(DamagedFiles, EndInAProjectThatSurvivesSavingAndReadingOrANumberedFailure) {
    ReadDamaged(SourceFile("data/examples/house.con"), 500, [](const std::string& bytes) {
        ScriptedPrompts prompts;
        Project project;
        ParseText(bytes, project);
        for (const Construction& construction : project.constructions)
            EXPECT_EQ(LayerCount(construction), construction.layers.HighestUsed());
        project.comments = Comments();
        const std::string once = FormatConstructionFile(project);
        EXPECT_EQ(Rewritten(once, project.standardLibraryFile), once);
    });
}

} // namespace
} // namespace strativo
