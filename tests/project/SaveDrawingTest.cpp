#include "project/SaveDrawing.h"

#include "support/TestProject.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

TEST(SaveDrawing, WritesTheFileThatIsChosen) {
    const TemporaryFolder folder;
    ScriptedPrompts prompts;
    prompts.SavesFile("wall.svg");
    EXPECT_TRUE(SaveDrawing("<svg/>\n", prompts));
    EXPECT_EQ(folder.Read("wall.svg"), "<svg/>\n");
}

TEST(SaveDrawing, WritesNothingWhenThePromptIsCancelled) {
    const TemporaryFolder folder;
    ScriptedPrompts prompts;
    prompts.SavesFile("");
    EXPECT_FALSE(SaveDrawing("<svg/>\n", prompts));
    EXPECT_THAT(folder.Entries(), testing::IsEmpty());
}

TEST(SaveDrawing, SaysWhyItCouldNotBeWritten) {
    const TemporaryFolder folder;
    ScriptedPrompts prompts;
    prompts.SavesFile("missing/wall.svg");
    EXPECT_FALSE(SaveDrawing("<svg/>\n", prompts));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_THAT(prompts.messages[0].text,
                testing::StartsWith("missing/wall.svg\nThe drawing was not saved: "));
}

} // namespace
} // namespace strativo
