#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMInstance fan() {
    CIMInstance result{CIMName("CIM_Fan")};
    result.addProperty(CIMProperty(CIMName("DeviceID"), CIMValue(String("fan\"1"))));
    result.addProperty(CIMProperty(CIMName("Speed"), CIMValue(Uint64(1200))));
    return result;
}

CIMProperty keyProperty(const char* name, const CIMValue& value) {
    CIMProperty result(CIMName(name), value);
    result.addQualifier(CIMQualifier(CIMName("KEY"), CIMValue(true)));
    return result;
}

}  // namespace

TEST(CIMInstance, HasClassNameAndPathOfItsClass) {
    const CIMInstance i = fan();
    EXPECT_FALSE(i.isUninitialized());
    EXPECT_EQ(utf8(i.getClassName().getString()), "CIM_Fan");
    EXPECT_EQ(utf8(i.getPath().toString()), "CIM_Fan");
    EXPECT_EQ(i.getPropertyCount(), 2u);
    EXPECT_EQ(i.getQualifierCount(), 0u);
}

TEST(CIMInstance, NeedsAClassName) {
    expectUninitialized([] { CIMInstance{CIMName()}; });
    expectUninitialized([] { CIMConstInstance{CIMName()}; });
}

TEST(CIMInstance, NullHandleThrowsWhenRead) {
    CIMInstance null;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_TRUE(CIMConstInstance().isUninitialized());
    expectUninitialized([&] { null.getClassName(); });
    expectUninitialized([&] { null.getPath(); });
    expectUninitialized([&] { null.setPath(CIMObjectPath(String("A"))); });
    expectUninitialized([&] { null.findQualifier(CIMName("x")); });
    expectUninitialized([&] { null.getQualifier(0); });
    expectUninitialized([&] { null.getQualifierCount(); });
    expectUninitialized([&] { null.findProperty(CIMName("x")); });
    expectUninitialized([&] { null.getProperty(0); });
    expectUninitialized([&] { null.getPropertyCount(); });
    expectUninitialized([&] { null.addProperty(CIMProperty(CIMName("p"), CIMValue())); });
    expectUninitialized([&] { null.addQualifier(CIMQualifier(CIMName("q"), CIMValue())); });
    expectUninitialized([&] { null.removeProperty(0); });
    expectUninitialized([&] { null.removeQualifier(0); });
    expectUninitialized([&] { null.buildPath(CIMClass(CIMName("A"))); });
    expectUninitialized([&] { null.identical(fan()); });
    expectUninitialized([&] { fan().identical(null); });
    const CIMConstInstance constNull;
    expectUninitialized([&] { constNull.getProperty(0); });
}

TEST(CIMInstance, FindsPropertiesWithoutRegardToCase) {
    const CIMInstance i = fan();
    EXPECT_EQ(i.findProperty(CIMName("SPEED")), 1u);
    EXPECT_EQ(i.findProperty(CIMName("deviceid")), 0u);
    EXPECT_EQ(i.findProperty(CIMName("Spee")), PEG_NOT_FOUND);
    EXPECT_EQ(i.findProperty(CIMName()), PEG_NOT_FOUND);
}

TEST(CIMInstance, FindsEachOfManyProperties) {
    CIMInstance i{CIMName("A")};
    for (int n = 0; n < 200; ++n)
        i.addProperty(CIMProperty(CIMName(("Property" + std::to_string(n)).c_str()), CIMValue(Sint32(n))));
    for (int n = 0; n < 200; ++n)
        ASSERT_EQ(i.findProperty(CIMName(("pROPERTY" + std::to_string(n)).c_str())), Uint32(n));
    for (int n = 199; n >= 0; n -= 2)
        i.removeProperty(Uint32(n));
    EXPECT_EQ(i.getPropertyCount(), 100u);
    EXPECT_EQ(i.findProperty(CIMName("Property198")), 99u);
    EXPECT_EQ(i.findProperty(CIMName("Property199")), PEG_NOT_FOUND);
}

CIMProperty numbered(const char* name, int number) {
    return CIMProperty(CIMName((name + std::to_string(number)).c_str()), CIMValue(Sint32(number)));
}

