#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMObjectPath path(const std::string& text) {
    return CIMObjectPath(String(text.c_str()));
}

std::string readAndWritten(const std::string& text) {
    return utf8(path(text).toString());
}

/// The reason why the text is no path.
std::string reasonAgainst(const std::string& text) {
    const std::string message = messageThrownBy<MalformedObjectNameException>([&] { path(text); });
    const std::string prefix = "malformed object name: " + text + ", reason:\"";
    EXPECT_EQ(message.substr(0, prefix.size()), prefix);
    EXPECT_EQ(message.substr(message.size() - 1), "\"");
    return message.substr(prefix.size(), message.size() - prefix.size() - 1);
}

Array<CIMKeyBinding> keys(const char* name, const char* value, CIMKeyBinding::Type type) {
    return Array<CIMKeyBinding>(1, CIMKeyBinding(CIMName(name), String(value), type));
}

}  // namespace

TEST(CIMObjectPath, IsEmptyByDefault) {
    const CIMObjectPath empty;
    EXPECT_EQ(utf8(empty.getHost()), "");
    EXPECT_TRUE(empty.getNameSpace().isNull());
    EXPECT_TRUE(empty.getClassName().isNull());
    EXPECT_EQ(empty.getKeyBindings().size(), 0u);
    EXPECT_EQ(utf8(empty.toString()), "");
}

TEST(CIMObjectPath, ReadsAllParts) {
    const CIMObjectPath p = path("//host.example:5989/root/cimv2:CIM_Fan.DeviceID=\"f1\",Number=7,On=TRUE");
    EXPECT_EQ(utf8(p.getHost()), "host.example:5989");
    EXPECT_EQ(utf8(p.getNameSpace().getString()), "root/cimv2");
    EXPECT_EQ(utf8(p.getClassName().getString()), "CIM_Fan");
    const Array<CIMKeyBinding>& bindings = p.getKeyBindings();
    ASSERT_EQ(bindings.size(), 3u);
    EXPECT_EQ(utf8(bindings[0].getName().getString()), "DeviceID");
    EXPECT_EQ(utf8(bindings[0].getValue()), "f1");
    EXPECT_EQ(bindings[0].getType(), CIMKeyBinding::STRING);
    EXPECT_EQ(bindings[1].getType(), CIMKeyBinding::NUMERIC);
    EXPECT_EQ(bindings[2].getType(), CIMKeyBinding::BOOLEAN);
}

TEST(CIMObjectPath, TextsComeBackAsTheyWere) {
    for (const char* text :
         {"A", "root:A", "root/cimv2:A", "//h1/root:A", "//h1/root:A.k=1", "A.k=1",
          "root:A.a=\"x\",b=2,C=TRUE", "A.k=\"\"", "A.k=-5", "A.k=0xFF", "A.k=18446744073709551615",
          "A.k=-9223372036854775808", "A.k=\"a,b=c.d:e/f\"", "A.k=\"\\\"\"", "A.k=\"\\\\\"",
          "A.k=\"\xC3\xA4\xE2\x82\xAC\"", "\xC3\x84pfel.K\xC3\xB6rnung=1"})
        EXPECT_EQ(readAndWritten(text), text);
}

TEST(CIMObjectPath, SortsKeysWithoutRegardToCaseAndKeepsTheirSpelling) {
    EXPECT_EQ(readAndWritten("A.b=1,C=2,a=3"), "A.a=3,b=1,C=2");
}

TEST(CIMObjectPath, ReadsBooleansInAnyCase) {
    EXPECT_EQ(readAndWritten("A.k=true,l=False"), "A.k=TRUE,l=FALSE");
}

TEST(CIMObjectPath, DropsOneSlashBeforeTheNameSpace) {
    EXPECT_EQ(readAndWritten("/root/cimv2:A"), "root/cimv2:A");
}

TEST(CIMObjectPath, AcceptsADotOrCommaWithoutKeyBehind) {
    EXPECT_EQ(readAndWritten("A."), "A");
    EXPECT_EQ(readAndWritten("A.k=1,"), "A.k=1");
}

TEST(CIMObjectPath, UnescapesQuotedValues) {
    EXPECT_EQ(utf8(path("A.k=\"a\\\"b\\\\c\"").getKeyBindings()[0].getValue()), "a\"b\\c");
}

