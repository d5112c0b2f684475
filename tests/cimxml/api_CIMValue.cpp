#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMValue.h>

#include <limits>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

template <class T>
std::string textOf(const T& x) {
    return utf8(CIMValue(x).toString());
}

template <class T>
Array<T> arrayOf(std::initializer_list<T> items) {
    Array<T> result;
    for (const T& item : items)
        result.append(item);
    return result;
}

CIMInstance instance(const char* className = "A") {
    CIMInstance result{CIMName(className)};
    result.addProperty(CIMProperty(CIMName("p"), CIMValue(Uint32(1))));
    return result;
}

/// One scalar and one array type of CIM, and an example of its content.
template <class T, CIMType Type>
struct TypeCase {
    using Item = T;
    static constexpr CIMType type = Type;
};

template <class T>
T example();
template <>
Boolean example() {
    return true;
}
template <>
Uint8 example() {
    return 255;
}
template <>
Sint8 example() {
    return -128;
}
template <>
Uint16 example() {
    return 65535;
}
template <>
Sint16 example() {
    return -32768;
}
template <>
Uint32 example() {
    return 4294967295u;
}
template <>
Sint32 example() {
    return std::numeric_limits<Sint32>::min();
}
template <>
Uint64 example() {
    return std::numeric_limits<Uint64>::max();
}
template <>
Sint64 example() {
    return std::numeric_limits<Sint64>::min();
}
template <>
Real32 example() {
    return 1.5f;
}
template <>
Real64 example() {
    return -2.5e100;
}
template <>
Char16 example() {
    return Char16(0x20AC);
}
template <>
String example() {
    return String("text");
}
template <>
CIMDateTime example() {
    return CIMDateTime(String("20180911124613.128763+120"));
}
template <>
CIMObjectPath example() {
    return CIMObjectPath(String("root:A.k=1"));
}
template <>
CIMObject example() {
    return CIMObject(instance());
}
template <>
CIMInstance example() {
    return instance();
}

template <class T>
bool same(const T& x, const T& y) {
    return x == y;
}
bool same(const CIMObject& x, const CIMObject& y) {
    return x.identical(y);
}
bool same(const CIMInstance& x, const CIMInstance& y) {
    return x.identical(y);
}

template <class Case>
class CIMValueOf : public testing::Test {
protected:
    const typename Case::Item item = example<typename Case::Item>();
    const Array<typename Case::Item> items{2, item};
};

using AllTypes = testing::Types<
    TypeCase<Boolean, CIMTYPE_BOOLEAN>, TypeCase<Uint8, CIMTYPE_UINT8>, TypeCase<Sint8, CIMTYPE_SINT8>,
    TypeCase<Uint16, CIMTYPE_UINT16>, TypeCase<Sint16, CIMTYPE_SINT16>, TypeCase<Uint32, CIMTYPE_UINT32>,
    TypeCase<Sint32, CIMTYPE_SINT32>, TypeCase<Uint64, CIMTYPE_UINT64>, TypeCase<Sint64, CIMTYPE_SINT64>,
    TypeCase<Real32, CIMTYPE_REAL32>, TypeCase<Real64, CIMTYPE_REAL64>, TypeCase<Char16, CIMTYPE_CHAR16>,
    TypeCase<String, CIMTYPE_STRING>, TypeCase<CIMDateTime, CIMTYPE_DATETIME>,
    TypeCase<CIMObjectPath, CIMTYPE_REFERENCE>, TypeCase<CIMObject, CIMTYPE_OBJECT>,
    TypeCase<CIMInstance, CIMTYPE_INSTANCE>>;
TYPED_TEST_SUITE(CIMValueOf, AllTypes, );

}  // namespace

TYPED_TEST(CIMValueOf, ScalarComesBack) {
    using T = typename TypeParam::Item;
    const CIMValue value(this->item);
    EXPECT_EQ(value.getType(), TypeParam::type);
    EXPECT_FALSE(value.isArray());
    EXPECT_FALSE(value.isNull());
    EXPECT_EQ(value.getArraySize(), 0u);
    T out{};
    value.get(out);
    EXPECT_TRUE(same(out, this->item));
}

