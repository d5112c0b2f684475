#include <Pegasus/Common/CIMName.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(CIMNamespaceName, IsNullByDefault) {
    EXPECT_TRUE(CIMNamespaceName().isNull());
}

TEST(CIMNamespaceName, AcceptsComponentsWithSlashesBetween) {
    for (const char* text : {"root", "root/cimv2", "a/b/c_d/e1", "_",
                             "r\xC3\xB6"
                             "t/x"}) {
        EXPECT_TRUE(CIMNamespaceName::legal(String(text))) << text;
        EXPECT_EQ(utf8(CIMNamespaceName(text).getString()), text);
        EXPECT_EQ(utf8(CIMNamespaceName(String(text)).getString()), text);
    }
}

TEST(CIMNamespaceName, DropsOneLeadingSlash) {
    EXPECT_TRUE(CIMNamespaceName::legal(String("/root/cimv2")));
    EXPECT_EQ(utf8(CIMNamespaceName("/root/cimv2").getString()), "root/cimv2");
    CIMNamespaceName name;
    name = String("/root");
    EXPECT_EQ(utf8(name.getString()), "root");
}

TEST(CIMNamespaceName, RejectsEverythingElse) {
    for (const char* text :
         {"", "/", "//root", "root/", "root//cimv2", "1root", "root/2", "ro ot", "root:x"}) {
        EXPECT_FALSE(CIMNamespaceName::legal(String(text))) << text;
        EXPECT_EQ(messageThrownBy<InvalidNamespaceNameException>([&] { CIMNamespaceName{text}; }),
                  std::string("invalid CIM namespace name: ") + text);
    }
}

TEST(CIMNamespaceName, ComparesWithoutRegardToCase) {
    EXPECT_TRUE(CIMNamespaceName("root/CIMv2") == CIMNamespaceName("/ROOT/cimV2"));
    EXPECT_TRUE(CIMNamespaceName("root/a") != CIMNamespaceName("root/b"));
    EXPECT_TRUE(CIMNamespaceName("root").equal(CIMNamespaceName("ROOT")));
}

TEST(CIMNamespaceName, ClearsToNull) {
    CIMNamespaceName name("root");
    name.clear();
    EXPECT_TRUE(name.isNull());
    EXPECT_TRUE(name == CIMNamespaceName());
}