TEST(CIMObjectPath, EscapesQuotedValues) {
    const CIMObjectPath p(String(), CIMNamespaceName(), CIMName("A"),
                          keys("k", "C:\\dir \"x\"", CIMKeyBinding::STRING));
    EXPECT_EQ(utf8(p.toString()), "A.k=\"C:\\\\dir \\\"x\\\"\"");
    EXPECT_TRUE(path(utf8(p.toString())) == p);
}

TEST(CIMObjectPath, QuotedPathsWithKeysAreReferences) {
    const CIMObjectPath p = path("A.k=\"B.x=1\",l=\"B\",m=\"x=1\",n=\"B.\"");
    const Array<CIMKeyBinding>& bindings = p.getKeyBindings();
    EXPECT_EQ(bindings[0].getType(), CIMKeyBinding::REFERENCE);
    EXPECT_EQ(bindings[1].getType(), CIMKeyBinding::STRING);
    EXPECT_EQ(bindings[2].getType(), CIMKeyBinding::STRING);
    EXPECT_EQ(bindings[3].getType(), CIMKeyBinding::STRING);
}

TEST(CIMObjectPath, ReferencesNest) {
    const std::string inner = "root:C.z=\"q\\\"q\"";
    const CIMObjectPath innermost = path(inner);
    const CIMObjectPath middle(String(), CIMNamespaceName("root"), CIMName("B"),
                               Array<CIMKeyBinding>(1, CIMKeyBinding(CIMName("r"), CIMValue(innermost))));
    const CIMObjectPath outer(String("h1"), CIMNamespaceName("root"), CIMName("A"),
                              Array<CIMKeyBinding>(1, CIMKeyBinding(CIMName("s"), CIMValue(middle))));
    const std::string text = utf8(outer.toString());
    EXPECT_EQ(text, "//h1/root:A.s=\"root:B.r=\\\"root:C.z=\\\\\\\"q\\\\\\\\\\\\\\\"q\\\\\\\"\\\"\"");
    const CIMObjectPath again = path(text);
    EXPECT_TRUE(again == outer);
    ASSERT_EQ(again.getKeyBindings()[0].getType(), CIMKeyBinding::REFERENCE);
    EXPECT_TRUE(CIMObjectPath(again.getKeyBindings()[0].getValue()) == middle);
}

TEST(CIMObjectPath, SortsKeysWithinReferences) {
    EXPECT_EQ(readAndWritten("A.r=\"B.z=1,y=2\""), "A.r=\"B.y=2,z=1\"");
}

TEST(CIMObjectPath, ReferenceKeysMustBePaths) {
    messageThrownBy<MalformedObjectNameException>([] {
        CIMObjectPath(String(), CIMNamespaceName(), CIMName("A"), keys("k", "?", CIMKeyBinding::REFERENCE));
    });
}

TEST(CIMObjectPath, AHostForcesTheNameSpacesColon) {
    const CIMObjectPath p(String("h1"), CIMNamespaceName(), CIMName("A"));
    EXPECT_EQ(utf8(p.toString()), "//h1/:A");
}

TEST(CIMObjectPath, WithoutHostAndNameSpaceHasNoColon) {
    const CIMObjectPath p(String(), CIMNamespaceName(), CIMName("A"), keys("k", "1", CIMKeyBinding::NUMERIC));
    EXPECT_EQ(utf8(p.toString()), "A.k=1");
}

TEST(CIMObjectPath, RejectsBadHosts) {
    EXPECT_EQ(reasonAgainst("//host"), "missing slash after hostname");
    EXPECT_EQ(reasonAgainst("//host/A"), "host specified, missing namespace");
    for (const char* host :
         {"", "a_b-c!", "-a", "a..b", "a.", "1.2.3.4.5", "256.1.1.1", "12345", "h:65536", "h:x", "[::1",
          "::1", "[1.2.3.4]", "[::1]x", "[12345::]", "[1:2:3]", "[fe80::1]", "[]", ":5988"})
        EXPECT_EQ(reasonAgainst(std::string("//") + host + "/root:A"), "invalid hostname") << host;
}

