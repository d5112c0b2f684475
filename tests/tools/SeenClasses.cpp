#include "tools/common/SeenClasses.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "tests/tools/support/TemporaryFile.h"
#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::size_t filesIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

}  // namespace

TEST(SeenClasses, AreThoseOfTheLastAnswer) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "new" / "classes";
    EXPECT_THAT(SeenClasses(file).names(), IsEmpty());
    SeenClasses(file).keep({"CIM_Fan", "OMC_Fan", "CIM_Sensor"});
    EXPECT_THAT(SeenClasses(file).names(), ElementsAre("CIM_Fan", "OMC_Fan", "CIM_Sensor"));
    SeenClasses(file).keep({"CIM_Slot"});
    EXPECT_THAT(SeenClasses(file).names(), ElementsAre("CIM_Slot"));
    EXPECT_EQ(filesIn(file.parent_path()), 1U) << "nothing unfinished is left";
}

TEST(SeenClasses, AreReplacedAsAWholeUnderWhoeverReadsThem) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "classes";
    SeenClasses(file).keep({"CIM_Fan", "OMC_Fan"});
    // Whoever has opened the file before keeps reading that one.
    const fs::path opened = folder.path() / "opened";
    fs::create_hard_link(file, opened);
    SeenClasses(file).keep({"CIM_Slot"});
    EXPECT_THAT(SeenClasses(opened).names(), ElementsAre("CIM_Fan", "OMC_Fan"));
}

TEST(SeenClasses, AreNamesOnlyWhateverAServerSends) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "classes";
    SeenClasses(file).keep({"CIM_Fan\n$(reboot)", "`id`", "--help", "CIM Fan", "", "OMC_Fan"});
    EXPECT_THAT(SeenClasses(file).names(), ElementsAre("OMC_Fan"));
    std::ifstream stream(file, std::ios::binary);
    const std::string kept{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(kept, "OMC_Fan\n");
}

TEST(SeenClasses, AreNamesOnlyWhoeverWroteTheFile) {
    const TemporaryFile file("CIM_Fan\r\n$(reboot)\nOMC_Fan\n");
    EXPECT_THAT(SeenClasses(file.path()).names(), ElementsAre("OMC_Fan"));
}

TEST(SeenClasses, AreNotKeptWhereNothingCanBe) {
    const TemporaryFile notAFolder("x");
    const SeenClasses below(fs::path(notAFolder.path()) / "classes");
    below.keep({"CIM_Fan"});
    EXPECT_THAT(below.names(), IsEmpty());
    const SeenClasses nowhere{fs::path()};
    nowhere.keep({"CIM_Fan"});
    EXPECT_THAT(nowhere.names(), IsEmpty());
}

TEST(SeenClasses, LeaveNothingUnfinishedWhereTheFileCannotBeReplaced) {
    const TemporaryFolder folder;
    const fs::path taken = folder.path() / "classes";
    fs::create_directories(taken / "full");
    SeenClasses(taken).keep({"CIM_Fan"});
    EXPECT_EQ(filesIn(folder.path()), 1U);
}

}  // namespace tool