TYPED_TEST(CIMValueOf, ArrayComesBack) {
    using T = typename TypeParam::Item;
    const CIMValue value(this->items);
    EXPECT_EQ(value.getType(), TypeParam::type);
    EXPECT_TRUE(value.isArray());
    EXPECT_FALSE(value.isNull());
    EXPECT_EQ(value.getArraySize(), 2u);
    Array<T> out;
    value.get(out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(same(out[1], this->item));
}

TYPED_TEST(CIMValueOf, EmptyArrayIsNotNull) {
    using T = typename TypeParam::Item;
    const CIMValue value{Array<T>()};
    EXPECT_TRUE(value.isArray());
    EXPECT_FALSE(value.isNull());
    EXPECT_EQ(value.getArraySize(), 0u);
    EXPECT_EQ(utf8(value.toString()), "");
    Array<T> out = this->items;
    value.get(out);
    EXPECT_EQ(out.size(), 0u);
}

TYPED_TEST(CIMValueOf, SetReplacesAnything) {
    using T = typename TypeParam::Item;
    CIMValue value(String("before"));
    value.set(this->item);
    EXPECT_TRUE(value == CIMValue(this->item));
    value.set(this->items);
    EXPECT_TRUE(value == CIMValue(this->items));
    T out{};
    value.set(this->item);
    value.get(out);
    EXPECT_TRUE(same(out, this->item));
}

TYPED_TEST(CIMValueOf, NullHasItsTypeAndLeavesArgumentsAlone) {
    using T = typename TypeParam::Item;
    const CIMValue scalar(TypeParam::type, false);
    EXPECT_TRUE(scalar.isNull());
    EXPECT_FALSE(scalar.isArray());
    EXPECT_EQ(scalar.getType(), TypeParam::type);
    EXPECT_EQ(utf8(scalar.toString()), "");
    T out = this->item;
    scalar.get(out);
    EXPECT_TRUE(same(out, this->item));

    const CIMValue array(TypeParam::type, true);
    EXPECT_TRUE(array.isNull());
    EXPECT_TRUE(array.isArray());
    EXPECT_EQ(array.getArraySize(), 0u);
    EXPECT_EQ(utf8(array.toString()), "");
    Array<T> arrayOut = this->items;
    array.get(arrayOut);
    EXPECT_EQ(arrayOut.size(), 2u);
}

TYPED_TEST(CIMValueOf, NullArrayDeclaresItsSize) {
    const CIMValue value(TypeParam::type, true, 5);
    EXPECT_TRUE(value.isNull());
    EXPECT_EQ(value.getArraySize(), 5u);
    CIMValue other;
    other.setNullValue(TypeParam::type, true, 3);
    EXPECT_TRUE(other.isNull());
    EXPECT_EQ(other.getArraySize(), 3u);
    EXPECT_TRUE(value == other);
    EXPECT_EQ(CIMValue(TypeParam::type, false, 5).getArraySize(), 0u);
}

TYPED_TEST(CIMValueOf, SetNullValueForgetsTheContent) {
    using T = typename TypeParam::Item;
    CIMValue value(this->item);
    value.setNullValue(TypeParam::type, false);
    EXPECT_TRUE(value.isNull());
    EXPECT_TRUE(value == CIMValue(TypeParam::type, false));
    EXPECT_TRUE(value != CIMValue(this->item));
    T out = this->item;
    value.get(out);
    EXPECT_TRUE(same(out, this->item));
}

TYPED_TEST(CIMValueOf, ReadingAsAnotherTypeIsAMismatch) {
    using T = typename TypeParam::Item;
    T out = this->item;
    Array<T> arrayOut = this->items;
    const std::string message = "type mismatch";
    for (int type = CIMTYPE_BOOLEAN; type <= CIMTYPE_INSTANCE; ++type) {
        const CIMValue scalar(CIMType(type), false);
        const CIMValue array(CIMType(type), true);
        EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { array.get(out); }), message);
        EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { scalar.get(arrayOut); }), message);
        if (type != TypeParam::type) {
            EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { scalar.get(out); }), message);
            EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { array.get(arrayOut); }), message);
        }
    }
    EXPECT_TRUE(same(out, this->item));
    EXPECT_EQ(arrayOut.size(), 2u);
}

