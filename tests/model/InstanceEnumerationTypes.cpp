#include <gtest/gtest.h>

#include <string>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

// The sample machine's class with a property of every type, in the instances that hold the limits.
class InstanceEnumerationTypes : public ModelTest {
protected:
    InstanceEnumerationTypes() : class_(GetClass(Connected(machine_), "OMC_AllTypes")) {}

    Instance InstanceOf(const std::string& id) {
        for (const Instance& instance : InstancesOf(class_)) {
            if (TextOf(instance, "Id") == id) {
                return instance;
            }
        }
        return {};
    }

    TestMachine machine_;
    Class class_;
};

TEST_F(InstanceEnumerationTypes, TheSmallestValuesArriveWithTheirTypes) {
    const Instance smallest = InstanceOf("smallest");
    ASSERT_TRUE(smallest);
    const auto expectValue = [&](const char* name, Type::ECIMType type, const char* text) {
        EXPECT_EQ(ValueOf(smallest, name).GetType(), type) << name;
        EXPECT_EQ(TextOf(smallest, name), text) << name;
    };
    expectValue("BooleanValue", Type::eBoolean, "false");
    expectValue("Uint8Value", Type::eUint8, "0");
    expectValue("Sint8Value", Type::eSint8, "-128");
    expectValue("Uint16Value", Type::eUint16, "0");
    expectValue("Sint16Value", Type::eSint16, "-32768");
    expectValue("Uint32Value", Type::eUint32, "0");
    expectValue("Sint32Value", Type::eSint32, "-2147483648");
    expectValue("Uint64Value", Type::eUint64, "0");
    expectValue("Sint64Value", Type::eSint64, "-9223372036854775808");
    expectValue("Char16Value", Type::eChar16, "65");
    expectValue("StringValue", Type::eString, "");
    expectValue("DatetimeValue", Type::eDateTime, "00000000000000.000000:000");
    EXPECT_LT(ValueOf(smallest, "Real32Value").operator float(), -3.4e38F);
    EXPECT_LT(ValueOf(smallest, "Real64Value").operator double(), -1.79e308);
}

TEST_F(InstanceEnumerationTypes, ArraysArriveWithTheTypeOfTheirElements) {
    const Instance smallest = InstanceOf("smallest");
    ASSERT_TRUE(smallest);
    const auto expectArray = [&](const char* name, Type::ECIMType type, const char* text) {
        EXPECT_TRUE(ValueOf(smallest, name).IsArray()) << name;
        EXPECT_EQ(ValueOf(smallest, name).GetType(), type) << name;
        EXPECT_EQ(TextOf(smallest, name), text) << name;
    };
    expectArray("BooleanArray", Type::eBoolean, "false,true,true");
    expectArray("Uint8Array", Type::eUint8, "0,42,255");
    expectArray("Sint16Array", Type::eSint16, "-32768,-1234,32767");
    expectArray("Uint64Array", Type::eUint64, "0,12345678901,18446744073709551615");
    expectArray("Char16Array", Type::eChar16, "65,120,8364");
}

TEST_F(InstanceEnumerationTypes, AnEmbeddedObjectHasNoHostValue) {
    const Instance smallest = InstanceOf("smallest");
    ASSERT_TRUE(smallest);
    EXPECT_TRUE(ValueOf(smallest, "EmbeddedValue").IsNull());
    EXPECT_EQ(class_->GetPropertyDecl("EmbeddedValue", TContext())->GetType(TContext()), Type::eUnknown);
}

TEST_F(InstanceEnumerationTypes, NoPropertyOfAnyInstanceIsLost) {
    log_.Clear();
    EXPECT_FALSE(InstancesOf(class_).empty());
    EXPECT_EQ(log_.LinesWith("4TCimHTTPClass::EnumerateInstances"), Lines{});
}

}  // namespace
}  // namespace NQELVSK20
