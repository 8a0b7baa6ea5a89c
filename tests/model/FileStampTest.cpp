#include "model/FileStamp.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(FileStamp, IsComparedByEveryField) {
    const FileStamp stamp{1, 2, 3, 4};
    EXPECT_EQ(stamp, (FileStamp{1, 2, 3, 4}));
    EXPECT_NE(stamp, (FileStamp{9, 2, 3, 4})) << "another device";
    EXPECT_NE(stamp, (FileStamp{1, 9, 3, 4})) << "another file";
    EXPECT_NE(stamp, (FileStamp{1, 2, 9, 4})) << "another size";
    EXPECT_NE(stamp, (FileStamp{1, 2, 3, 9})) << "another time";
}

TEST(FileStamp, OfNoFileIsThatOfNoEmptyFileEither) {
    EXPECT_NE(FileStamp(), (FileStamp{0, 0, 0, 0}));
}

} // namespace
} // namespace strativo
