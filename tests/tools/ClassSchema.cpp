#include "tools/values/ClassSchema.h"

#include <gtest/gtest.h>

#include "tests/tools/support/Sensors.h"

namespace tool {

TEST(ClassSchema, HoldsInheritedMembersWithTheirOrigin) {
    const Sensors sensors;
    const ClassSchema schema = sensors.schema();
    ASSERT_NE(schema.findProperty("caption"), nullptr);
    EXPECT_EQ(schema.findProperty("caption")->name, "Caption");
    EXPECT_EQ(schema.findProperty("caption")->origin, "TST_Element");
    EXPECT_EQ(schema.findProperty("Reading")->origin, "TST_Sensor");
    EXPECT_EQ(schema.findProperty("Nothing"), nullptr);
    EXPECT_EQ(schema.findMethod("CALIBRATE")->name, "Calibrate");
    EXPECT_EQ(schema.properties().front().origin, "TST_Sensor");
}

TEST(ClassSchema, ARedefinitionHidesWhatItRedefines) {
    const Sensors sensors;
    const auto special = sensors.sensor()->AllocatePropertyDecl("CAPTION", NQELVSK20::TCIMValue("x"), {});
    special->Commit({});
    const ClassSchema schema = sensors.schema();
    EXPECT_EQ(schema.findProperty("caption")->origin, "TST_Sensor");
    EXPECT_EQ(schema.properties().size(), 7U);
}

TEST(ClassSchema, FindsKeysAndMeaningsAlongTheChain) {
    const Sensors sensors;
    const ClassSchema schema = sensors.schema();
    EXPECT_TRUE(schema.isKey("id"));
    EXPECT_TRUE(schema.isKey("Number"));
    EXPECT_FALSE(schema.isKey("State"));
    ASSERT_NE(schema.valueMapOf("state"), nullptr);
    EXPECT_EQ(schema.valueMapOf("state")->entries().size(), 2U);
    EXPECT_EQ(schema.valueMapOf("Reading"), nullptr);
}

}  // namespace tool
