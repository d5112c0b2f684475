#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMParameter parameter() {
    CIMParameter result(CIMName("Speed"), CIMTYPE_UINT32);
    result.addQualifier(CIMQualifier(CIMName("In"), CIMValue(true)));
    return result;
}

}  // namespace

TEST(CIMParameter, HoldsWhatItIsMadeOf) {
    const CIMParameter p(CIMName("p"), CIMTYPE_STRING, true, 3);
    EXPECT_EQ(utf8(p.getName().getString()), "p");
    EXPECT_EQ(p.getType(), CIMTYPE_STRING);
    EXPECT_TRUE(p.isArray());
    EXPECT_EQ(p.getArraySize(), 3u);
    EXPECT_TRUE(p.getReferenceClassName().isNull());
    EXPECT_FALSE(parameter().isArray());
}

TEST(CIMParameter, ReferencesHaveAReferenceClassAndNoOneElse) {
    const CIMParameter p(CIMName("p"), CIMTYPE_REFERENCE, true, 0, CIMName("CIM_Fan"));
    EXPECT_EQ(utf8(p.getReferenceClassName().getString()), "CIM_Fan");
    expectTypeMismatch([] { CIMParameter(CIMName("p"), CIMTYPE_REFERENCE); });
    expectTypeMismatch([] { CIMParameter(CIMName("p"), CIMTYPE_UINT8, false, 0, CIMName("CIM_Fan")); });
}

TEST(CIMParameter, OnlyArraysHaveASize) {
    expectTypeMismatch([] { CIMParameter(CIMName("p"), CIMTYPE_UINT8, false, 3); });
}

TEST(CIMParameter, NeedsAName) {
    expectUninitialized([] { CIMParameter(CIMName(), CIMTYPE_UINT8); });
    CIMParameter p = parameter();
    expectUninitialized([&] { p.setName(CIMName()); });
}

TEST(CIMParameter, NullHandleThrowsWhenRead) {
    CIMParameter null;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_TRUE(CIMConstParameter().isUninitialized());
    expectUninitialized([&] { null.getName(); });
    expectUninitialized([&] { null.getType(); });
    expectUninitialized([&] { null.isArray(); });
    expectUninitialized([&] { null.getArraySize(); });
    expectUninitialized([&] { null.getReferenceClassName(); });
    expectUninitialized([&] { null.findQualifier(CIMName("x")); });
    expectUninitialized([&] { null.getQualifier(0); });
    expectUninitialized([&] { null.getQualifierCount(); });
    expectUninitialized([&] { null.setName(CIMName("x")); });
    expectUninitialized([&] { null.addQualifier(CIMQualifier(CIMName("q"), CIMValue())); });
    expectUninitialized([&] { null.removeQualifier(0); });
    expectUninitialized([&] { parameter().identical(null); });
}

TEST(CIMParameter, HoldsQualifiers) {
    CIMParameter p = parameter();
    p.addQualifier(CIMQualifier(CIMName("Out"), CIMValue(true)));
    EXPECT_EQ(p.getQualifierCount(), 2u);
    EXPECT_EQ(p.findQualifier(CIMName("OUT")), 1u);
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { p.addQualifier(CIMQualifier(CIMName("in"), CIMValue(true))); }),
              "already exists: qualifier \"in\"");
    p.removeQualifier(0);
    EXPECT_EQ(p.findQualifier(CIMName("In")), PEG_NOT_FOUND);
    const CIMParameter& reader = p;
    EXPECT_EQ(utf8(reader.getQualifier(0).getName().getString()), "Out");
    messageThrownBy<IndexOutOfBoundsException>([&] { p.getQualifier(1); });
    messageThrownBy<IndexOutOfBoundsException>([&] { p.removeQualifier(1); });
}

TEST(CIMParameter, CopiesShareAndClonesDoNot) {
    CIMParameter original = parameter();
    const CIMConstParameter copy(original);
    CIMParameter clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    clone.getQualifier(0).setValue(CIMValue(false));
    original.setName(CIMName("Other"));
    EXPECT_EQ(utf8(copy.getName().getString()), "Other");
    EXPECT_EQ(utf8(clone.getName().getString()), "Speed");
    EXPECT_TRUE(copy.getQualifier(0).getValue() == CIMValue(true));
}

TEST(CIMParameter, IsIdenticalToOneThatAgreesInNameTypeReferenceClassAndQualifiers) {
    const CIMName name("p");
    const CIMParameter p(name, CIMTYPE_UINT8);
    EXPECT_TRUE(p.identical(CIMParameter(CIMName("P"), CIMTYPE_UINT8)));
    EXPECT_TRUE(p.identical(CIMParameter(name, CIMTYPE_UINT8, true, 3)));
    EXPECT_FALSE(p.identical(CIMParameter(name, CIMTYPE_UINT16)));
    EXPECT_FALSE(p.identical(CIMParameter(CIMName("q"), CIMTYPE_UINT8)));
    EXPECT_FALSE(CIMParameter(name, CIMTYPE_REFERENCE, false, 0, CIMName("A"))
                     .identical(CIMParameter(name, CIMTYPE_REFERENCE, false, 0, CIMName("B"))));
    CIMParameter qualified = p.clone();
    qualified.addQualifier(CIMQualifier(CIMName("In"), CIMValue(true)));
    EXPECT_FALSE(p.identical(qualified));
}

TEST(CIMParameter, KeepsItsNameWhileItBelongsToAMethod) {
    CIMParameter p = parameter();
    CIMMethod method(CIMName("m"), CIMTYPE_UINT32);
    method.addParameter(p);
    EXPECT_EQ(messageThrownBy([&] { p.setName(CIMName("Other")); }),
              "Attempted to change the name of a parameter already in a container.");
    method.removeParameter(0);
    p.setName(CIMName("Other"));
    EXPECT_EQ(utf8(p.getName().getString()), "Other");
}
