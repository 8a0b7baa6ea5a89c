#include "edit/Saying.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(Saying, IsKeptUntilItIsTold) {
    Project project;
    Say(project, "3 layers cut");
    EXPECT_EQ(project.said, "3 layers cut");
}

TEST(Saying, SeveralOfOneActionFollowEachOther) {
    Project project;
    Say(project, "Saved as wall.con.");
    Say(project, "12.5 mm is 13 in the file.");
    EXPECT_EQ(project.said, "Saved as wall.con.   12.5 mm is 13 in the file.");
}

} // namespace
} // namespace strativo
