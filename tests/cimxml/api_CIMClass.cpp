#include <Pegasus/Common/CIMClass.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMClass fanClass() {
    CIMClass result(CIMName("CIM_Fan"), CIMName("CIM_CoolingDevice"));
    result.addQualifier(CIMQualifier(CIMName("Description"), CIMValue(String("text"))));
    CIMProperty id(CIMName("DeviceID"), CIMValue(CIMTYPE_STRING, false), 0, CIMName(), CIMName("Origin"));
    id.addQualifier(CIMQualifier(CIMName("Key"), CIMValue(true)));
    result.addProperty(id);
    result.addProperty(CIMProperty(CIMName("Speed"), CIMValue(Uint64(7))));
    result.addMethod(CIMMethod(CIMName("Reset"), CIMTYPE_UINT32));
    return result;
}

CIMClass withQualifier(const char* name, const CIMValue& value) {
    CIMClass result(CIMName("A"));
    result.addQualifier(CIMQualifier(CIMName(name), value));
    return result;
}

}  // namespace

TEST(CIMClass, HoldsWhatItIsMadeOf) {
    const CIMClass c = fanClass();
    EXPECT_FALSE(c.isUninitialized());
    EXPECT_EQ(utf8(c.getClassName().getString()), "CIM_Fan");
    EXPECT_EQ(utf8(c.getSuperClassName().getString()), "CIM_CoolingDevice");
    EXPECT_EQ(utf8(c.getPath().toString()), "CIM_Fan");
    EXPECT_EQ(c.getQualifierCount(), 1u);
    EXPECT_EQ(c.getPropertyCount(), 2u);
    EXPECT_EQ(c.getMethodCount(), 1u);
    EXPECT_TRUE(CIMClass(CIMName("A")).getSuperClassName().isNull());
}

TEST(CIMClass, NeedsAName) {
    expectUninitialized([] { CIMClass{CIMName()}; });
    expectUninitialized([] { CIMConstClass{CIMName()}; });
}

TEST(CIMClass, NullHandleThrowsWhenRead) {
    CIMClass null;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_TRUE(CIMConstClass().isUninitialized());
    Array<CIMName> names;
    expectUninitialized([&] { null.isAssociation(); });
    expectUninitialized([&] { null.isAbstract(); });
    expectUninitialized([&] { null.getClassName(); });
    expectUninitialized([&] { null.getPath(); });
    expectUninitialized([&] { null.setPath(CIMObjectPath(String("A"))); });
    expectUninitialized([&] { null.getSuperClassName(); });
    expectUninitialized([&] { null.setSuperClassName(CIMName("A")); });
    expectUninitialized([&] { null.findQualifier(CIMName("x")); });
    expectUninitialized([&] { null.getQualifier(0); });
    expectUninitialized([&] { null.getQualifierCount(); });
    expectUninitialized([&] { null.addQualifier(CIMQualifier(CIMName("q"), CIMValue())); });
    expectUninitialized([&] { null.removeQualifier(0); });
    expectUninitialized([&] { null.findProperty(CIMName("x")); });
    expectUninitialized([&] { null.getProperty(0); });
    expectUninitialized([&] { null.getPropertyCount(); });
    expectUninitialized([&] { null.addProperty(CIMProperty(CIMName("p"), CIMValue())); });
    expectUninitialized([&] { null.removeProperty(0); });
    expectUninitialized([&] { null.findMethod(CIMName("x")); });
    expectUninitialized([&] { null.getMethod(0); });
    expectUninitialized([&] { null.getMethodCount(); });
    expectUninitialized([&] { null.addMethod(CIMMethod(CIMName("m"), CIMTYPE_UINT8)); });
    expectUninitialized([&] { null.removeMethod(0); });
    expectUninitialized([&] { null.getKeyNames(names); });
    expectUninitialized([&] { null.hasKeys(); });
    expectUninitialized([&] { null.identical(fanClass()); });
    expectUninitialized([&] { fanClass().identical(null); });
    expectUninitialized([&] { null.buildInstance(true, true, CIMPropertyList()); });
    const CIMConstClass constNull;
    expectUninitialized([&] { constNull.getClassName(); });
    expectUninitialized([&] { constNull.getSuperClassName(); });
}

