#include "tools/machine/RequestStatistics.h"

#include <gmock/gmock.h>

#include <string>

#include "tools/print/StatisticsTable.h"

namespace tool {

namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;

class RequestStatisticsTest : public ::testing::Test {
protected:
    using TimePoint = RequestListener::Clock::time_point;

    void begin(std::size_t node, const std::string& operation, int atMs) {
        statistics_.begun({node, operation, "CIM_Fan"}, TimePoint(milliseconds(atMs)));
    }
    void end(std::size_t node, const std::string& operation, bool answered, int atMs) {
        statistics_.ended({node, operation, "CIM_Fan"}, answered, TimePoint(milliseconds(atMs)));
    }
    void request(std::size_t node, const std::string& operation, bool answered, int lastingMs) {
        begin(node, operation, 1000);
        end(node, operation, answered, 1000 + lastingMs);
    }

    RequestStatistics statistics_;
};

}  // namespace

TEST_F(RequestStatisticsTest, AddUpByNodeAndOperation) {
    request(0, "GetClass", true, 20);
    request(0, "GetClass", false, 5);
    request(0, "InvokeMethod", true, 1);
    request(1, "GetClass", true, 7);
    ASSERT_EQ(statistics_.counts().size(), 3U);
    const RequestStatistics::Count& first = statistics_.counts().at({0, "GetClass"});
    EXPECT_EQ(first.requests, 2U);
    EXPECT_EQ(first.failures, 1U);
    EXPECT_EQ(first.time, milliseconds(25));
    EXPECT_EQ(statistics_.counts().at({1, "GetClass"}).time, milliseconds(7));
    EXPECT_EQ(statistics_.total().requests, 4U);
    EXPECT_EQ(statistics_.total().failures, 1U);
    EXPECT_EQ(statistics_.total().time, milliseconds(33));
}

TEST_F(RequestStatisticsTest, CountTheTimeOfARequestWithinAnotherOnce) {
    begin(0, "GetClass", 0);
    begin(0, "Reconnect", 10);
    begin(0, "HTTPSConnect", 40);
    end(0, "HTTPSConnect", true, 90);
    end(0, "Reconnect", true, 95);
    end(0, "GetClass", true, 100);
    EXPECT_EQ(statistics_.counts().at({0, "HTTPSConnect"}).time, milliseconds(50));
    EXPECT_EQ(statistics_.counts().at({0, "Reconnect"}).time, milliseconds(35));
    EXPECT_EQ(statistics_.counts().at({0, "GetClass"}).time, milliseconds(15));
    EXPECT_EQ(statistics_.total().time, milliseconds(100));
}

TEST_F(RequestStatisticsTest, AreATableWithATotal) {
    Machine machine({{"10.0.0.1", "", ""}, {"10.0.0.20", "", ""}});
    machine.link(1) = {"", "", true, true};
    request(1, "EnumerateInstanceNames", false, 1500);
    request(0, "GetClass", true, 20);
    EXPECT_THAT(statisticsTable(statistics_, machine),
                ElementsAre("Node                     Operation               Requests  Failed    Seconds",
                            "node 1 (10.0.0.1)        GetClass                       1       0      0.020",
                            "node 2 (10.0.0.20:5989)  EnumerateInstanceNames         1       1      1.500",
                            "All                                                     2       1      1.520"));
}

TEST_F(RequestStatisticsTest, AreATableOfNothingButATotalWhenNothingWasAsked) {
    EXPECT_THAT(statisticsTable(statistics_, Machine({{"a", "", ""}})),
                ElementsAre("Node  Operation               Requests  Failed    Seconds",
                            "All                                  0       0      0.000"));
}

}  // namespace tool
