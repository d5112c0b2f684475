#include <Pegasus/Common/CIMName.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(CIMName, IsNullByDefault) {
    const CIMName name;
    EXPECT_TRUE(name.isNull());
    EXPECT_TRUE(name.getString() == String::EMPTY);
}

TEST(CIMName, AcceptsLettersDigitsUnderscoresAndNonAscii) {
    for (const char* text : {"a", "_", "CIM_ManagedElement", "x1", "__", "\xC3\xA4pfel", "a\xE2\x82\xAC"}) {
        EXPECT_TRUE(CIMName::legal(String(text))) << text;
        EXPECT_EQ(utf8(CIMName(text).getString()), text);
        EXPECT_EQ(utf8(CIMName(String(text)).getString()), text);
    }
}

TEST(CIMName, RejectsEverythingElse) {
    for (const char* text : {"", "1a", "a b", "a.b", "a:b", " a", "a-", "\"", "/a"}) {
        EXPECT_FALSE(CIMName::legal(String(text))) << text;
        const std::string message = std::string("The CIM name is not valid: ") + text;
        EXPECT_EQ(messageThrownBy<InvalidNameException>([&] { CIMName{text}; }), message);
        EXPECT_EQ(messageThrownBy<InvalidNameException>([&] { CIMName{String(text)}; }), message);
    }
}

TEST(CIMName, AssignmentChecksToo) {
    CIMName name("old");
    name = String("fresh");
    EXPECT_EQ(utf8(name.getString()), "fresh");
    EXPECT_EQ(messageThrownBy<InvalidNameException>([&] { name = String("not legal"); }),
              "The CIM name is not valid: not legal");
    EXPECT_EQ(utf8(name.getString()), "fresh");
}

TEST(CIMName, ClearsToNull) {
    CIMName name("x");
    name.clear();
    EXPECT_TRUE(name.isNull());
}

TEST(CIMName, ComparesWithoutRegardToCaseAndKeepsIt) {
    const CIMName name("CIM_Fan");
    EXPECT_TRUE(name.equal(CIMName("cim_FAN")));
    EXPECT_TRUE(name == CIMName("cim_fan"));
    EXPECT_FALSE(name != CIMName("cim_fan"));
    EXPECT_TRUE(name != CIMName("CIM_Fan2"));
    EXPECT_TRUE(CIMName() == CIMName());
    EXPECT_TRUE(CIMName() != name);
    EXPECT_EQ(utf8(name.getString()), "CIM_Fan");
}

TEST(CIMName, CopiesAreIndependent) {
    const CIMName original("a");
    CIMName copy(original);
    copy = String("b");
    EXPECT_EQ(utf8(original.getString()), "a");
}
