#include "tools/config/GuardedFile.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <vector>

#include "tests/tools/support/TemporaryFile.h"
#include "tools/common/UsageError.h"
#include "tools/machine/Credentials.h"
#include "tools/machine/Node.h"

namespace tool {

namespace {

using std::filesystem::perms;
using ::testing::HasSubstr;

class GuardedFileTest : public ::testing::Test {
protected:
    void allow(perms more) const {
        std::filesystem::permissions(file_.path(), more, std::filesystem::perm_options::add);
    }

    /// What reading it is refused with; empty when it is not.
    std::string complaint(Guard guard) const {
        try {
            EXPECT_EQ(readGuarded(file_.path(), guard), "geheim\n");
        } catch (const UsageError& error) {
            return error.what();
        }
        return {};
    }

    const TemporaryFile file_{"geheim\n"};
};

}  // namespace

TEST_F(GuardedFileTest, IsReadWhenItIsAPersonsOwn) {
    EXPECT_EQ(complaint(Guard::kAgainstWriting), "");
    EXPECT_EQ(complaint(Guard::kAgainstReading), "");
}

TEST_F(GuardedFileTest, IsRefusedWhenTheGroupMayWriteIt) {
    allow(perms::group_write);
    EXPECT_EQ(complaint(Guard::kAgainstWriting),
              "'" + file_.path() + "' can be written by others; chmod go-w makes it yours alone");
    EXPECT_THAT(complaint(Guard::kAgainstReading), HasSubstr("can be written by others"));
}

TEST_F(GuardedFileTest, IsRefusedWhenAnybodyMayWriteIt) {
    allow(perms::others_write);
    EXPECT_THAT(complaint(Guard::kAgainstWriting), HasSubstr("can be written by others"));
}

TEST_F(GuardedFileTest, MayBeReadByOthersUnlessItHoldsASecret) {
    allow(perms::group_read);
    EXPECT_EQ(complaint(Guard::kAgainstWriting), "");
    EXPECT_EQ(complaint(Guard::kAgainstReading),
              "'" + file_.path() + "' can be read by others; chmod 600 makes it yours alone");
    std::filesystem::permissions(file_.path(), perms::owner_read | perms::others_read);
    EXPECT_THAT(complaint(Guard::kAgainstReading), HasSubstr("can be read by others"));
}

TEST_F(GuardedFileTest, GivesNoPasswordWhenOthersMayReadIt) {
    PasswordSources sources;
    sources.file = file_.path();
    sources.isFileGuarded = true;
    std::vector<Node> nodes{{"a", "anna", ""}};
    addPasswords(nodes, sources);
    EXPECT_EQ(nodes[0].password, "geheim");
    allow(perms::others_read);
    EXPECT_THROW(addPasswords(nodes, sources), UsageError);
}

TEST_F(GuardedFileTest, IsRefusedWhenAnotherUserOwnsIt) {
    constexpr uid_t kSomebodyElse = 65534;
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the system's administrator gives files to others";
    }
    ASSERT_EQ(chown(file_.path().c_str(), kSomebodyElse, static_cast<gid_t>(-1)), 0);
    EXPECT_EQ(complaint(Guard::kAgainstWriting), "'" + file_.path() + "' belongs to another user");
}

TEST_F(GuardedFileTest, IsRefusedWhenItIsAFolder) {
    EXPECT_THROW(readGuarded("/", Guard::kAgainstWriting), UsageError);
}

}  // namespace tool
