#include "cimom/methods/SystemMethods.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SampleNameSpace.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::named;
using test::valueXml;

const char* const kSystem = "OMC_UnitaryComputerSystem";

class SystemMethodsTest : public testing::Test {
protected:
    std::string request(const test::Arguments& arguments) {
        const auto result = space_.invoke("RequestStateChange", space_.pathOf(kSystem), arguments);
        EXPECT_TRUE(named(result, "Job"));
        EXPECT_FALSE(named(result, "Job").first_child());
        return result.child("RETURNVALUE").child_value("VALUE");
    }

    test::SampleNameSpace space_;
};

TEST_F(SystemMethodsTest, ChangesStatesThatOthersThenSee) {
    EXPECT_EQ(request({{"RequestedState", valueXml("3")},
                       {"TimeoutPeriod", valueXml("00000000000010.000000:000")}}),
              "0");
    EXPECT_EQ(space_.valueOf(kSystem, 0, "RequestedState"), "3");
    EXPECT_EQ(space_.valueOf(kSystem, 0, "EnabledState"), "3");
    EXPECT_EQ(request({{"RequestedState", valueXml("11")}}), "0");
    EXPECT_EQ(space_.valueOf(kSystem, 0, "RequestedState"), "11");
    EXPECT_EQ(space_.valueOf(kSystem, 0, "EnabledState"), "2");
}

TEST_F(SystemMethodsTest, RefusesStatesThatItDoesNotOffer) {
    EXPECT_EQ(request({{"RequestedState", valueXml("9")}}), "4097");
    EXPECT_EQ(request({}), "5");
    EXPECT_EQ(space_.valueOf(kSystem, 0, "EnabledState"), "2");
}

TEST_F(SystemMethodsTest, NeedsAnInstance) {
    EXPECT_EQ(test::errorOf([&] {
                  space_.invoke("RequestStateChange", test::classNameXml(kSystem),
                                {{"RequestedState", valueXml("2")}});
              }),
              4);
}

TEST_F(SystemMethodsTest, DeclaresAPowerMethodThatIsNotAvailable) {
    EXPECT_EQ(test::errorOf([&] { space_.invoke("SetPowerState", space_.pathOf(kSystem), {}); }), 16);
}

}  // namespace
}  // namespace cimom
