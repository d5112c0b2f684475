#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMProperty property() {
    CIMProperty result(CIMName("Speed"), CIMValue(Uint32(1200)), 0, CIMName(), CIMName("CIM_Fan"), true);
    result.addQualifier(CIMQualifier(CIMName("Units"), CIMValue(String("RPM"))));
    return result;
}

CIMValue twoNumbers() {
    return CIMValue(Array<Uint8>(2, Uint8(1)));
}

}  // namespace

TEST(CIMProperty, HoldsWhatItIsMadeOf) {
    const CIMProperty p = property();
    EXPECT_EQ(utf8(p.getName().getString()), "Speed");
    EXPECT_TRUE(p.getValue() == CIMValue(Uint32(1200)));
    EXPECT_EQ(p.getType(), CIMTYPE_UINT32);
    EXPECT_FALSE(p.isArray());
    EXPECT_EQ(p.getArraySize(), 0u);
    EXPECT_TRUE(p.getReferenceClassName().isNull());
    EXPECT_EQ(utf8(p.getClassOrigin().getString()), "CIM_Fan");
    EXPECT_TRUE(p.getPropagated());
    EXPECT_EQ(p.getQualifierCount(), 1u);
    EXPECT_FALSE(p.isUninitialized());
}

TEST(CIMProperty, HasDefaults) {
    const CIMProperty p(CIMName("p"), CIMValue(true));
    EXPECT_TRUE(p.getClassOrigin().isNull());
    EXPECT_FALSE(p.getPropagated());
    EXPECT_EQ(p.getQualifierCount(), 0u);
}

TEST(CIMProperty, NeedsAName) {
    expectUninitialized([] { CIMProperty(CIMName(), CIMValue(true)); });
    expectUninitialized([] { CIMConstProperty(CIMName(), CIMValue(true)); });
    CIMProperty p = property();
    expectUninitialized([&] { p.setName(CIMName()); });
}

TEST(CIMProperty, FixedSizeMustBeThatOfTheArray) {
    EXPECT_EQ(CIMProperty(CIMName("p"), twoNumbers(), 2).getArraySize(), 2u);
    EXPECT_EQ(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_UINT8, true, 3), 3).getArraySize(), 3u);
    expectTypeMismatch([] { CIMProperty(CIMName("p"), twoNumbers(), 3); });
    expectTypeMismatch([] { CIMProperty(CIMName("p"), CIMValue(Uint8(1)), 1); });
    expectTypeMismatch([] { CIMProperty(CIMName("p"), CIMValue(CIMTYPE_UINT8, true), 3); });
}

TEST(CIMProperty, IsNoArrayOfReferences) {
    expectTypeMismatch([] { CIMProperty(CIMName("p"), CIMValue(CIMTYPE_REFERENCE, true)); });
}

TEST(CIMProperty, OnlyReferencesHaveAReferenceClass) {
    const CIMProperty p(CIMName("p"), CIMValue(CIMTYPE_REFERENCE, false), 0, CIMName("CIM_Fan"));
    EXPECT_EQ(utf8(p.getReferenceClassName().getString()), "CIM_Fan");
    expectTypeMismatch([] { CIMProperty(CIMName("p"), CIMValue(Uint8(1)), 0, CIMName("CIM_Fan")); });
}

TEST(CIMProperty, NullHandleThrowsWhenRead) {
    CIMProperty null;
    const CIMConstProperty constNull;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_TRUE(constNull.isUninitialized());
    expectUninitialized([&] { null.getName(); });
    expectUninitialized([&] { null.getValue(); });
    expectUninitialized([&] { null.getType(); });
    expectUninitialized([&] { null.isArray(); });
    expectUninitialized([&] { null.getArraySize(); });
    expectUninitialized([&] { null.getReferenceClassName(); });
    expectUninitialized([&] { null.getClassOrigin(); });
    expectUninitialized([&] { null.getPropagated(); });
    expectUninitialized([&] { null.findQualifier(CIMName("x")); });
    expectUninitialized([&] { null.getQualifier(0); });
    expectUninitialized([&] { null.getQualifierCount(); });
    expectUninitialized([&] { null.setName(CIMName("x")); });
    expectUninitialized([&] { null.setValue(CIMValue()); });
    expectUninitialized([&] { null.setClassOrigin(CIMName()); });
    expectUninitialized([&] { null.setPropagated(true); });
    expectUninitialized([&] { null.addQualifier(CIMQualifier(CIMName("q"), CIMValue())); });
    expectUninitialized([&] { null.removeQualifier(0); });
    expectUninitialized([&] { null.identical(property()); });
    expectUninitialized([&] { property().identical(null); });
    expectUninitialized([&] { constNull.getValue(); });
}

TEST(CIMProperty, TakesValuesOfItsTypeOnly) {
    CIMProperty p = property();
    p.setValue(CIMValue(Uint32(7)));
    p.setValue(CIMValue(CIMTYPE_UINT32, false));
    EXPECT_TRUE(p.getValue().isNull());
    expectTypeMismatch([&] { p.setValue(CIMValue(Uint16(7))); });
    expectTypeMismatch([&] { p.setValue(CIMValue(CIMTYPE_UINT32, true)); });
    expectTypeMismatch([&] { p.setValue(CIMValue()); });
    CIMProperty fixed(CIMName("p"), twoNumbers(), 2);
    fixed.setValue(CIMValue(Array<Uint8>(2, Uint8(9))));
    expectTypeMismatch([&] { fixed.setValue(CIMValue(Array<Uint8>(3, Uint8(9)))); });
    CIMProperty free(CIMName("p"), twoNumbers());
    free.setValue(CIMValue(Array<Uint8>(3, Uint8(9))));
    EXPECT_EQ(free.getValue().getArraySize(), 3u);
}

