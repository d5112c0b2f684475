#include <Pegasus/Common/CIMQualifierDecl.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMQualifierDecl declaration(const CIMFlavor& flavor = CIMFlavor(CIMFlavor::DEFAULTS)) {
    return CIMQualifierDecl(CIMName("Counter"), CIMValue(false), CIMScope::PROPERTY + CIMScope::METHOD,
                            flavor);
}

std::string flavorOf(const CIMFlavor& flavor) {
    return utf8(declaration(flavor).getFlavor().toString());
}

}  // namespace

TEST(CIMQualifierDecl, HoldsWhatItIsMadeOf) {
    const CIMQualifierDecl d(CIMName("Values"), CIMValue(CIMTYPE_STRING, true), CIMScope::ANY,
                             CIMFlavor::TRANSLATABLE, 4);
    EXPECT_EQ(utf8(d.getName().getString()), "Values");
    EXPECT_EQ(d.getType(), CIMTYPE_STRING);
    EXPECT_TRUE(d.isArray());
    EXPECT_TRUE(d.getValue().isNull());
    EXPECT_TRUE(d.getScope().equal(CIMScope::ANY));
    EXPECT_EQ(d.getArraySize(), 4u);
    EXPECT_FALSE(d.isUninitialized());
}

TEST(CIMQualifierDecl, CompletesItsFlavor) {
    EXPECT_EQ(flavorOf(CIMFlavor::NONE), "OVERRIDABLE TOSUBCLASS");
    EXPECT_EQ(flavorOf(CIMFlavor::DEFAULTS), "OVERRIDABLE TOSUBCLASS");
    EXPECT_EQ(flavorOf(CIMFlavor::RESTRICTED), "OVERRIDABLE RESTRICTED");
    EXPECT_EQ(flavorOf(CIMFlavor::DISABLEOVERRIDE), "TOSUBCLASS DISABLEOVERRIDE");
    EXPECT_EQ(flavorOf(CIMFlavor::DEFAULTS + CIMFlavor::DISABLEOVERRIDE + CIMFlavor::RESTRICTED),
              "DISABLEOVERRIDE RESTRICTED");
    EXPECT_EQ(flavorOf(CIMFlavor::TRANSLATABLE), "OVERRIDABLE TOSUBCLASS TRANSLATABLE");
}

TEST(CIMQualifierDecl, NeedsAName) {
    expectUninitialized([] { CIMQualifierDecl(CIMName(), CIMValue(true), CIMScope::ANY); });
    CIMQualifierDecl d = declaration();
    expectUninitialized([&] { d.setName(CIMName()); });
}

TEST(CIMQualifierDecl, NullHandleThrowsWhenRead) {
    CIMQualifierDecl null;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_TRUE(CIMConstQualifierDecl().isUninitialized());
    expectUninitialized([&] { null.getName(); });
    expectUninitialized([&] { null.getType(); });
    expectUninitialized([&] { null.isArray(); });
    expectUninitialized([&] { null.getValue(); });
    expectUninitialized([&] { null.getScope(); });
    expectUninitialized([&] { null.getFlavor(); });
    expectUninitialized([&] { null.getArraySize(); });
    expectUninitialized([&] { null.setName(CIMName("x")); });
    expectUninitialized([&] { null.setValue(CIMValue()); });
    expectUninitialized([&] { declaration().identical(null); });
}

TEST(CIMQualifierDecl, CopiesShareAndClonesDoNot) {
    CIMQualifierDecl original = declaration();
    const CIMConstQualifierDecl copy(original);
    const CIMQualifierDecl clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    original.setName(CIMName("Other"));
    original.setValue(CIMValue(true));
    EXPECT_EQ(utf8(copy.getName().getString()), "Other");
    EXPECT_TRUE(copy.getValue() == CIMValue(true));
    EXPECT_EQ(utf8(clone.getName().getString()), "Counter");
    EXPECT_FALSE(clone.identical(original));
}

TEST(CIMQualifierDecl, IsIdenticalToOneThatAgreesInAll) {
    const CIMName name("Counter");
    const CIMValue value(false);
    const CIMQualifierDecl d(name, value, CIMScope::PROPERTY);
    EXPECT_TRUE(d.identical(CIMQualifierDecl(CIMName("counter"), value, CIMScope::PROPERTY)));
    EXPECT_FALSE(d.identical(CIMQualifierDecl(name, CIMValue(true), CIMScope::PROPERTY)));
    EXPECT_FALSE(d.identical(CIMQualifierDecl(name, value, CIMScope::METHOD)));
    EXPECT_FALSE(d.identical(CIMQualifierDecl(name, value, CIMScope::PROPERTY, CIMFlavor::RESTRICTED)));
    EXPECT_FALSE(d.identical(CIMQualifierDecl(name, value, CIMScope::PROPERTY, CIMFlavor::DEFAULTS, 2)));
}
