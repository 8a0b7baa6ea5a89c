#include "edit/InfoTexts.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(CommentText, HasALineFeedBeforeEachCarriageReturn) {
    Project project;
    project.comments.constructions.Add(1, " first");
    project.comments.constructions.Add(2, "other");
    project.comments.constructions.Add(1, "second");
    EXPECT_EQ(CommentText(project, 1), " first\n\rsecond\n\r");
    EXPECT_EQ(CommentText(project, 2), "other\n\r");
    EXPECT_EQ(CommentText(project, 3), "");
}

TEST(SourceText, HasBlankLinesForWindowsNotLoadedYet) {
    Project project;
    const std::string none = SourceText(project);
    EXPECT_EQ(none.substr(0, 5), "\r\r\r\r\r");
    EXPECT_EQ(std::count(none.begin(), none.end(), '\r'), 6);
    EXPECT_EQ(none.back(), '\r');
    EXPECT_GT(none.size(), 6U) << "the shared routines are always there";
}

TEST(SourceText, NamesTheLoadedWindowsInItsOrder) {
    Project project;
    RecordSource(project, ProgramWindow::glassProperties);
    RecordSource(project, ProgramWindow::selectMaterial);
    const std::string text = SourceText(project);
    EXPECT_EQ(text.find("UvalsDialog"), 0U);
    EXPECT_NE(text.find("\r\r\r\rWINPRO"), std::string::npos);
    RecordSource(project, ProgramWindow::construction);
    RecordSource(project, ProgramWindow::mainWindow);
    RecordSource(project, ProgramWindow::glassTypes);
    const std::string all = SourceText(project);
    EXPECT_EQ(all.find("\r\r"), std::string::npos);
    EXPECT_LT(all.find("UValue.cpp"), all.find("STRATVMD"));
    EXPECT_LT(all.find("STRATVMD"), all.find("WINFORM"));
    EXPECT_LT(all.find("WINFORM"), all.find("WINPRO"));
}

TEST(MainCaption, NamesProgramAndVersion) {
    EXPECT_STREQ(mainCaption, "Brevan Strativo V2.1");
}

} // namespace
} // namespace strativo
