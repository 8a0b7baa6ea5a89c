#include "project/Manual.h"

#include "support/Samples.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

class Manual : public testing::Test {
protected:
    std::string Path(const char* name) const { return (folder.Path() / name).string(); }

    TemporaryFolder folder;
};

TEST_F(Manual, LiesInTheSourceTreeOfAProgramThatWasBuiltThere) {
    folder.Write("tree/docs/manual/index.html", "");
    folder.Write("tree/build/debug/bin/strativo", "");
    EXPECT_EQ(ManualPage(Path("tree/build/debug/bin")), Path("tree/docs/manual/index.html"));
}

TEST_F(Manual, OfAnInstalledProgramIsTheInstalledOne) {
    folder.Write("docs/manual/index.html", "");
    folder.Write("usr/bin/strativo", "");
    folder.Write("usr/share/doc/strativo/manual/index.html", "");
    EXPECT_EQ(ManualPage(Path("usr/bin")), Path("usr/bin/../share/doc/strativo/manual/index.html"));
}

TEST_F(Manual, IsExpectedInTheInstallationWhereThereIsNone) {
    folder.Write("usr/bin/strativo", "");
    EXPECT_EQ(ManualPage(Path("usr/bin")), Path("usr/bin/../share/doc/strativo/manual/index.html"));
    EXPECT_EQ(ManualPage(""), "../share/doc/strativo/manual/index.html");
}

TEST_F(Manual, HasAPageAboutEachWindow) {
    for (const char* window : {"UValue", "UvalsDialog", "WinForm", "Profile", "SectionWindow",
                               "ConCommentBox", "About_Strativo", "MessageBox", "UValueMDI"}) {
        const std::string page = ManualPageAbout(window);
        EXPECT_TRUE(std::filesystem::exists(STRATIVO_SOURCE "/docs/manual/" + page)) << window;
        EXPECT_EQ(page == "window-main.html", window == std::string("UValueMDI")) << window;
    }
    EXPECT_EQ(ManualPageAbout("Profile"), "window-glass-editor.html");
    EXPECT_EQ(ManualPageAbout("CMDialog"), "window-main.html");
}

} // namespace
} // namespace strativo
