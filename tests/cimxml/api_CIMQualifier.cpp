#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMQualifier qualifier() {
    return CIMQualifier(CIMName("Description"), CIMValue(String("text")), CIMFlavor::TRANSLATABLE, true);
}

}  // namespace

TEST(CIMQualifier, HoldsWhatItIsMadeOf) {
    const CIMQualifier q = qualifier();
    EXPECT_EQ(utf8(q.getName().getString()), "Description");
    EXPECT_EQ(q.getType(), CIMTYPE_STRING);
    EXPECT_FALSE(q.isArray());
    EXPECT_TRUE(q.getValue() == CIMValue(String("text")));
    EXPECT_EQ(utf8(q.getFlavor().toString()), "TRANSLATABLE");
    EXPECT_TRUE(q.getPropagated());
    EXPECT_FALSE(q.isUninitialized());
}

TEST(CIMQualifier, HasNoFlavorAndIsNotPropagatedByDefault) {
    const CIMQualifier q(CIMName("Key"), CIMValue(true));
    EXPECT_TRUE(q.getFlavor().equal(CIMFlavor::NONE));
    EXPECT_FALSE(q.getPropagated());
}

TEST(CIMQualifier, NeedsAName) {
    expectUninitialized([] { CIMQualifier(CIMName(), CIMValue(true)); });
    expectUninitialized([] { CIMConstQualifier(CIMName(), CIMValue(true)); });
    CIMQualifier q = qualifier();
    expectUninitialized([&] { q.setName(CIMName()); });
}

TEST(CIMQualifier, NullHandleThrowsWhenRead) {
    CIMQualifier null;
    const CIMConstQualifier constNull;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_TRUE(constNull.isUninitialized());
    expectUninitialized([&] { null.getName(); });
    expectUninitialized([&] { null.getType(); });
    expectUninitialized([&] { null.isArray(); });
    expectUninitialized([&] { null.getValue(); });
    expectUninitialized([&] { null.getFlavor(); });
    expectUninitialized([&] { null.getPropagated(); });
    expectUninitialized([&] { null.setName(CIMName("x")); });
    expectUninitialized([&] { null.setValue(CIMValue()); });
    expectUninitialized([&] { null.setFlavor(CIMFlavor::NONE); });
    expectUninitialized([&] { null.unsetFlavor(CIMFlavor::NONE); });
    expectUninitialized([&] { null.setPropagated(true); });
    expectUninitialized([&] { null.identical(qualifier()); });
    expectUninitialized([&] { qualifier().identical(null); });
    expectUninitialized([&] { constNull.getName(); });
}

TEST(CIMQualifier, ChangesAllParts) {
    CIMQualifier q = qualifier();
    q.setName(CIMName("Other"));
    q.setValue(CIMValue(Array<Uint32>(1, Uint32(7))));
    q.setPropagated(false);
    q.setFlavor(CIMFlavor::DEFAULTS);
    q.unsetFlavor(CIMFlavor::TOSUBCLASS);
    EXPECT_EQ(utf8(q.getName().getString()), "Other");
    EXPECT_EQ(q.getType(), CIMTYPE_UINT32);
    EXPECT_TRUE(q.isArray());
    EXPECT_FALSE(q.getPropagated());
    EXPECT_EQ(utf8(q.getFlavor().toString()), "OVERRIDABLE");
}

TEST(CIMQualifier, CopiesShareTheQualifier) {
    CIMQualifier original = qualifier();
    const CIMQualifier copy(original);
    const CIMConstQualifier constCopy(original);
    CIMConstQualifier assigned;
    assigned = original;
    original.setValue(CIMValue(true));
    EXPECT_TRUE(copy.getValue() == CIMValue(true));
    EXPECT_TRUE(constCopy.getValue() == CIMValue(true));
    EXPECT_TRUE(assigned.getValue() == CIMValue(true));
}

TEST(CIMQualifier, ClonesAreIndependent) {
    const CIMQualifier original = qualifier();
    CIMQualifier clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    clone.setValue(CIMValue(true));
    EXPECT_TRUE(original.getValue() == CIMValue(String("text")));
}

TEST(CIMQualifier, IsIdenticalToOneThatAgreesInAll) {
    const CIMQualifier q = qualifier();
    CIMQualifier other = q.clone();
    other.setName(CIMName("DESCRIPTION"));
    EXPECT_TRUE(q.identical(other));
    EXPECT_TRUE(q.identical(q));
    other.setName(CIMName("Other"));
    EXPECT_FALSE(q.identical(other));
    other = q.clone();
    other.setValue(CIMValue(String("Text")));
    EXPECT_FALSE(q.identical(other));
    other = q.clone();
    other.setFlavor(CIMFlavor::NONE);
    EXPECT_FALSE(q.identical(other));
    other = q.clone();
    other.setPropagated(false);
    EXPECT_FALSE(q.identical(other));
}

TEST(CIMQualifier, KeepsItsNameWhileItStandsOnAnElement) {
    CIMQualifier q = qualifier();
    {
        CIMProperty property(CIMName("p"), CIMValue(true));
        property.addQualifier(q);
        EXPECT_EQ(messageThrownBy([&] { q.setName(CIMName("Other")); }),
                  "Attempted to change the name of a qualifier already in a container.");
        q.setName(CIMName("DESCRIPTION"));
        property.removeQualifier(0);
        q.setName(CIMName("Other"));
        property.addQualifier(q);
    }
    q.setName(CIMName("Last"));
    EXPECT_EQ(utf8(q.getName().getString()), "Last");
}
