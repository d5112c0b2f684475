#include "namespace/names/Names.h"

#include <gtest/gtest.h>

#include <string>

namespace NQELVSK20 {
namespace {

TEST(CanonicalPath, HostNamespaceKeyOrderAndCaseOfNamesDoNotMatter) {
    const std::string form = CanonicalPath("X_Fan.Id=\"a\",Zone=2");
    EXPECT_FALSE(form.empty());
    for (const char* same :
         {"root/cimv2:X_Fan.Id=\"a\",Zone=2", "//host/root/cimv2:X_Fan.Id=\"a\",Zone=2",
          "//host:5989/root/cimv2:X_Fan.Id=\"a\",Zone=2", "X_Fan.Zone=2,Id=\"a\"", "x_FAN.ID=\"a\",zONE=2"}) {
        EXPECT_EQ(CanonicalPath(same), form) << same;
    }
}

TEST(CanonicalPath, ClassKeysAndValuesMatter) {
    const std::string form = CanonicalPath("X_Fan.Id=\"a\",Zone=2");
    for (const char* other : {"X_Fans.Id=\"a\",Zone=2", "X_Fan.Id=\"A\",Zone=2", "X_Fan.Id=\"a\",Zone=3",
                              "X_Fan.Id=\"a\"", "X_Fan.Id=\"a\",Zone=2,More=1", "X_Fan"}) {
        EXPECT_NE(CanonicalPath(other), form) << other;
    }
}

TEST(CanonicalPath, AValueDoesNotPassForAnotherKey) {
    EXPECT_NE(CanonicalPath("X_Fan.a=\"1,b=1:2\""), CanonicalPath("X_Fan.a=\"1\",b=\"2\""));
}

TEST(CanonicalPath, ReferencesAmongTheKeysAreTreatedAlike) {
    EXPECT_EQ(CanonicalPath("X_Cools.Fan=\"root/cimv2:X_Fan.Id=\\\"a\\\",Zone=2\""),
              CanonicalPath("x_cools.fan=\"X_FAN.ZONE=2,ID=\\\"a\\\"\""));
    EXPECT_NE(CanonicalPath("X_Cools.Fan=\"X_Fan.Id=\\\"a\\\"\""),
              CanonicalPath("X_Cools.Fan=\"X_Fan.Id=\\\"b\\\"\""));
}

TEST(CanonicalPath, AMalformedPathHasNone) {
    for (const char* malformed : {"X_Fan.Id", "X_Fan.Id=\"a", "two words.Id=1", ".Id=1", "X_Fan.=1"}) {
        EXPECT_EQ(CanonicalPath(malformed), "") << malformed;
    }
}

}  // namespace
}  // namespace NQELVSK20
