#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMKeyBinding key(const char* value, CIMKeyBinding::Type type) {
    return CIMKeyBinding(CIMName("K"), String(value), type);
}

CIMKeyBinding number(const char* value) {
    return key(value, CIMKeyBinding::NUMERIC);
}

CIMKeyBinding text(const char* value) {
    return key(value, CIMKeyBinding::STRING);
}

CIMKeyBinding reference(const char* value) {
    return key(value, CIMKeyBinding::REFERENCE);
}

}  // namespace

TEST(CIMKeyBinding, IsWithoutNameAndValueByDefault) {
    const CIMKeyBinding none;
    EXPECT_TRUE(none.getName().isNull());
    EXPECT_EQ(utf8(none.getValue()), "");
}

TEST(CIMKeyBinding, HasNameValueAndType) {
    CIMKeyBinding binding(CIMName("Name"), String("x"), CIMKeyBinding::STRING);
    EXPECT_EQ(utf8(binding.getName().getString()), "Name");
    EXPECT_EQ(utf8(binding.getValue()), "x");
    EXPECT_EQ(binding.getType(), CIMKeyBinding::STRING);
    binding.setName(CIMName("Other"));
    binding.setValue(String("1"));
    binding.setType(CIMKeyBinding::NUMERIC);
    EXPECT_EQ(utf8(binding.getName().getString()), "Other");
    EXPECT_EQ(utf8(binding.getValue()), "1");
    EXPECT_EQ(binding.getType(), CIMKeyBinding::NUMERIC);
}

TEST(CIMKeyBinding, TakesTextAndKindFromAValue) {
    const CIMName name("K");
    EXPECT_EQ(CIMKeyBinding(name, CIMValue(true)).getType(), CIMKeyBinding::BOOLEAN);
    EXPECT_EQ(utf8(CIMKeyBinding(name, CIMValue(true)).getValue()), "TRUE");
    EXPECT_EQ(CIMKeyBinding(name, CIMValue(Sint8(-5))).getType(), CIMKeyBinding::NUMERIC);
    EXPECT_EQ(utf8(CIMKeyBinding(name, CIMValue(Sint8(-5))).getValue()), "-5");
    EXPECT_EQ(CIMKeyBinding(name, CIMValue(Real32(1))).getType(), CIMKeyBinding::NUMERIC);
    EXPECT_EQ(CIMKeyBinding(name, CIMValue(String("a\"b"))).getType(), CIMKeyBinding::STRING);
    EXPECT_EQ(utf8(CIMKeyBinding(name, CIMValue(String("a\"b"))).getValue()), "a\"b");
    EXPECT_EQ(CIMKeyBinding(name, CIMValue(Char16('x'))).getType(), CIMKeyBinding::STRING);
    EXPECT_EQ(CIMKeyBinding(name, CIMValue(CIMDateTime())).getType(), CIMKeyBinding::STRING);
    const CIMObjectPath path(String("A.k=1"));
    EXPECT_EQ(CIMKeyBinding(name, CIMValue(path)).getType(), CIMKeyBinding::REFERENCE);
    EXPECT_EQ(utf8(CIMKeyBinding(name, CIMValue(path)).getValue()), "A.k=1");
}

TEST(CIMKeyBinding, OfANullValueIsEmpty) {
    const CIMKeyBinding binding(CIMName("K"), CIMValue(CIMTYPE_UINT32, false));
    EXPECT_EQ(utf8(binding.getValue()), "");
    EXPECT_EQ(binding.getType(), CIMKeyBinding::NUMERIC);
}

TEST(CIMKeyBinding, RejectsArraysAndEmbeddedObjects) {
    const CIMName name("K");
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { CIMKeyBinding(name, CIMValue(Array<Uint8>())); }),
              "type mismatch");
    const CIMInstance instance(CIMName("A"));
    messageThrownBy<TypeMismatchException>([&] { CIMKeyBinding(name, CIMValue(instance)); });
    messageThrownBy<TypeMismatchException>([&] { CIMKeyBinding(name, CIMValue(CIMObject(instance))); });
}

TEST(CIMKeyBinding, ComparesNamesWithoutRegardToCaseAndStringsExactly) {
    EXPECT_TRUE(CIMKeyBinding(CIMName("A"), String("x"), CIMKeyBinding::STRING) ==
                CIMKeyBinding(CIMName("a"), String("x"), CIMKeyBinding::STRING));
    EXPECT_FALSE(text("x") == text("X"));
    EXPECT_FALSE(text("1") == number("1"));
}