// More than any server has: those are searched otherwise.
TEST(CIMInstance, FindsEachOfAThousandPropertiesAndRefusesASecondOne) {
    CIMInstance i{CIMName("A")};
    for (int n = 0; n < 1000; ++n) {
        i.addProperty(numbered("Property", n));
    }
    for (const int n : {0, 255, 256, 257, 999}) {
        EXPECT_EQ(i.findProperty(CIMName(("pROPERTY" + std::to_string(n)).c_str())), Uint32(n));
        EXPECT_THROW(i.addProperty(numbered("propertY", n)), AlreadyExistsException) << n;
    }
    EXPECT_EQ(i.findProperty(CIMName("Property1000")), PEG_NOT_FOUND);
    EXPECT_EQ(i.getPropertyCount(), 1000u);

    i.removeProperty(300);
    EXPECT_EQ(i.findProperty(CIMName("Property299")), 299u);
    EXPECT_EQ(i.findProperty(CIMName("Property300")), PEG_NOT_FOUND);
    EXPECT_EQ(i.findProperty(CIMName("Property999")), 998u);
    i.addProperty(numbered("Property", 300));
    EXPECT_EQ(i.findProperty(CIMName("Property300")), 999u);
    EXPECT_EQ(i.findProperty(CIMName("Property999")), 998u);

    CIMInstance other = i.clone();
    EXPECT_EQ(other.findProperty(CIMName("Property999")), 998u);
    EXPECT_THROW(other.addProperty(numbered("Property", 5)), AlreadyExistsException);
    other.addProperty(numbered("Property", 1000));
    EXPECT_EQ(other.findProperty(CIMName("property1000")), 1000u);
    EXPECT_EQ(i.findProperty(CIMName("Property1000")), PEG_NOT_FOUND);
}

TEST(CIMInstance, RejectsSecondAndNullElements) {
    CIMInstance i = fan();
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { i.addProperty(CIMProperty(CIMName("SPEED"), CIMValue())); }),
              "already exists: property \"SPEED\"");
    i.addQualifier(CIMQualifier(CIMName("q"), CIMValue()));
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { i.addQualifier(CIMQualifier(CIMName("Q"), CIMValue())); }),
              "already exists: qualifier \"Q\"");
    expectUninitialized([&] { i.addProperty(CIMProperty()); });
    expectUninitialized([&] { i.addQualifier(CIMQualifier()); });
    EXPECT_EQ(i.getPropertyCount(), 2u);
}

TEST(CIMInstance, IndexBeyondTheEndIsOutOfBounds) {
    CIMInstance i = fan();
    const CIMInstance& reader = i;
    EXPECT_EQ(messageThrownBy<IndexOutOfBoundsException>([&] { i.getProperty(2); }), "index out of bounds");
    messageThrownBy<IndexOutOfBoundsException>([&] { reader.getProperty(2); });
    messageThrownBy<IndexOutOfBoundsException>([&] { i.removeProperty(2); });
    messageThrownBy<IndexOutOfBoundsException>([&] { i.getQualifier(0); });
    messageThrownBy<IndexOutOfBoundsException>([&] { i.removeQualifier(0); });
    messageThrownBy<IndexOutOfBoundsException>([&] { i.getProperty(PEG_NOT_FOUND); });
}

TEST(CIMInstance, SharesThePropertiesThatAreAdded) {
    CIMProperty p(CIMName("p"), CIMValue(Uint8(1)));
    CIMInstance i{CIMName("A")};
    i.addProperty(p);
    p.setValue(CIMValue(Uint8(2)));
    EXPECT_TRUE(i.getProperty(0).getValue() == CIMValue(Uint8(2)));
    i.getProperty(0).setValue(CIMValue(Uint8(3)));
    EXPECT_TRUE(p.getValue() == CIMValue(Uint8(3)));
    i.removeProperty(0);
    EXPECT_TRUE(p.getValue() == CIMValue(Uint8(3)));
}

TEST(CIMInstance, TakesPathsOfItsClass) {
    CIMInstance i = fan();
    i.setPath(CIMObjectPath(String("//h1/root:cim_FAN.DeviceID=\"1\"")));
    EXPECT_EQ(utf8(i.getPath().toString()), "//h1/root:cim_FAN.DeviceID=\"1\"");
    EXPECT_EQ(utf8(i.getClassName().getString()), "cim_FAN");
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { i.setPath(CIMObjectPath(String("CIM_Sensor"))); }),
              "type mismatch");
    expectUninitialized([&] { i.setPath(CIMObjectPath()); });
    EXPECT_EQ(utf8(i.getClassName().getString()), "cim_FAN");
}

