#include "tools/watch/WatchedRows.h"

#include <gmock/gmock.h>

#include "tests/tools/support/Sensors.h"
#include "tools/watch/RowCollector.h"

namespace tool {

namespace {

using ::testing::ElementsAre;

const std::vector<std::string> kHeading = {"Node", "N", "State"};

Row rowOf(const std::string& key, const std::string& reading, const std::string& state = "OK") {
    return {
        key, "1  " + key, {{"Reading", reading, Decimal::parse(reading)}, {"State", state, std::nullopt}}};
}

std::string historyOf(const std::vector<std::string>& numbers) {
    History history;
    for (const std::string& number : numbers) {
        history.add(*Decimal::parse(number));
    }
    return history.line();
}

}  // namespace

TEST(WatchedRows, ShowEveryRowOfTheFirstRound) {
    WatchedRows table(kHeading);
    const auto outcome = table.compare({rowOf("Fan", "8550"), rowOf("Ambient", "23")});
    EXPECT_EQ(outcome.summary, "2 rows");
    EXPECT_THAT(outcome.all,
                ElementsAre("  Node        N     State", "  1  Fan      8550  OK", "  1  Ambient  23    OK"));
    EXPECT_THAT(outcome.changed, ElementsAre());
}

TEST(WatchedRows, MarkWhatChangedWhatCameAndWhatWent) {
    WatchedRows table(kHeading);
    table.compare({rowOf("a", "1"), rowOf("b", "2"), rowOf("c", "3")});
    const auto outcome = table.compare({rowOf("a", "5"), rowOf("c", "3"), rowOf("d", "4")});
    EXPECT_EQ(outcome.summary, "3 rows, 1 changed, 1 new, 1 gone");
    EXPECT_THAT(outcome.changed,
                ElementsAre("* 1  a  1 → 5  OK     ▁█", "+ 1  d  4      OK", "- 1  b  2      OK"));
    EXPECT_EQ(outcome.all.size(), 5U);
    EXPECT_EQ(outcome.all[2], "  1  c  3      OK");
    EXPECT_EQ(table.compare({rowOf("a", "5"), rowOf("c", "3"), rowOf("d", "4")}).summary, "3 rows");
}

TEST(WatchedRows, NameTheValuesThatChangedWhereThereIsNoTable) {
    WatchedRows rows({});
    EXPECT_THAT(rows.compare({rowOf("a", "1")}).all, ElementsAre("  1  a"));
    rows.compare({rowOf("a", "2")});
    EXPECT_THAT(rows.compare({rowOf("a", "3", "")}).changed,
                ElementsAre("* 1  a  Reading 2 → 3 ▁▅█  State OK →"));
    EXPECT_THAT(rows.compare({rowOf("a", "3", "Bad")}).changed, ElementsAre("* 1  a  State nothing → Bad"));
}

TEST(WatchedRows, ComeBackAsNew) {
    WatchedRows table(kHeading);
    table.compare({rowOf("a", "1")});
    table.compare({});
    EXPECT_EQ(table.compare({rowOf("a", "1")}).summary, "1 row, 1 new");
}

TEST(WatchedRows, OfTextAreItsLines) {
    WatchedRows lines({});
    lines.compare(rowsOf("x\nx\ny\n"));
    const auto outcome = lines.compare(rowsOf("x\ny\nz\n"));
    EXPECT_THAT(outcome.changed, ElementsAre("+ z", "- x"));
}

TEST(WatchedRows, StandTheSameKeyTwice) {
    WatchedRows table(kHeading);
    table.compare({rowOf("a", "1"), rowOf("a", "2")});
    EXPECT_EQ(table.compare({rowOf("a", "2"), rowOf("a", "2")}).summary, "2 rows");
}

TEST(History, DrawsNumbersBetweenTheLeastAndTheGreatest) {
    EXPECT_EQ(historyOf({}), "");
    EXPECT_EQ(historyOf({"5", "5.0"}), "");
    EXPECT_EQ(historyOf({"0", "7", "3", "1"}), "▁█▄▂");
    EXPECT_EQ(historyOf({"-1", "-2"}), "█▁");
}

TEST(History, ForgetsTheOldest) {
    std::vector<std::string> numbers(40, "1");
    numbers.front() = "100";
    EXPECT_EQ(historyOf(numbers), "");
    numbers.back() = "2";
    EXPECT_EQ(historyOf(numbers), "▁▁▁▁▁▁▁▁▁▁▁▁▁▁▁█");
}

TEST(History, StandsNumbersOfAnySize) {
    EXPECT_EQ(historyOf({"-1.7e308", "1.7e308", "0"}), "▁█▅");
    EXPECT_EQ(historyOf({"1e+2147483647", "1"}), "▁▁");
    EXPECT_EQ(historyOf({"9223372036854775807", "9223372036854775806"}), "▁▁");
}

}  // namespace tool
