#include "desktop/Gui.h"
#include "desktop/TestScreen.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    const strativo::TestScreen screen;
    return strativo::RunStories(argc, argv);
}
