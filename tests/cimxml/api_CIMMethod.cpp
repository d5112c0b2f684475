#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMMethod.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMMethod method() {
    CIMMethod result(CIMName("SetSpeed"), CIMTYPE_UINT32, CIMName("CIM_Fan"), true);
    result.addQualifier(CIMQualifier(CIMName("Description"), CIMValue(String("text"))));
    result.addParameter(CIMParameter(CIMName("Speed"), CIMTYPE_UINT64));
    return result;
}

}  // namespace

TEST(CIMMethod, HoldsWhatItIsMadeOf) {
    const CIMMethod m = method();
    EXPECT_EQ(utf8(m.getName().getString()), "SetSpeed");
    EXPECT_EQ(m.getType(), CIMTYPE_UINT32);
    EXPECT_EQ(utf8(m.getClassOrigin().getString()), "CIM_Fan");
    EXPECT_TRUE(m.getPropagated());
    EXPECT_EQ(m.getQualifierCount(), 1u);
    EXPECT_EQ(m.getParameterCount(), 1u);
}

TEST(CIMMethod, NeedsAName) {
    expectUninitialized([] { CIMMethod(CIMName(), CIMTYPE_UINT32); });
    CIMMethod m = method();
    expectUninitialized([&] { m.setName(CIMName()); });
}

TEST(CIMMethod, NullHandleThrowsWhenRead) {
    CIMMethod null;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_TRUE(CIMConstMethod().isUninitialized());
    expectUninitialized([&] { null.getName(); });
    expectUninitialized([&] { null.getType(); });
    expectUninitialized([&] { null.getClassOrigin(); });
    expectUninitialized([&] { null.getPropagated(); });
    expectUninitialized([&] { null.findQualifier(CIMName("x")); });
    expectUninitialized([&] { null.getQualifier(0); });
    expectUninitialized([&] { null.getQualifierCount(); });
    expectUninitialized([&] { null.findParameter(CIMName("x")); });
    expectUninitialized([&] { null.getParameter(0); });
    expectUninitialized([&] { null.getParameterCount(); });
    expectUninitialized([&] { null.setName(CIMName("x")); });
    expectUninitialized([&] { null.setType(CIMTYPE_UINT8); });
    expectUninitialized([&] { null.setClassOrigin(CIMName()); });
    expectUninitialized([&] { null.setPropagated(true); });
    expectUninitialized([&] { null.addQualifier(CIMQualifier(CIMName("q"), CIMValue())); });
    expectUninitialized([&] { null.addParameter(CIMParameter(CIMName("p"), CIMTYPE_UINT8)); });
    expectUninitialized([&] { null.removeQualifier(0); });
    expectUninitialized([&] { null.removeParameter(0); });
    expectUninitialized([&] { method().identical(null); });
}

TEST(CIMMethod, ChangesAllParts) {
    CIMMethod m = method();
    m.setName(CIMName("Other"));
    m.setType(CIMTYPE_BOOLEAN);
    m.setClassOrigin(CIMName("A"));
    m.setPropagated(false);
    EXPECT_EQ(utf8(m.getName().getString()), "Other");
    EXPECT_EQ(m.getType(), CIMTYPE_BOOLEAN);
    EXPECT_EQ(utf8(m.getClassOrigin().getString()), "A");
    EXPECT_FALSE(m.getPropagated());
}

TEST(CIMMethod, HoldsParametersInOrder) {
    CIMMethod m = method();
    m.addParameter(CIMParameter(CIMName("B"), CIMTYPE_UINT8))
        .addParameter(CIMParameter(CIMName("A"), CIMTYPE_UINT8));
    EXPECT_EQ(m.getParameterCount(), 3u);
    EXPECT_EQ(m.findParameter(CIMName("a")), 2u);
    EXPECT_EQ(m.findParameter(CIMName("x")), PEG_NOT_FOUND);
    EXPECT_EQ(utf8(m.getParameter(1).getName().getString()), "B");
    m.removeParameter(0);
    const CIMMethod& reader = m;
    EXPECT_EQ(utf8(reader.getParameter(0).getName().getString()), "B");
    messageThrownBy<IndexOutOfBoundsException>([&] { m.getParameter(2); });
    messageThrownBy<IndexOutOfBoundsException>([&] { m.removeParameter(2); });
}

TEST(CIMMethod, RejectsSecondAndNullElements) {
    CIMMethod m = method();
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { m.addParameter(CIMParameter(CIMName("SPEED"), CIMTYPE_UINT8)); }),
              "already exists: parameter \"SPEED\"");
    EXPECT_EQ(messageThrownBy<AlreadyExistsException>(
                  [&] { m.addQualifier(CIMQualifier(CIMName("description"), CIMValue())); }),
              "already exists: qualifier \"description\"");
    expectUninitialized([&] { m.addParameter(CIMParameter()); });
    expectUninitialized([&] { m.addQualifier(CIMQualifier()); });
}

TEST(CIMMethod, HoldsQualifiers) {
    CIMMethod m = method();
    EXPECT_EQ(m.findQualifier(CIMName("DESCRIPTION")), 0u);
    const CIMMethod& reader = m;
    EXPECT_EQ(utf8(reader.getQualifier(0).getName().getString()), "Description");
    m.removeQualifier(0);
    EXPECT_EQ(m.getQualifierCount(), 0u);
    messageThrownBy<IndexOutOfBoundsException>([&] { m.getQualifier(0); });
}

TEST(CIMMethod, CopiesShareAndClonesDoNot) {
    CIMMethod original = method();
    const CIMConstMethod copy(original);
    CIMMethod clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    original.setType(CIMTYPE_STRING);
    clone.getParameter(0).addQualifier(CIMQualifier(CIMName("In"), CIMValue(true)));
    clone.getQualifier(0).setValue(CIMValue(true));
    EXPECT_EQ(copy.getType(), CIMTYPE_STRING);
    EXPECT_EQ(clone.getType(), CIMTYPE_UINT32);
    EXPECT_EQ(copy.getParameter(0).getQualifierCount(), 0u);
    EXPECT_TRUE(copy.getQualifier(0).getValue() == CIMValue(String("text")));
}

TEST(CIMMethod, IsIdenticalToOneThatAgreesInNameTypeQualifiersAndParameters) {
    const CIMMethod m = method();
    CIMMethod other = m.clone();
    other.setName(CIMName("SETSPEED"));
    other.setClassOrigin(CIMName("Other"));
    other.setPropagated(false);
    EXPECT_TRUE(m.identical(other));
    other.setType(CIMTYPE_UINT8);
    EXPECT_FALSE(m.identical(other));
    other = m.clone();
    other.removeParameter(0);
    EXPECT_FALSE(m.identical(other));
    other = m.clone();
    other.removeQualifier(0);
    EXPECT_FALSE(m.identical(other));
}

TEST(CIMMethod, KeepsItsNameWhileItBelongsToAClass) {
    CIMMethod m = method();
    CIMClass cimClass(CIMName("A"));
    cimClass.addMethod(m);
    EXPECT_EQ(messageThrownBy([&] { m.setName(CIMName("Other")); }),
              "Attempted to change the name of a method already in a container.");
    cimClass.removeMethod(0);
    m.setName(CIMName("Other"));
    EXPECT_EQ(utf8(m.getName().getString()), "Other");
}
