#include "tools/print/InstancePrinter.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/tools/support/OutputText.h"
#include "tests/tools/support/Sensors.h"
#include "tools/print/CsvPrinter.h"
#include "tools/print/JsonPrinter.h"
#include "tools/print/TablePrinter.h"

namespace tool {

namespace {

class InstancePrinterTest : public ::testing::Test {
protected:
    InstanceView view(const std::string& id, const std::string& node = "1") const {
        return InstanceView(*sensors_.make(id, 3, node));
    }

    Sensors sensors_;
    ClassSchema schema_ = sensors_.schema();
    OutputText text_;
};

}  // namespace

TEST_F(InstancePrinterTest, AViewKeepsTheNodeApart) {
    const InstanceView instance = view("T1", "2");
    EXPECT_EQ(instance.node, "2");
    EXPECT_EQ(instance.className, "TST_Sensor");
    EXPECT_EQ(instance.path, R"(TST_Sensor.ID="T1",Number=3)");
    EXPECT_EQ(instance.value("NodeID"), nullptr);
    EXPECT_EQ(instance.value("number")->ToString(10), "3");
}

TEST_F(InstancePrinterTest, ATableIsAlignedAndTellsTheNodeFirst) {
    TablePrinter table(text_.output(), schema_, {"ID", "State", "Samples"}, 0);
    table.print(view("T1"));
    table.print(view("Longer", "12"));
    table.end();
    EXPECT_EQ(text_.text(),
              "Node  ID      State   Samples\n"
              "1     T1      2 (OK)  [7, 8]\n"
              "12    Longer  2 (OK)  [7, 8]\n");
}

TEST_F(InstancePrinterTest, ATableIsCutToTheTerminal) {
    TablePrinter table(text_.output(), schema_, {"ID", "State"}, 10);
    table.print(view("T1"));
    table.end();
    EXPECT_EQ(text_.text(), "Node  ID …\n1     T1 …\n");
}

TEST_F(InstancePrinterTest, ALongTableBeginsBeforeItsEnd) {
    TablePrinter table(text_.output(), schema_, {"ID"}, 0);
    for (int i = 0; i < 49; ++i) {
        table.print(view("T"));
    }
    EXPECT_EQ(text_.text(), "");
    table.print(view("T"));
    table.print(view("T"));
    EXPECT_EQ(text_.text().substr(0, 9), "Node  ID\n");
    table.end();
    const std::string text = text_.text();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 52);
}

TEST_F(InstancePrinterTest, AnEmptyTableHasNoHeading) {
    TablePrinter table(text_.output(), schema_, {"ID"}, 0);
    table.end();
    EXPECT_EQ(text_.text(), "");
}

TEST_F(InstancePrinterTest, JsonIsAnArrayOfInstances) {
    JsonPrinter printer(text_.output(), {}, schema_);
    printer.print(view("T1"));
    printer.print(view("T\"2\n", "2"));
    printer.end();
    const auto json = nlohmann::json::parse(text_.text());
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[0]["path"], R"(TST_Sensor.ID="T1",Number=3)");
    EXPECT_EQ(json[0]["class"], "TST_Sensor");
    EXPECT_EQ(json[0]["node"], 1);
    EXPECT_EQ(json[0]["properties"]["Number"], 3);
    EXPECT_EQ(json[0]["properties"]["Samples"], (std::vector<int>{7, 8}));
    EXPECT_TRUE(json[0]["properties"]["Caption"].is_null());
    EXPECT_EQ(json[1]["properties"]["ID"], "T\"2\n");
    EXPECT_EQ(json[1]["properties"].count("NodeID"), 0U);
}

TEST_F(InstancePrinterTest, JsonHasNoNodeWhereNoneIsKnown) {
    JsonPrinter printer(text_.output(), {}, schema_);
    printer.print(view("T", ""));
    printer.end();
    EXPECT_TRUE(nlohmann::json::parse(text_.text())[0]["node"].is_null());
}

TEST_F(InstancePrinterTest, JsonAndCsvHideNothing) {
    const std::string id = "T\xe2\x80\xae\x7f";
    JsonPrinter(text_.output(), {}, schema_).print(view(id));
    EXPECT_NE(text_.text().find(R"("ID": "T\u202e\u007f")"), std::string::npos) << text_.text();
    EXPECT_EQ(nlohmann::json::parse(text_.text() + ']')[0]["properties"]["ID"], id);
    OutputText csv;
    CsvPrinter(csv.output(), schema_, {"ID"}).print(view(id + std::string(1, '\0') + '\n'));
    EXPECT_NE(csv.text().find(",\"T\\u202e\\u007f\\u0000\n\"\r\n"), std::string::npos) << csv.text();
}

TEST_F(InstancePrinterTest, JsonOfNothingIsAnEmptyArray) {
    JsonPrinter printer(text_.output(), {}, schema_);
    printer.end();
    EXPECT_EQ(text_.text(), "[]\n");
}

TEST_F(InstancePrinterTest, JsonGivesTheColumnsOnly) {
    JsonPrinter printer(text_.output(), {"State", "Reading"}, schema_);
    printer.print(view("T1"));
    printer.end();
    const auto json = nlohmann::json::parse(text_.text());
    EXPECT_EQ(json[0]["properties"], (nlohmann::json{{"State", 2}, {"Reading", nullptr}}));
}

TEST_F(InstancePrinterTest, CsvQuotesWhatItMust) {
    EXPECT_EQ(csvField("plain text"), "plain text");
    EXPECT_EQ(csvField("a,b"), "\"a,b\"");
    EXPECT_EQ(csvField("say \"x\""), "\"say \"\"x\"\"\"");
    EXPECT_EQ(csvField("two\nlines"), "\"two\nlines\"");
    EXPECT_EQ(csvField(""), "");
}

TEST_F(InstancePrinterTest, CsvHasAHeadingAndARecordAnInstance) {
    CsvPrinter printer(text_.output(), schema_, {"ID", "Caption", "Samples"});
    printer.print(view("a,b"));
    printer.end();
    EXPECT_EQ(text_.text(),
              "node,path,ID,Caption,Samples\r\n"
              "1,\"TST_Sensor.ID=\"\"a,b\"\",Number=3\",\"a,b\",,\"[7,8]\"\r\n");
}

TEST_F(InstancePrinterTest, CsvWithoutColumnsHasEveryPropertyOfTheChain) {
    CsvPrinter printer(text_.output(), schema_, {});
    printer.print(view("T1"));
    EXPECT_EQ(text_.text().substr(0, text_.text().find('\r')),
              "node,path,Number,Reading,Samples,Caption,ID,State");
}

TEST_F(InstancePrinterTest, CsvOnATerminalIsSafe) {
    OutputText terminal(true);
    CsvPrinter printer(terminal.output(), schema_, {"ID"});
    printer.print(view("\x1b[2J"));
    EXPECT_EQ(terminal.text().find('\x1b'), std::string::npos);
}

}  // namespace tool