TYPED_TEST(CIMValueOf, EqualsWhatHasSameTypeAndContent) {
    using T = typename TypeParam::Item;
    const CIMValue value(this->item);
    EXPECT_TRUE(value == CIMValue(this->item));
    EXPECT_TRUE(value.equal(CIMValue(this->item)));
    EXPECT_FALSE(value != CIMValue(this->item));
    EXPECT_TRUE(value != CIMValue(this->items));
    EXPECT_TRUE(value != CIMValue(TypeParam::type, false));
    EXPECT_TRUE(CIMValue(this->items) == CIMValue(Array<T>(2, this->item)));
    EXPECT_TRUE(CIMValue(this->items) != CIMValue(Array<T>(3, this->item)));
    EXPECT_TRUE(CIMValue(TypeParam::type, false) == CIMValue(TypeParam::type, false));
    EXPECT_TRUE(CIMValue(TypeParam::type, true) != CIMValue(Array<T>()));
    EXPECT_TRUE(value.typeCompatible(CIMValue(TypeParam::type, false)));
    EXPECT_FALSE(value.typeCompatible(CIMValue(TypeParam::type, true)));
}

TYPED_TEST(CIMValueOf, CopiesAreIndependent) {
    const CIMValue original(this->item);
    CIMValue changed(original);
    changed.set(String("other"));
    CIMValue assigned;
    assigned = original;
    CIMValue assignedByName;
    assignedByName.assign(original);
    CIMValue cleared(original);
    cleared.clear();
    const CIMValue& self = assigned;
    assigned = self;
    EXPECT_TRUE(original == CIMValue(this->item));
    EXPECT_TRUE(assigned == original);
    EXPECT_TRUE(assignedByName == original);
    EXPECT_TRUE(cleared.isNull());
}

TYPED_TEST(CIMValueOf, ArraysAreCopiedInAndOut) {
    using T = typename TypeParam::Item;
    Array<T> in(this->items);
    const CIMValue value(in);
    in.clear();
    Array<T> out;
    value.get(out);
    out.remove(0);
    EXPECT_EQ(value.getArraySize(), 2u);
    EXPECT_TRUE(value == CIMValue(this->items));
}

TEST(CIMValue, IsANullBooleanByDefault) {
    CIMValue value;
    EXPECT_TRUE(value.isNull());
    EXPECT_FALSE(value.isArray());
    EXPECT_EQ(value.getType(), CIMTYPE_BOOLEAN);
    value.set(String("x"));
    value.clear();
    EXPECT_TRUE(value == CIMValue());
    EXPECT_EQ(value.getType(), CIMTYPE_BOOLEAN);
}

TEST(CIMValue, TypesWithEqualTextsDiffer) {
    EXPECT_TRUE(CIMValue(Uint8(1)) != CIMValue(Uint16(1)));
    EXPECT_TRUE(CIMValue(Uint32(1)) != CIMValue(Sint32(1)));
    EXPECT_TRUE(CIMValue(String("1")) != CIMValue(Uint32(1)));
    EXPECT_TRUE(CIMValue(CIMTYPE_UINT8, false) != CIMValue(CIMTYPE_SINT8, false));
    EXPECT_FALSE(CIMValue(Uint8(1)).typeCompatible(CIMValue(Sint8(1))));
}