TEST(CIMClass, IsAssociationOrAbstractByTrueQualifiers) {
    EXPECT_TRUE(withQualifier("ASSOCIATION", CIMValue(true)).isAssociation());
    EXPECT_FALSE(withQualifier("Association", CIMValue(false)).isAssociation());
    EXPECT_FALSE(withQualifier("Association", CIMValue(String("TRUE"))).isAssociation());
    EXPECT_FALSE(fanClass().isAssociation());
    EXPECT_TRUE(withQualifier("abstract", CIMValue(true)).isAbstract());
    EXPECT_FALSE(withQualifier("Abstract", CIMValue(false)).isAbstract());
    EXPECT_FALSE(fanClass().isAbstract());
    EXPECT_TRUE(CIMConstClass(withQualifier("Abstract", CIMValue(true))).isAbstract());
}

TEST(CIMClass, ChangesItsSuperClassAndPath) {
    CIMClass c = fanClass();
    c.setSuperClassName(CIMName());
    EXPECT_TRUE(c.getSuperClassName().isNull());
    c.setPath(CIMObjectPath(String("//h1/root:cim_fan")));
    EXPECT_EQ(utf8(c.getPath().toString()), "//h1/root:cim_fan");
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { c.setPath(CIMObjectPath(String("B"))); }),
              "type mismatch");
    expectUninitialized([&] { c.setPath(CIMObjectPath()); });
}

TEST(CIMClass, FindsElementsWithoutRegardToCase) {
    const CIMClass c = fanClass();
    EXPECT_EQ(c.findProperty(CIMName("SPEED")), 1u);
    EXPECT_EQ(c.findMethod(CIMName("RESET")), 0u);
    EXPECT_EQ(c.findQualifier(CIMName("description")), 0u);
    EXPECT_EQ(c.findMethod(CIMName("x")), PEG_NOT_FOUND);
    EXPECT_EQ(utf8(c.getMethod(0).getName().getString()), "Reset");
    EXPECT_EQ(utf8(c.getProperty(1).getName().getString()), "Speed");
    EXPECT_EQ(utf8(c.getQualifier(0).getName().getString()), "Description");
}

TEST(CIMClass, RemovesElements) {
    CIMClass c = fanClass();
    c.removeMethod(0);
    c.removeProperty(0);
    c.removeQualifier(0);
    EXPECT_EQ(c.getMethodCount(), 0u);
    EXPECT_EQ(c.getPropertyCount(), 1u);
    EXPECT_EQ(c.getQualifierCount(), 0u);
    messageThrownBy<IndexOutOfBoundsException>([&] { c.removeMethod(0); });
    messageThrownBy<IndexOutOfBoundsException>([&] { c.getMethod(0); });
    messageThrownBy<IndexOutOfBoundsException>([&] { c.getProperty(1); });
    messageThrownBy<IndexOutOfBoundsException>([&] { c.getQualifier(0); });
}

TEST(CIMClass, RejectsSecondAndNullElements) {
    CIMClass c = fanClass();
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { c.addProperty(CIMProperty(CIMName("speed"), CIMValue())); }),
              "already exists: property \"speed\"");
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { c.addMethod(CIMMethod(CIMName("reset"), CIMTYPE_UINT8)); }),
              "already exists: method \"reset\"");
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { c.addQualifier(CIMQualifier(CIMName("description"), CIMValue())); }),
              "already exists: qualifier \"description\"");
    expectUninitialized([&] { c.addProperty(CIMProperty()); });
    expectUninitialized([&] { c.addMethod(CIMMethod()); });
    expectUninitialized([&] { c.addQualifier(CIMQualifier()); });
}

TEST(CIMClass, ReferencePropertiesNeedAReferenceClass) {
    CIMClass c = fanClass();
    const CIMValue null(CIMTYPE_REFERENCE, false);
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { c.addProperty(CIMProperty(CIMName("r"), null)); }),
              "type mismatch");
    c.addProperty(CIMProperty(CIMName("r"), null, 0, CIMName("CIM_Fan")));
    EXPECT_EQ(c.getPropertyCount(), 3u);
}

