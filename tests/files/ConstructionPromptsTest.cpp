#include "files/ConstructionPrompts.h"

#include "model/Project.h"
#include "support/ScriptedPrompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;

TEST(ConstructionPrompts, GiveTheChosenPath) {
    ScriptedPrompts prompts;
    prompts.OpensFile("/a b/in.con").SavesFile("out \xe9.con");
    EXPECT_EQ(PromptConstructionFile(prompts), "/a b/in.con");
    EXPECT_EQ(PromptSaveConstructionFile(prompts), "out \xe9.con");
    EXPECT_THAT(prompts.filePrompts,
                ElementsAre(FilePrompt{"Open Construction file", "Construction Files (*.con)|*.con",
                                       "", "CON"},
                            FilePrompt{"Save Construction file as ",
                                       "Construction Files (*.con)|*.con", "", "CON"}));
}

TEST(ConstructionPrompts, GiveNothingForACancel) {
    ScriptedPrompts prompts;
    prompts.OpensFile("").SavesFile("");
    EXPECT_EQ(PromptConstructionFile(prompts), std::nullopt);
    EXPECT_EQ(PromptSaveConstructionFile(prompts), std::nullopt);
}

} // namespace
} // namespace strativo
