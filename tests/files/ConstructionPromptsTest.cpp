#include "files/ConstructionPrompts.h"

#include "model/Project.h"
#include "support/ScriptedDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;

TEST(ConstructionPrompts, GiveTheChosenPath) {
    ScriptedDesktop desktop;
    desktop.OpensFile("/a b/in.con").SavesFile("out \xe9.con");
    EXPECT_EQ(PromptConstructionFile(desktop), "/a b/in.con");
    EXPECT_EQ(PromptSaveConstructionFile(desktop), "out \xe9.con");
    EXPECT_THAT(desktop.prompts,
                ElementsAre(FilePrompt{"Open Construction file", "Construction Files (*.con)|*.con",
                                       "", "CON"},
                            FilePrompt{"Save Construction file as ",
                                       "Construction Files (*.con)|*.con", "", "CON"}));
}

TEST(ConstructionPrompts, GiveASingleBlankForACancel) {
    ScriptedDesktop desktop;
    desktop.OpensFile("").SavesFile("");
    EXPECT_EQ(PromptConstructionFile(desktop), singleBlank);
    EXPECT_EQ(PromptSaveConstructionFile(desktop), singleBlank);
}

} // namespace
} // namespace strativo
