#pragma once

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace strativo {

/// The permission bits of a file that must exist, those for special use included.
inline unsigned Permissions(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

} // namespace strativo