TEST(CIMValue, ContentsThatDifferDiffer) {
    EXPECT_TRUE(CIMValue(true) != CIMValue(false));
    EXPECT_TRUE(CIMValue(Uint64(1)) != CIMValue(Uint64(2)));
    EXPECT_TRUE(CIMValue(Real64(1)) != CIMValue(Real64(1.0000001)));
    EXPECT_TRUE(CIMValue(String("a")) != CIMValue(String("A")));
    EXPECT_TRUE(CIMValue(Char16('a')) != CIMValue(Char16('b')));
    EXPECT_TRUE(CIMValue(instance("A")) != CIMValue(instance("B")));
    EXPECT_TRUE(CIMValue(CIMObject(instance("A"))) != CIMValue(CIMObject(instance("B"))));
    EXPECT_TRUE(CIMValue(CIMObjectPath(String("A.k=1"))) == CIMValue(CIMObjectPath(String("a.K=0x1"))));
    EXPECT_TRUE(CIMValue(arrayOf<Uint8>({1, 2})) != CIMValue(arrayOf<Uint8>({2, 1})));
    EXPECT_TRUE(CIMValue(arrayOf<String>({String("a")})) != CIMValue(arrayOf<String>({String("A")})));
}

TEST(CIMValue, NotANumberEqualsNothing) {
    const Real64 nan = std::numeric_limits<Real64>::quiet_NaN();
    EXPECT_TRUE(CIMValue(nan) != CIMValue(nan));
}

TEST(CIMValue, TextsOfBooleans) {
    EXPECT_EQ(textOf(true), "TRUE");
    EXPECT_EQ(textOf(false), "FALSE");
    EXPECT_EQ(textOf(arrayOf<Boolean>({true, false})), "TRUE FALSE ");
}

TEST(CIMValue, TextsOfExtremeIntegers) {
    EXPECT_EQ(textOf(Uint8(255)), "255");
    EXPECT_EQ(textOf(Sint8(-128)), "-128");
    EXPECT_EQ(textOf(Uint16(65535)), "65535");
    EXPECT_EQ(textOf(Sint16(-32768)), "-32768");
    EXPECT_EQ(textOf(Uint32(4294967295u)), "4294967295");
    EXPECT_EQ(textOf(std::numeric_limits<Sint32>::min()), "-2147483648");
    EXPECT_EQ(textOf(std::numeric_limits<Uint64>::max()), "18446744073709551615");
    EXPECT_EQ(textOf(std::numeric_limits<Sint64>::min()), "-9223372036854775808");
    EXPECT_EQ(textOf(std::numeric_limits<Sint64>::max()), "9223372036854775807");
    EXPECT_EQ(textOf(Uint32(0)), "0");
    EXPECT_EQ(textOf(arrayOf<Sint8>({-1, 0, 127})), "-1 0 127 ");
}

