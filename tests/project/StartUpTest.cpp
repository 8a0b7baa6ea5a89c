#include "project/NewProject.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(StartUp, OpensNoWindowAndLoadsNoLibrary) {
    ScriptedDesktop desktop;
    const Project project = StartedProject(desktop);
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_FALSE(project.standardLoaded);
    EXPECT_EQ(project.standardLibraryFile, singleBlank);
    EXPECT_EQ(MaterialCount(project.standardLibrary), 0);
    EXPECT_EQ(desktop.Count("Open 1"), 0);
}

} // namespace
} // namespace strativo