TEST(CIMKeyBinding, ComparesNumbersByValue) {
    EXPECT_TRUE(number("10") == number("0xA"));
    EXPECT_TRUE(number("0xa") == number("0XA"));
    EXPECT_TRUE(number("-1") == number("-0x1"));
    EXPECT_TRUE(number("+1") == number("1"));
    EXPECT_TRUE(number("18446744073709551615") == number("0xFFFFFFFFFFFFFFFF"));
    EXPECT_FALSE(number("1") == number("-1"));
    EXPECT_FALSE(number("01") == number("1"));
    EXPECT_TRUE(number("1.5") == number("1.5"));
    EXPECT_FALSE(number("1.5") == number("1.50"));
}

TEST(CIMKeyBinding, ComparesBooleansWithoutRegardToCase) {
    EXPECT_TRUE(key("TRUE", CIMKeyBinding::BOOLEAN) == key("true", CIMKeyBinding::BOOLEAN));
    EXPECT_FALSE(key("TRUE", CIMKeyBinding::BOOLEAN) == key("false", CIMKeyBinding::BOOLEAN));
}

TEST(CIMKeyBinding, ComparesReferencesAsPaths) {
    EXPECT_TRUE(reference("A.a=1,b=2") == reference("a.B=2,A=0x1"));
    EXPECT_FALSE(reference("A.a=1") == reference("A.a=2"));
    EXPECT_TRUE(reference("no path") == reference("no path"));
    EXPECT_FALSE(reference("no path") == reference("No path"));
}

TEST(CIMKeyBinding, EqualsValuesOfItsKind) {
    EXPECT_TRUE(number("10").equal(CIMValue(Uint8(10))));
    EXPECT_TRUE(number("0xA").equal(CIMValue(Sint64(10))));
    EXPECT_TRUE(number("-128").equal(CIMValue(Sint8(-128))));
    EXPECT_FALSE(number("10").equal(CIMValue(Uint8(11))));
    EXPECT_FALSE(number("256").equal(CIMValue(Uint8(0))));
    EXPECT_FALSE(number("-129").equal(CIMValue(Sint8(127))));
    EXPECT_FALSE(number("-1").equal(CIMValue(Uint64(PEGASUS_UINT64_LITERAL(18446744073709551615)))));
    EXPECT_TRUE(number("1.5").equal(CIMValue(Real64(1.5))));
    EXPECT_TRUE(number("1.5e1").equal(CIMValue(Real32(15))));
    EXPECT_FALSE(number("15").equal(CIMValue(Real32(15))));
    EXPECT_TRUE(text("x").equal(CIMValue(String("x"))));
    EXPECT_TRUE(text("x").equal(CIMValue(Char16('x'))));
    EXPECT_TRUE(text("00000000000000.000000:000").equal(CIMValue(CIMDateTime())));
    EXPECT_TRUE(key("true", CIMKeyBinding::BOOLEAN).equal(CIMValue(true)));
    EXPECT_FALSE(key("false", CIMKeyBinding::BOOLEAN).equal(CIMValue(true)));
    EXPECT_TRUE(reference("a.k=1").equal(CIMValue(CIMObjectPath(String("A.K=1")))));
}

TEST(CIMKeyBinding, EqualsNothingElse) {
    EXPECT_FALSE(text("10").equal(CIMValue(Uint8(10))));
    EXPECT_FALSE(number("x").equal(CIMValue(Uint8(10))));
    EXPECT_FALSE(text("no datetime").equal(CIMValue(CIMDateTime())));
    EXPECT_FALSE(number("1").equal(CIMValue(Array<Uint8>(1, Uint8(1)))));
    EXPECT_FALSE(number("1").equal(CIMValue(CIMTYPE_UINT8, false)));
    EXPECT_FALSE(number("x").equal(CIMValue(CIMTYPE_UINT8, false)));
    EXPECT_FALSE(key("x", CIMKeyBinding::BOOLEAN).equal(CIMValue()));
    EXPECT_FALSE(text("x").equal(CIMValue(CIMInstance(CIMName("A")))));
}

TEST(CIMKeyBinding, CopiesAreIndependent) {
    const CIMKeyBinding original = text("x");
    CIMKeyBinding copy(original);
    copy.setValue(String("y"));
    CIMKeyBinding assigned;
    assigned = original;
    EXPECT_EQ(utf8(original.getValue()), "x");
    EXPECT_TRUE(assigned == original);
}
