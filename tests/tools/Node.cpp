#include "tools/machine/Node.h"

#include <gtest/gtest.h>

#include "tools/common/UsageError.h"

namespace tool {

TEST(Node, TakesTheDefaultUserUnlessItNamesOne) {
    EXPECT_EQ(parseNode("bmc1", "admin").user, "admin");
    EXPECT_EQ(parseNode("root@bmc1", "admin").user, "root");
    EXPECT_EQ(parseNode("root@bmc1", "admin").host, "bmc1");
    EXPECT_EQ(parseNode("@bmc1", "admin").user, "");
}

TEST(Node, AUserMayHoldAnAtSign) {
    const Node node = parseNode("admin@example.org@10.0.0.1", "");
    EXPECT_EQ(node.user, "admin@example.org");
    EXPECT_EQ(node.host, "10.0.0.1");
}

TEST(Node, AnIpv6AddressComesWithOrWithoutBrackets) {
    EXPECT_EQ(parseNode("[fe80::1]", "").host, "fe80::1");
    EXPECT_EQ(parseNode("fe80::1", "").host, "fe80::1");
    EXPECT_EQ(hostAndPort("fe80::1", 5989), "[fe80::1]:5989");
    EXPECT_EQ(hostAndPort("10.0.0.1", 5988), "10.0.0.1:5988");
}

TEST(Node, RefusesAPortAndAMissingHost) {
    for (const char* text : {"10.0.0.1:5989", "[::1]:5989", "user@", ""}) {
        EXPECT_THROW(parseNode(text, ""), UsageError) << text;
    }
}

}  // namespace tool
