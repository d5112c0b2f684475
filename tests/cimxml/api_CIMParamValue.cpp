#include <Pegasus/Common/CIMParamValue.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(CIMParamValue, HoldsWhatItIsMadeOf) {
    const CIMParamValue p(String("Speed"), CIMValue(Uint32(7)), false);
    EXPECT_EQ(utf8(p.getParameterName()), "Speed");
    EXPECT_TRUE(p.getValue() == CIMValue(Uint32(7)));
    EXPECT_FALSE(p.isTyped());
    EXPECT_FALSE(p.isUninitialized());
    EXPECT_TRUE(CIMParamValue(String("x"), CIMValue()).isTyped());
}

TEST(CIMParamValue, NeedsAName) {
    expectUninitialized([] { CIMParamValue(String(), CIMValue()); });
    CIMParamValue p(String("x"), CIMValue());
    String empty;
    expectUninitialized([&] { p.setParameterName(empty); });
}

TEST(CIMParamValue, NameNeedNotBeACimName) {
    EXPECT_EQ(utf8(CIMParamValue(String("not a name"), CIMValue()).getParameterName()), "not a name");
}

TEST(CIMParamValue, NullHandleThrowsWhenRead) {
    CIMParamValue null;
    String name("x");
    CIMValue value;
    EXPECT_TRUE(null.isUninitialized());
    expectUninitialized([&] { null.getParameterName(); });
    expectUninitialized([&] { null.getValue(); });
    expectUninitialized([&] { null.isTyped(); });
    expectUninitialized([&] { null.setParameterName(name); });
    expectUninitialized([&] { null.setValue(value); });
    expectUninitialized([&] { null.setIsTyped(true); });
    expectUninitialized([&] { null.clone(); });
}

TEST(CIMParamValue, CopiesShareAndClonesDoNot) {
    CIMParamValue original(String("x"), CIMValue(Uint32(7)));
    const CIMParamValue copy(original);
    const CIMParamValue clone = original.clone();
    String name("y");
    CIMValue value(String("text"));
    original.setParameterName(name);
    original.setValue(value);
    original.setIsTyped(false);
    EXPECT_EQ(utf8(copy.getParameterName()), "y");
    EXPECT_TRUE(copy.getValue() == value);
    EXPECT_FALSE(copy.isTyped());
    EXPECT_EQ(utf8(clone.getParameterName()), "x");
    EXPECT_TRUE(clone.getValue() == CIMValue(Uint32(7)));
    EXPECT_TRUE(clone.isTyped());
}

TEST(CIMParamValue, FormsArrays) {
    Array<CIMParamValue> arguments;
    arguments.append(CIMParamValue(String("a"), CIMValue(true)));
    arguments.append(CIMParamValue(String("b"), CIMValue(CIMTYPE_STRING, true)));
    EXPECT_EQ(utf8(arguments[1].getParameterName()), "b");
    EXPECT_TRUE(arguments[1].getValue().isNull());
}
