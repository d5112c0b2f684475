#include "cimom/enumerations/EnumerationTable.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using Kind = EnumerationTable::Kind;
using std::chrono::seconds;
using test::errorOf;

class EnumerationTableTest : public testing::Test {
protected:
    EnumerationTable::Batch open(std::size_t count) {
        return table_.open(Kind::InstancePaths, {"a", "b", "c", "d", "e"}, count, seconds(10), now_);
    }
    EnumerationTable::Batch pull(const std::string& context, std::size_t count) {
        return table_.pull(context, Kind::InstancePaths, count, now_);
    }
    int errorOfPull(const std::string& context) {
        return errorOf([&] { pull(context, 1); });
    }

    EnumerationTable table_;
    EnumerationTable::Clock::time_point now_{};
};

TEST_F(EnumerationTableTest, DeliversEverythingInOrderInPiecesOfTheSizeAskedFor) {
    const auto opened = open(2);
    EXPECT_EQ(opened.objects, "ab");
    ASSERT_NE(opened.context, "");
    const auto second = pull(opened.context, 0);
    EXPECT_EQ(second.objects, "");
    EXPECT_EQ(second.context, opened.context);
    EXPECT_EQ(pull(opened.context, 2).objects, "cd");
    const auto last = pull(opened.context, 100);
    EXPECT_EQ(last.objects, "e");
    EXPECT_EQ(last.context, "");
    EXPECT_EQ(errorOfPull(opened.context), test::kInvalidEnumerationContext);
}

TEST_F(EnumerationTableTest, KeepsNothingOfWhatEndedAtOnce) {
    const auto all = open(5);
    EXPECT_EQ(all.objects, "abcde");
    EXPECT_EQ(all.context, "");
    EXPECT_EQ(table_.open(Kind::Instances, {}, 0, seconds(10), now_).context, "") << "there was nothing";
}

TEST_F(EnumerationTableTest, TellsEnumerationsApart) {
    const std::string one = open(1).context;
    const std::string other = open(3).context;
    EXPECT_NE(one, other);
    EXPECT_EQ(pull(one, 1).objects, "b");
    EXPECT_EQ(pull(other, 1).objects, "d");
}

TEST_F(EnumerationTableTest, ContinuesWithTheSameKindOnly) {
    const std::string context = open(1).context;
    EXPECT_EQ(errorOf([&] { table_.pull(context, Kind::InstancesWithPath, 1, now_); }),
              test::kInvalidEnumerationContext);
    EXPECT_EQ(pull(context, 1).objects, "b") << "and goes on as if nothing had been";
}

TEST_F(EnumerationTableTest, EndsWhenClosed) {
    const std::string context = open(1).context;
    table_.close(context, now_);
    EXPECT_EQ(errorOfPull(context), test::kInvalidEnumerationContext);
    EXPECT_EQ(errorOf([&] { table_.close(context, now_); }), test::kInvalidEnumerationContext);
}

TEST_F(EnumerationTableTest, EndsWhenNothingIsAskedOfItForTooLong) {
    const std::string context = open(1).context;
    now_ += seconds(10);
    EXPECT_EQ(pull(context, 1).objects, "b");
    now_ += seconds(10);
    EXPECT_EQ(pull(context, 1).objects, "c") << "the time starts anew with each answer";
    now_ += seconds(11);
    EXPECT_EQ(errorOfPull(context), test::kInvalidEnumerationContext);
}

TEST_F(EnumerationTableTest, HasRoomForSoManyUntilSomeEnd) {
    const std::string first = open(1).context;
    for (std::size_t i = 1; i < EnumerationTable::kMaxOpen; ++i) {
        open(1);
    }
    EXPECT_EQ(errorOf([&] { open(1); }), test::kServerLimitsExceeded);
    EXPECT_EQ(open(5).objects, "abcde") << "what ends at once needs no room";
    table_.close(first, now_);
    EXPECT_NE(open(1).context, "");
    EXPECT_EQ(errorOf([&] { open(1); }), test::kServerLimitsExceeded);
    now_ += seconds(11);
    EXPECT_NE(open(1).context, "") << "the late ones are gone";
}

TEST_F(EnumerationTableTest, HasRoomForSoMuchTogether) {
    const auto openLarge = [&] {
        return table_.open(Kind::Instances, {"a", std::string(EnumerationTable::kMaxBytes / 2, 'x')}, 1,
                           seconds(10), now_);
    };
    const std::string context = openLarge().context;
    EXPECT_EQ(errorOf(openLarge), test::kServerLimitsExceeded);
    table_.close(context, now_);
    EXPECT_NE(openLarge().context, "");
}

}  // namespace
}  // namespace cimom
