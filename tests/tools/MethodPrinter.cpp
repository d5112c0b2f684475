#include "tools/print/MethodPrinter.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/tools/support/OutputText.h"
#include "tests/tools/support/Sensors.h"

namespace tool {

namespace {

using namespace NQELVSK20;

/// What TST_Sensor.Calibrate returned, printed.
class MethodPrinterTest : public ::testing::Test {
protected:
    MethodPrinterTest() {
        Qualify(method_, "ValueMap", texts({TCIMValue("0"), TCIMValue("2")}));
        Qualify(method_, "Values", texts({TCIMValue("Calibrated"), TCIMValue("Too Cold")}));
    }

    static TCIMValue texts(const std::vector<TCIMValue>& elements) {
        return TCIMValue(TCIMValue::TCIMType::eString, 0, elements);
    }
    MethodPrinter printer() { return {output_.output(), valuesOf(qualifiersOf(*method_))}; }

    Sensors sensors_;
    boost::shared_ptr<ICIMMethodDecl> method_ = sensors_.schema().findMethod("Calibrate")->declaration;
    OutputText output_;
};

}  // namespace

TEST_F(MethodPrinterTest, WritesTheMeaningBesideTheReturnValue) {
    printer().printText(TCIMValue(2U), {{"Offset", TCIMValue(7U)}});
    EXPECT_EQ(output_.text(), "return value  2 (Too Cold)\nOffset        7\n");
}

TEST_F(MethodPrinterTest, AValueWithoutMeaningStandsAlone) {
    printer().printText(TCIMValue(3U), {});
    EXPECT_EQ(output_.text(), "return value  3\n");
}

TEST_F(MethodPrinterTest, WritesTheMeaningInJsonWhereThereIsOne) {
    printer().printJson(TCIMValue(2U), {{"Offset", TCIMValue(7U)}});
    EXPECT_EQ(nlohmann::json::parse(output_.text()),
              nlohmann::json::parse(
                  R"({"returnValue": 2, "returnMeaning": "Too Cold", "outputs": {"Offset": 7}})"));
    OutputText other;
    MethodPrinter(other.output(), valuesOf(qualifiersOf(*method_))).printJson(TCIMValue(3U), {});
    EXPECT_EQ(nlohmann::json::parse(other.text()),
              nlohmann::json::parse(R"({"returnValue": 3, "outputs": {}})"));
}

}  // namespace tool