TEST(CIMClass, KnowsItsOwnKeys) {
    CIMClass c = fanClass();
    CIMProperty no(CIMName("No"), CIMValue(true));
    no.addQualifier(CIMQualifier(CIMName("Key"), CIMValue(false)));
    CIMProperty null(CIMName("Null"), CIMValue(true));
    null.addQualifier(CIMQualifier(CIMName("Key"), CIMValue(CIMTYPE_BOOLEAN, false)));
    CIMProperty other(CIMName("Other"), CIMValue(true));
    other.addQualifier(CIMQualifier(CIMName("x"), CIMValue(true)));
    other.addQualifier(CIMQualifier(CIMName("KEY"), CIMValue(true)));
    c.addProperty(no).addProperty(null).addProperty(other);
    Array<CIMName> names(1, CIMName("Before"));
    c.getKeyNames(names);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(utf8(names[0].getString()), "DeviceID");
    EXPECT_EQ(utf8(names[1].getString()), "Other");
    EXPECT_TRUE(c.hasKeys());
    EXPECT_FALSE(CIMClass(CIMName("A")).hasKeys());
}

TEST(CIMClass, CopiesShareTheClass) {
    CIMClass original = fanClass();
    const CIMClass copy(original);
    const CIMConstClass constCopy(original);
    CIMConstClass assigned;
    assigned = original;
    original.removeMethod(0);
    EXPECT_EQ(copy.getMethodCount(), 0u);
    EXPECT_EQ(constCopy.getMethodCount(), 0u);
    EXPECT_EQ(assigned.getMethodCount(), 0u);
}

TEST(CIMClass, ClonesAreIndependentDownToTheirElements) {
    const CIMClass original = fanClass();
    CIMClass clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    clone.getMethod(0).setType(CIMTYPE_STRING);
    clone.getProperty(0).removeQualifier(0);
    clone.setSuperClassName(CIMName("A"));
    EXPECT_EQ(original.getMethod(0).getType(), CIMTYPE_UINT32);
    EXPECT_TRUE(original.hasKeys());
    EXPECT_EQ(utf8(original.getSuperClassName().getString()), "CIM_CoolingDevice");
}

TEST(CIMClass, IsIdenticalToOneThatAgreesInAll) {
    const CIMClass c = fanClass();
    EXPECT_TRUE(c.identical(c));
    EXPECT_TRUE(c.identical(fanClass()));
    CIMClass other = fanClass();
    other.setSuperClassName(CIMName("cim_coolingdevice"));
    EXPECT_TRUE(c.identical(other));
    other.setSuperClassName(CIMName("A"));
    EXPECT_FALSE(c.identical(other));
    other = fanClass();
    other.removeMethod(0);
    EXPECT_FALSE(c.identical(other));
    other = fanClass();
    other.getMethod(0).setPropagated(true);
    EXPECT_FALSE(c.identical(other));
    other = fanClass();
    other.getMethod(0).setClassOrigin(CIMName("A"));
    EXPECT_FALSE(c.identical(other));
    other = fanClass();
    other.removeProperty(1);
    EXPECT_FALSE(c.identical(other));
}

TEST(CIMClass, BuildsInstancesOfItself) {
    const CIMClass c = fanClass();
    const CIMInstance bare = c.buildInstance(false, false, CIMPropertyList());
    EXPECT_EQ(utf8(bare.getPath().toString()), "CIM_Fan");
    EXPECT_EQ(bare.getQualifierCount(), 0u);
    ASSERT_EQ(bare.getPropertyCount(), 2u);
    EXPECT_EQ(bare.getProperty(0).getQualifierCount(), 0u);
    EXPECT_TRUE(bare.getProperty(0).getClassOrigin().isNull());
    EXPECT_TRUE(bare.getProperty(1).getValue() == CIMValue(Uint64(7)));

    const CIMInstance full = c.buildInstance(true, true, CIMPropertyList());
    EXPECT_EQ(full.getQualifierCount(), 1u);
    EXPECT_EQ(full.getProperty(0).getQualifierCount(), 1u);
    EXPECT_EQ(utf8(full.getProperty(0).getClassOrigin().getString()), "Origin");

    const CIMInstance some =
        c.buildInstance(true, true, CIMPropertyList(Array<CIMName>(1, CIMName("SPEED"))));
    ASSERT_EQ(some.getPropertyCount(), 1u);
    EXPECT_EQ(utf8(some.getProperty(0).getName().getString()), "Speed");
}

TEST(CIMClass, InstancesItBuildsAreIndependent) {
    const CIMClass c = fanClass();
    CIMInstance instance = c.buildInstance(true, true, CIMPropertyList());
    instance.getProperty(1).setValue(CIMValue(Uint64(8)));
    instance.getQualifier(0).setValue(CIMValue(true));
    EXPECT_TRUE(c.getProperty(1).getValue() == CIMValue(Uint64(7)));
    EXPECT_TRUE(c.getQualifier(0).getValue() == CIMValue(String("text")));
}