TEST(CIMInstance, CopiesShareTheInstance) {
    CIMInstance original = fan();
    const CIMInstance copy(original);
    const CIMConstInstance constCopy(original);
    CIMConstInstance assigned;
    assigned = original;
    original.removeProperty(0);
    EXPECT_EQ(copy.getPropertyCount(), 1u);
    EXPECT_EQ(constCopy.getPropertyCount(), 1u);
    EXPECT_EQ(assigned.getPropertyCount(), 1u);
    CIMInstance& same = original;
    original = same;
    EXPECT_EQ(original.getPropertyCount(), 1u);
}

TEST(CIMInstance, ClonesAreIndependentDownToTheirProperties) {
    const CIMInstance original = fan();
    CIMInstance clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    clone.getProperty(1).setValue(CIMValue(Uint64(7)));
    clone.setPath(CIMObjectPath(String("root:CIM_Fan")));
    clone.addQualifier(CIMQualifier(CIMName("q"), CIMValue()));
    EXPECT_TRUE(original.getProperty(1).getValue() == CIMValue(Uint64(1200)));
    EXPECT_EQ(utf8(original.getPath().toString()), "CIM_Fan");
    EXPECT_EQ(original.getQualifierCount(), 0u);
}

TEST(CIMInstance, IsIdenticalToOneThatAgreesInAll) {
    const CIMInstance i = fan();
    EXPECT_TRUE(i.identical(i));
    EXPECT_TRUE(i.identical(fan()));
    CIMInstance other = fan();
    other.setPath(CIMObjectPath(String("root:CIM_Fan")));
    EXPECT_FALSE(i.identical(other));
    other = fan();
    other.removeProperty(1);
    EXPECT_FALSE(i.identical(other));
    other = fan();
    other.getProperty(1).setValue(CIMValue(Uint64(7)));
    EXPECT_FALSE(i.identical(other));
    other = fan();
    other.addQualifier(CIMQualifier(CIMName("q"), CIMValue()));
    EXPECT_FALSE(i.identical(other));
    CIMInstance reordered{CIMName("CIM_Fan")};
    reordered.addProperty(i.clone().getProperty(1));
    reordered.addProperty(i.clone().getProperty(0));
    EXPECT_FALSE(i.identical(reordered));
}

TEST(CIMInstance, BuildsItsPathFromTheClassesKeys) {
    CIMClass cimClass(CIMName("CIM_Fan"));
    cimClass.addProperty(keyProperty("Speed", CIMValue(CIMTYPE_UINT64, false)));
    cimClass.addProperty(keyProperty("deviceid", CIMValue(CIMTYPE_STRING, false)));
    EXPECT_EQ(utf8(fan().buildPath(cimClass).toString()), "CIM_Fan.deviceid=\"fan\\\"1\",Speed=1200");
    EXPECT_EQ(utf8(CIMConstInstance(fan()).buildPath(cimClass).toString()),
              "CIM_Fan.deviceid=\"fan\\\"1\",Speed=1200");
}

TEST(CIMInstance, BuildsAPathWithoutKeysWhereTheClassHasNone) {
    EXPECT_EQ(utf8(fan().buildPath(CIMClass(CIMName("CIM_Fan"))).toString()), "CIM_Fan");
}

TEST(CIMInstance, CannotBuildItsPathWithoutItsKeys) {
    CIMClass cimClass(CIMName("CIM_Fan"));
    cimClass.addProperty(keyProperty("Missing", CIMValue(true)));
    EXPECT_EQ(messageThrownBy([&] { fan().buildPath(cimClass); }), "no such property: Missing");
}

TEST(CIMInstance, FiltersItsProperties) {
    CIMInstance i = fan();
    i.instanceFilter(false, false, CIMPropertyList(Array<CIMName>(1, CIMName("speed"))));
    ASSERT_EQ(i.getPropertyCount(), 1u);
    EXPECT_EQ(utf8(i.getProperty(0).getName().getString()), "Speed");
}

TEST(CIMInstance, FormsArrays) {
    Array<CIMInstance> instances(2, fan());
    instances[0] = CIMInstance(CIMName("A"));
    EXPECT_EQ(utf8(instances[0].getClassName().getString()), "A");
    EXPECT_EQ(utf8(instances[1].getClassName().getString()), "CIM_Fan");
}
