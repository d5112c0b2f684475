#include "tools/query/SortOrder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

#include "tests/tools/support/Properties.h"
#include "tests/tools/support/Sensors.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using TType = TCIMValue::TCIMType;
using ::testing::ElementsAre;

// The captions of sensors, in an order.
class SortOrderTest : public ::testing::Test {
protected:
    void add(const std::string& caption, const TCIMValue& reading, const std::string& id = "x") {
        things_.emplace_back(
            Properties::Values{{"Caption", TCIMValue(caption)}, {"Reading", reading}, {"ID", TCIMValue(id)}});
    }

    std::vector<std::string> sortedBy(const std::vector<std::string>& names) {
        const ClassSchema schema = sensors_.schema();
        const SortOrder order(names, schema);
        std::stable_sort(things_.begin(), things_.end(), [&](const Properties& one, const Properties& other) {
            return order.isBefore(order.keyOf(one.source()), order.keyOf(other.source()));
        });
        std::vector<std::string> captions;
        for (const Properties& thing : things_) {
            captions.push_back(thing.source()("Caption")->ToString(10));
        }
        return captions;
    }

    Sensors sensors_;
    std::vector<Properties> things_;
};

}  // namespace

TEST_F(SortOrderTest, OrdersNumbersBySizeAndOtherwiseByText) {
    add("b", TCIMValue(10));
    add("a", TCIMValue(9));
    add("c", TCIMValue(-1));
    EXPECT_THAT(sortedBy({"reading"}), ElementsAre("c", "a", "b"));
    EXPECT_THAT(sortedBy({"-Reading"}), ElementsAre("b", "a", "c"));
    EXPECT_THAT(sortedBy({"Caption"}), ElementsAre("a", "b", "c"));
}

TEST_F(SortOrderTest, AsksTheNextPropertyWhereTheFirstIsTheSame) {
    add("b", TCIMValue(1), "2");
    add("c", TCIMValue(2), "1");
    add("a", TCIMValue(1), "1");
    EXPECT_THAT(sortedBy({"-ID", "Reading"}), ElementsAre("b", "a", "c"));
    EXPECT_THAT(sortedBy({"ID", "-Reading"}), ElementsAre("c", "a", "b"));
}

TEST_F(SortOrderTest, OrdersDatetimesByWhenTheyAre) {
    add("late", TCIMValue(TCIMDateTime("20240911120000.000000+000")));
    add("early", TCIMValue(TCIMDateTime("20240911125959.000000+120")));
    EXPECT_THAT(sortedBy({"Reading"}), ElementsAre("early", "late"));
}

TEST_F(SortOrderTest, PutsWhatHasNoValueLastEitherWay) {
    add("null", TCIMValue(TType(TType::eSint32), 0));
    add("one", TCIMValue(1));
    add("nan", TCIMValue(std::numeric_limits<double>::quiet_NaN()));
    add("two", TCIMValue(2));
    EXPECT_THAT(sortedBy({"Reading"}), ElementsAre("one", "two", "nan", "null"));
    EXPECT_THAT(sortedBy({"-Reading"}), ElementsAre("nan", "two", "one", "null"));
}

TEST_F(SortOrderTest, RefusesWhatTheClassHasNot) {
    EXPECT_THROW(sortedBy({"Speed"}), UsageError);
    EXPECT_THROW(sortedBy({""}), UsageError);
    EXPECT_THROW(sortedBy({"-"}), UsageError);
    EXPECT_THROW(sortedBy({"--ID"}), UsageError);
}

}  // namespace tool
