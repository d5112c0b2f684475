#include "tools/config/PrivateFile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

using std::filesystem::perms;

}  // namespace

TEST(PrivateFile, CanBeReadByNobodyElse) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "trace";
    makePrivateFile(file.string());
    EXPECT_EQ(std::filesystem::status(file).permissions(), perms::owner_read | perms::owner_write);
    std::filesystem::permissions(file, perms::all);
    makePrivateFile(file.string());
    EXPECT_EQ(std::filesystem::status(file).permissions(), perms::owner_read | perms::owner_write)
        << "one that was there";
}

}  // namespace tool