TEST(CIMObjectPath, AcceptsHostNamesAndAddresses) {
    for (const char* host : {"h", "host-1.example.com", "under_score", "_h", "1a", "1.2.3.a", "10.0.0.1",
                             "10.0.0.1:5988", "h:", "h:0", "h:65535", "[::1]", "[::]:5989",
                             "[1:2:3:4:5:6:7:8]", "[2001:db8::1]", "[::ffff:1.2.3.4]", "[ABCD::ef]"})
        EXPECT_EQ(utf8(path(std::string("//") + host + "/root:A").getHost()), host);
}

TEST(CIMObjectPath, RejectsBadNameSpacesAndClassNames) {
    EXPECT_EQ(reasonAgainst("//h1/:A"), "invalid namespace name");
    EXPECT_EQ(reasonAgainst("ro ot:A"), "invalid namespace name");
    EXPECT_EQ(reasonAgainst(":A"), "invalid namespace name");
    EXPECT_EQ(reasonAgainst(""), "class name  not a legal CIM name");
    EXPECT_EQ(reasonAgainst("root:"), "class name  not a legal CIM name");
    EXPECT_EQ(reasonAgainst("1A"), "class name 1A not a legal CIM name");
    EXPECT_EQ(reasonAgainst("A B.k=1"), "class name A B not a legal CIM name");
    EXPECT_EQ(reasonAgainst(".k=1"), "class name  not a legal CIM name");
}

TEST(CIMObjectPath, RejectsBadKeys) {
    EXPECT_EQ(reasonAgainst("A.k"), "invalid key-value pair, missing equal sign");
    EXPECT_EQ(reasonAgainst("A.k=1,l"), "invalid key-value pair, missing equal sign");
    EXPECT_EQ(reasonAgainst("A.1k=1"), "invalid key-value pair, invalid key name:1k");
    EXPECT_EQ(reasonAgainst("A.=1"), "invalid key-value pair, invalid key name:");
    EXPECT_EQ(reasonAgainst("A.k=\"x"), "invalid key-value pair, missing quote in key value");
    EXPECT_EQ(reasonAgainst("A.k=\"x\\"), "invalid key-value pair, malformed value");
    EXPECT_EQ(reasonAgainst("A.k=\"\\n\""), "invalid key-value pair, malformed value");
    EXPECT_EQ(reasonAgainst("A.k=\"x\"y=1"),
              "invalid key-value pair, next key-value pair has to start with comma");
    EXPECT_EQ(reasonAgainst("A.k=TRUEX"), "invalid key-value pair, value should be TRUE or FALSE");
    EXPECT_EQ(reasonAgainst("A.k=t"), "invalid key-value pair, value should be TRUE or FALSE");
    EXPECT_EQ(reasonAgainst("A.k=-x"), "invalid key-value pair, invalid negative number value -x");
    EXPECT_EQ(reasonAgainst("A.k=-9223372036854775809"),
              "invalid key-value pair, invalid negative number value -9223372036854775809");
    EXPECT_EQ(reasonAgainst("A.k=x"), "invalid key-value pair, invalid number value x");
    EXPECT_EQ(reasonAgainst("A.k=18446744073709551616"),
              "invalid key-value pair, invalid number value 18446744073709551616");
    EXPECT_EQ(reasonAgainst("A.k=007"), "invalid key-value pair, invalid number value 007");
    EXPECT_EQ(reasonAgainst("A.k=1.5"), "invalid key-value pair, invalid number value 1.5");
    EXPECT_EQ(reasonAgainst("A.k=0x"), "invalid key-value pair, invalid number value 0x");
    EXPECT_EQ(reasonAgainst("A.k= 1"), "invalid key-value pair, invalid number value  1");
}

TEST(CIMObjectPath, AColonBehindTheFirstDotBelongsToAKey) {
    const CIMObjectPath p = path("A.k=\"x:y\"");
    EXPECT_TRUE(p.getNameSpace().isNull());
    EXPECT_EQ(utf8(p.getKeyBindings()[0].getValue()), "x:y");
}

TEST(CIMObjectPath, SetsAndClearsParts) {
    CIMObjectPath p;
    p.setHost(String("h1"));
    p.setNameSpace(CIMNamespaceName("root"));
    p.setClassName(CIMName("A"));
    p.setKeyBindings(keys("k", "x", CIMKeyBinding::STRING));
    EXPECT_EQ(utf8(p.toString()), "//h1/root:A.k=\"x\"");
    p.setHost(String());
    p.setNameSpace(CIMNamespaceName());
    EXPECT_EQ(utf8(p.toString()), "A.k=\"x\"");
    p.clear();
    EXPECT_EQ(utf8(p.toString()), "");
    p = String("root:B");
    EXPECT_EQ(utf8(p.toString()), "root:B");
    p.set(String("C.k=1"));
    EXPECT_EQ(utf8(p.toString()), "C.k=1");
    p.set(String("h2"), CIMNamespaceName("root"), CIMName("D"));
    EXPECT_EQ(utf8(p.toString()), "//h2/root:D");
}