TEST(CIMValue, TextsOfReals) {
    EXPECT_EQ(textOf(Real64(1)), "1.0000000000000000e+00");
    EXPECT_EQ(textOf(Real64(-2.5e100)), "-2.4999999999999999e+100");
    EXPECT_EQ(textOf(Real64(0)), "0.0000000000000000e+00");
    EXPECT_EQ(textOf(Real64(0.1)), "1.0000000000000001e-01");
    EXPECT_EQ(textOf(std::numeric_limits<Real64>::min()), "2.2250738585072014e-308");
    EXPECT_EQ(textOf(std::numeric_limits<Real64>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(textOf(Real32(1.5f)), "1.5000000000000000e+00");
    EXPECT_EQ(textOf(Real32(0.1f)), "1.0000000149011612e-01");
    EXPECT_EQ(textOf(std::numeric_limits<Real64>::infinity()), "inf");
    EXPECT_EQ(textOf(-std::numeric_limits<Real64>::infinity()), "-inf");
    EXPECT_EQ(textOf(std::numeric_limits<Real64>::quiet_NaN()), "nan");
    EXPECT_EQ(textOf(arrayOf<Real64>({1, -1})), "1.0000000000000000e+00 -1.0000000000000000e+00 ");
}

TEST(CIMValue, TextsOfCharactersAndStrings) {
    EXPECT_EQ(textOf(Char16('A')), "A");
    EXPECT_EQ(textOf(Char16(0xE4)), "\xC3\xA4");
    EXPECT_EQ(textOf(Char16(0x20AC)), "\xE2\x82\xAC");
    EXPECT_EQ(textOf(arrayOf<Char16>({Char16('a'), Char16('b')})), "a b ");
    EXPECT_EQ(textOf(String("a<\"b\">&")), "a<\"b\">&");
    EXPECT_EQ(textOf(String("\xF0\x9F\x98\x80")), "\xF0\x9F\x98\x80");
    EXPECT_EQ(textOf(String()), "");
    EXPECT_EQ(textOf(arrayOf<String>({String("a b"), String(), String("c")})), "a b  c ");
}

TEST(CIMValue, TextsOfDateTimesAndReferences) {
    EXPECT_EQ(textOf(CIMDateTime()), "00000000000000.000000:000");
    EXPECT_EQ(textOf(arrayOf<CIMDateTime>({CIMDateTime(), CIMDateTime()})),
              "00000000000000.000000:000 00000000000000.000000:000 ");
    EXPECT_EQ(textOf(CIMObjectPath(String("//h1/root:A.k=\"x\\\"y\""))), "//h1/root:A.k=\"x\\\"y\"");
    EXPECT_EQ(textOf(arrayOf<CIMObjectPath>({CIMObjectPath(String("A.k=1")), CIMObjectPath()})), "A.k=1  ");
}

TEST(CIMValue, TextsOfEmbeddedObjectsAreXml) {
    const std::string xml =
        "<INSTANCE CLASSNAME=\"A\" >\n<PROPERTY NAME=\"p\"  TYPE=\"uint32\">\n"
        "<VALUE>1</VALUE>\n</PROPERTY>\n</INSTANCE>\n";
    EXPECT_EQ(textOf(instance()), xml);
    EXPECT_EQ(textOf(CIMObject(instance())), xml);
    EXPECT_EQ(textOf(Array<CIMInstance>(2, instance())), xml + " " + xml + " ");
    EXPECT_EQ(textOf(CIMObject(CIMClass(CIMName("C")))), "<CLASS NAME=\"C\" >\n</CLASS>\n");
}

TEST(CIMValue, EmbeddedObjectsAreClonedInAndOut) {
    CIMInstance in = instance();
    const CIMValue value(in);
    in.removeProperty(0);
    CIMInstance out;
    value.get(out);
    EXPECT_EQ(out.getPropertyCount(), 1u);
    out.removeProperty(0);
    CIMInstance again;
    value.get(again);
    EXPECT_EQ(again.getPropertyCount(), 1u);

    CIMInstance inObject = instance();
    CIMValue objectValue;
    objectValue.set(CIMObject(inObject));
    inObject.removeProperty(0);
    CIMObject outObject;
    objectValue.get(outObject);
    EXPECT_EQ(outObject.getPropertyCount(), 1u);

    CIMInstance inArray = instance();
    CIMValue arrayValue(Array<CIMInstance>(1, inArray));
    inArray.removeProperty(0);
    Array<CIMInstance> outArray;
    arrayValue.get(outArray);
    EXPECT_EQ(outArray[0].getPropertyCount(), 1u);
}

TEST(CIMValue, RejectsNullObjects) {
    const std::string message = "uninitialized object";
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([] { CIMValue{CIMInstance()}; }), message);
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([] { CIMValue{CIMObject()}; }), message);
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([] { CIMValue{Array<CIMInstance>(1)}; }),
              message);
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([] { CIMValue{Array<CIMObject>(1)}; }), message);
    CIMValue value(Uint8(1));
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([&] { value.set(CIMInstance()); }), message);
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([&] { value.set(Array<CIMObject>(1)); }),
              message);
    EXPECT_TRUE(value == CIMValue(Uint8(1)));
}

TEST(CIMValue, ArraysChangeIndependently) {
    Array<CIMValue> values(2, CIMValue(Uint8(1)));
    Array<CIMValue> copy(values);
    copy[0].set(String("x"));
    EXPECT_TRUE(values[0] == CIMValue(Uint8(1)));
    EXPECT_TRUE(values[1] == CIMValue(Uint8(1)));
    EXPECT_TRUE(copy[0] == CIMValue(String("x")));
}