TEST(CIMProperty, ChangesOtherParts) {
    CIMProperty p = property();
    p.setName(CIMName("Other"));
    p.setClassOrigin(CIMName());
    p.setPropagated(false);
    EXPECT_EQ(utf8(p.getName().getString()), "Other");
    EXPECT_TRUE(p.getClassOrigin().isNull());
    EXPECT_FALSE(p.getPropagated());
}

TEST(CIMProperty, FindsQualifiersWithoutRegardToCase) {
    CIMProperty p = property();
    p.addQualifier(CIMQualifier(CIMName("Key"), CIMValue(true)))
        .addQualifier(CIMQualifier(CIMName("MaxLen"), CIMValue(Uint32(8))));
    EXPECT_EQ(p.getQualifierCount(), 3u);
    EXPECT_EQ(p.findQualifier(CIMName("UNITS")), 0u);
    EXPECT_EQ(p.findQualifier(CIMName("maxlen")), 2u);
    EXPECT_EQ(p.findQualifier(CIMName("Max")), PEG_NOT_FOUND);
    EXPECT_EQ(utf8(p.getQualifier(1).getName().getString()), "Key");
    const CIMProperty& reader = p;
    EXPECT_EQ(utf8(reader.getQualifier(2).getName().getString()), "MaxLen");
    p.removeQualifier(1);
    EXPECT_EQ(p.findQualifier(CIMName("MaxLen")), 1u);
    EXPECT_EQ(p.findQualifier(CIMName("Key")), PEG_NOT_FOUND);
}

TEST(CIMProperty, QualifierIndexBeyondTheEndIsOutOfBounds) {
    CIMProperty p = property();
    const CIMProperty& reader = p;
    expectOutOfBounds([&] { p.getQualifier(1); });
    expectOutOfBounds([&] { reader.getQualifier(1); });
    expectOutOfBounds([&] { p.removeQualifier(1); });
    expectOutOfBounds([&] { p.getQualifier(PEG_NOT_FOUND); });
}

TEST(CIMProperty, RejectsSecondAndNullQualifiers) {
    CIMProperty p = property();
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { p.addQualifier(CIMQualifier(CIMName("UNITS"), CIMValue(true))); }),
              "already exists: qualifier \"UNITS\"");
    expectUninitialized([&] { p.addQualifier(CIMQualifier()); });
    EXPECT_EQ(p.getQualifierCount(), 1u);
}

TEST(CIMProperty, QualifiersReadFromItAreShared) {
    CIMProperty p = property();
    p.getQualifier(0).setValue(CIMValue(String("Hz")));
    EXPECT_TRUE(p.getQualifier(0).getValue() == CIMValue(String("Hz")));
}

TEST(CIMProperty, CopiesShareTheProperty) {
    CIMProperty original = property();
    const CIMProperty copy(original);
    const CIMConstProperty constCopy(original);
    CIMConstProperty assigned;
    assigned = original;
    original.setValue(CIMValue(Uint32(7)));
    original.removeQualifier(0);
    EXPECT_TRUE(copy.getValue() == CIMValue(Uint32(7)));
    EXPECT_EQ(constCopy.getQualifierCount(), 0u);
    EXPECT_TRUE(assigned.getValue() == CIMValue(Uint32(7)));
}

TEST(CIMProperty, ClonesAreIndependentDownToTheirQualifiers) {
    const CIMProperty original = property();
    CIMProperty clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    clone.setValue(CIMValue(Uint32(7)));
    clone.getQualifier(0).setValue(CIMValue(String("Hz")));
    EXPECT_TRUE(original.getValue() == CIMValue(Uint32(1200)));
    EXPECT_TRUE(original.getQualifier(0).getValue() == CIMValue(String("RPM")));
}

TEST(CIMProperty, IsIdenticalToOneThatAgreesInAll) {
    const CIMProperty p = property();
    CIMProperty other = p.clone();
    other.setName(CIMName("SPEED"));
    other.setClassOrigin(CIMName("cim_fan"));
    EXPECT_TRUE(p.identical(other));
    other.setPropagated(false);
    EXPECT_FALSE(p.identical(other));
    other = p.clone();
    other.setValue(CIMValue(Uint32(7)));
    EXPECT_FALSE(p.identical(other));
    other = p.clone();
    other.setClassOrigin(CIMName());
    EXPECT_FALSE(p.identical(other));
    other = p.clone();
    other.removeQualifier(0);
    EXPECT_FALSE(p.identical(other));
    other = p.clone();
    other.setName(CIMName("Other"));
    EXPECT_FALSE(p.identical(other));
}

TEST(CIMProperty, KeepsItsNameWhileItBelongsToAnObject) {
    CIMProperty p = property();
    {
        CIMInstance instance(CIMName("A"));
        instance.addProperty(p);
        EXPECT_EQ(messageThrownBy([&] { p.setName(CIMName("Other")); }),
                  "Attempted to change the name of a property already in a container.");
        p.setName(CIMName("SPEED"));
        p.clone().setName(CIMName("Other"));
        instance.removeProperty(0);
        p.setName(CIMName("Other"));
        instance.addProperty(p);
    }
    p.setName(CIMName("Last"));
    EXPECT_EQ(utf8(p.getName().getString()), "Last");
}
