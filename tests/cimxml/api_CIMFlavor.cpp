#include <Pegasus/Common/CIMFlavor.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(CIMFlavor, IsEmptyByDefault) {
    EXPECT_TRUE(CIMFlavor().equal(CIMFlavor::NONE));
    EXPECT_EQ(utf8(CIMFlavor().toString()), "");
}

TEST(CIMFlavor, TextsOfSingleFlavors) {
    EXPECT_EQ(utf8(CIMFlavor::OVERRIDABLE.toString()), "OVERRIDABLE");
    EXPECT_EQ(utf8(CIMFlavor::ENABLEOVERRIDE.toString()), "OVERRIDABLE");
    EXPECT_EQ(utf8(CIMFlavor::TOSUBCLASS.toString()), "TOSUBCLASS");
    EXPECT_EQ(utf8(CIMFlavor::TOSUBELEMENTS.toString()), "TOSUBCLASS");
    EXPECT_EQ(utf8(CIMFlavor::TOINSTANCE.toString()), "TOINSTANCE");
    EXPECT_EQ(utf8(CIMFlavor::TRANSLATABLE.toString()), "TRANSLATABLE");
    EXPECT_EQ(utf8(CIMFlavor::DISABLEOVERRIDE.toString()), "DISABLEOVERRIDE");
    EXPECT_EQ(utf8(CIMFlavor::RESTRICTED.toString()), "RESTRICTED");
}

TEST(CIMFlavor, TextNamesAllInAFixedOrder) {
    const CIMFlavor all = CIMFlavor::RESTRICTED + CIMFlavor::DISABLEOVERRIDE + CIMFlavor::TRANSLATABLE +
                          CIMFlavor::TOINSTANCE + CIMFlavor::TOSUBCLASS + CIMFlavor::OVERRIDABLE;
    EXPECT_EQ(utf8(all.toString()),
              "OVERRIDABLE TOSUBCLASS TOINSTANCE TRANSLATABLE DISABLEOVERRIDE RESTRICTED");
}

TEST(CIMFlavor, DefaultsAreOverridableAndToSubclass) {
    EXPECT_EQ(utf8(CIMFlavor(CIMFlavor::DEFAULTS).toString()), "OVERRIDABLE TOSUBCLASS");
    EXPECT_TRUE(CIMFlavor::DEFAULTS.equal(CIMFlavor::OVERRIDABLE + CIMFlavor::TOSUBCLASS));
}

TEST(CIMFlavor, AddsAndRemoves) {
    CIMFlavor flavor;
    flavor.addFlavor(CIMFlavor::DEFAULTS);
    flavor.addFlavor(CIMFlavor::TRANSLATABLE);
    flavor.addFlavor(CIMFlavor::TRANSLATABLE);
    EXPECT_EQ(utf8(flavor.toString()), "OVERRIDABLE TOSUBCLASS TRANSLATABLE");
    flavor.removeFlavor(CIMFlavor::OVERRIDABLE);
    flavor.removeFlavor(CIMFlavor::RESTRICTED);
    EXPECT_EQ(utf8(flavor.toString()), "TOSUBCLASS TRANSLATABLE");
    flavor.removeFlavor(flavor);
    EXPECT_EQ(utf8(flavor.toString()), "");
}

TEST(CIMFlavor, HasAFlavorOnlyWhenItHasAllOfIt) {
    const CIMFlavor flavor = CIMFlavor::OVERRIDABLE;
    EXPECT_TRUE(flavor.hasFlavor(CIMFlavor::OVERRIDABLE));
    EXPECT_TRUE(flavor.hasFlavor(CIMFlavor::ENABLEOVERRIDE));
    EXPECT_TRUE(flavor.hasFlavor(CIMFlavor::NONE));
    EXPECT_FALSE(flavor.hasFlavor(CIMFlavor::DEFAULTS));
    EXPECT_FALSE(flavor.hasFlavor(CIMFlavor::TOSUBCLASS));
}

TEST(CIMFlavor, EnableAndDisableAreIndependentBits) {
    const CIMFlavor both = CIMFlavor::ENABLEOVERRIDE + CIMFlavor::DISABLEOVERRIDE;
    EXPECT_EQ(utf8(both.toString()), "OVERRIDABLE DISABLEOVERRIDE");
}

TEST(CIMFlavor, CopiesAndAssigns) {
    CIMFlavor flavor(CIMFlavor::TOINSTANCE);
    CIMFlavor other;
    other = flavor;
    flavor.addFlavor(CIMFlavor::RESTRICTED);
    EXPECT_TRUE(other.equal(CIMFlavor::TOINSTANCE));
    EXPECT_FALSE(other.equal(flavor));
}