TEST(CIMObjectPath, SettersCheckTheHost) {
    CIMObjectPath p;
    EXPECT_EQ(messageThrownBy<MalformedObjectNameException>([&] { p.setHost(String("a b")); }),
              "malformed object name: a b, reason:\"invalid hostname\"");
    EXPECT_EQ(messageThrownBy<MalformedObjectNameException>(
                  [&] { p.set(String("a/b"), CIMNamespaceName(), CIMName("A")); }),
              "malformed object name: a/b, reason:\"invalid hostname\"");
}

TEST(CIMObjectPath, SortsKeysThatAreSet) {
    Array<CIMKeyBinding> bindings = keys("b", "1", CIMKeyBinding::NUMERIC);
    bindings.append(CIMKeyBinding(CIMName("A"), String("2"), CIMKeyBinding::NUMERIC));
    CIMObjectPath p;
    p.setClassName(CIMName("X"));
    p.setKeyBindings(bindings);
    EXPECT_EQ(utf8(p.toString()), "X.A=2,b=1");
}

TEST(CIMObjectPath, CopiesChangeIndependently) {
    const CIMObjectPath original = path("//h1/root:A.k=1");
    CIMObjectPath hostChanged(original);
    hostChanged.setHost(String("h2"));
    CIMObjectPath keysChanged;
    keysChanged = original;
    keysChanged.setKeyBindings(Array<CIMKeyBinding>());
    CIMObjectPath cleared(original);
    cleared.clear();
    EXPECT_EQ(utf8(original.toString()), "//h1/root:A.k=1");
    EXPECT_EQ(utf8(hostChanged.toString()), "//h2/root:A.k=1");
    EXPECT_EQ(utf8(keysChanged.toString()), "//h1/root:A");
}

TEST(CIMObjectPath, SurvivesSelfAssignment) {
    CIMObjectPath p = path("root:A.k=1");
    const CIMObjectPath& same = p;
    p = same;
    EXPECT_EQ(utf8(p.toString()), "root:A.k=1");
}

TEST(CIMObjectPath, ComparesNamesWithoutRegardToCaseAndNumbersByValue) {
    const CIMObjectPath p = path("//Host/Root:Class.Key=10,Flag=TRUE");
    EXPECT_TRUE(p.identical(path("//hOST/rOOT:cLASS.fLAG=true,kEY=0xA")));
    EXPECT_TRUE(p == path("//host/root:class.key=10,flag=true"));
    EXPECT_TRUE(p != path("//host2/root:class.key=10,flag=true"));
    EXPECT_TRUE(p != path("//host/root2:class.key=10,flag=true"));
    EXPECT_TRUE(p != path("//host/root:class2.key=10,flag=true"));
    EXPECT_TRUE(p != path("//host/root:class.key=11,flag=true"));
    EXPECT_TRUE(p != path("//host/root:class.key=10"));
    EXPECT_TRUE(path("A.k=\"x\"") != path("A.k=\"X\""));
    EXPECT_TRUE(path("A.k=\"B.a=1,b=2\"") == path("A.k=\"b.B=2,A=1\""));
    EXPECT_TRUE(CIMObjectPath() == CIMObjectPath());
}

TEST(CIMObjectPath, IdenticalPathsHaveOneHashCode) {
    const std::pair<const char*, const char*> same[] = {
        {"//Host/Root:Class.Key=10,Flag=TRUE", "//hOST/rOOT:cLASS.fLAG=true,kEY=0xA"},
        {"A.k=\"B.a=1,b=2\"", "A.k=\"b.B=2,A=1\""},
        {"A.k=-1", "a.K=-0x1"}};
    for (const auto& [x, y] : same)
        EXPECT_EQ(path(x).makeHashCode(), path(y).makeHashCode()) << x;
    EXPECT_NE(path("A.k=1").makeHashCode(), path("A.k=2").makeHashCode());
}
