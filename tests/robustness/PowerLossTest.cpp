#include "robustness/PowerLoss.h"

#include "support/Samples.h"
#include "support/TestProject.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace strativo {
namespace {

const std::string oldBytes =
    Lines({"!MATERIALS FILE = 'stdmat.lby'", "", "!CONSTRUCTION 'WALL'", "!TYPE OPAQUE", "!PARTS",
           "_ 1 =       12      0.100      0            * FACE BRICK", "!END", ""});

class PowerLoss : public testing::Test {
protected:
    PowerLoss() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        folder.Write("house.con", oldBytes);
        calls = RunWithFaults("save", "house.con", "").calls;
        newBytes = folder.Read("house.con");
        EXPECT_NE(newBytes, oldBytes);
    }

    bool IsWhole(const DiskContent& content) const {
        const auto file = content.find("house.con");
        return file != content.end() && (file->second == oldBytes || file->second == newBytes);
    }

    /// After each of the calls, whatever the disk may hold then holds a whole file.
    bool AlwaysWhole(const std::vector<LoggedCall>& done) const {
        FragileDisk disk({{"house.con", oldBytes}});
        bool whole = true;
        for (const LoggedCall& call : done) {
            Replay(disk, call);
            for (const DiskContent& content : disk.AfterPowerLoss())
                whole = whole && IsWhole(content);
        }
        return whole;
    }

    /// After all of the calls the new bytes cannot be lost any more.
    bool NewBytesAreCertain(const std::vector<LoggedCall>& done) const {
        FragileDisk disk({{"house.con", oldBytes}});
        for (const LoggedCall& call : done)
            Replay(disk, call);
        const auto contents = disk.AfterPowerLoss();
        return std::all_of(contents.begin(), contents.end(), [&](const DiskContent& content) {
            return content == DiskContent{{"house.con", newBytes}};
        });
    }

    std::vector<LoggedCall> Without(const std::string& name, std::size_t number) const {
        std::vector<LoggedCall> kept;
        std::size_t seen = 0;
        for (const LoggedCall& call : calls)
            if (call.name != name || ++seen != number)
                kept.push_back(call);
        EXPECT_EQ(kept.size() + 1, calls.size());
        return kept;
    }

    TemporaryFolder folder;
    std::vector<LoggedCall> calls;
    std::string newBytes;
};

TEST_F(PowerLoss, AtAnyPointOfASaveLeavesTheOldFileOrTheNewOne) {
    EXPECT_TRUE(AlwaysWhole(calls));
}

TEST_F(PowerLoss, AfterASaveLeavesTheNewFile) {
    EXPECT_TRUE(NewBytesAreCertain(calls));
}

TEST_F(PowerLoss, WouldShowAFileThatWasNotBroughtToTheDisk) {
    EXPECT_FALSE(AlwaysWhole(Without("fsync", 1)));
}

TEST_F(PowerLoss, WouldShowAFolderThatWasNotBroughtToTheDisk) {
    EXPECT_TRUE(AlwaysWhole(Without("fsync", 2)));
    EXPECT_FALSE(NewBytesAreCertain(Without("fsync", 2)));
}

TEST_F(PowerLoss, WouldShowAFileWrittenInPlace) {
    FragileDisk disk({{"house.con", oldBytes}});
    disk.Create("house.con"); // cut to nothing, then written
    disk.Write("house.con", newBytes);
    const auto contents = disk.AfterPowerLoss();
    EXPECT_FALSE(std::all_of(contents.begin(), contents.end(),
                             [&](const DiskContent& content) { return IsWhole(content); }));
}

} // namespace
} // namespace strativo
