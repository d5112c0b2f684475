#include "convert/ToCore.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "tests/support/RecordingLogger.h"
#include "vskcore/TCIMChar16.h"
#include "vskcore/TCIMDateTime.h"
#include "vskcore/TCIMReference.h"

namespace NQELVSK20 {
namespace {

using Pegasus::CIMValue;
using Type = TCIMValue::TCIMType;

const TCIMValue kUntouched("untouched");

/// Converts as an element that declares `type` and `isArray`.
TCIMValue ConvertAs(const CIMValue& value, Pegasus::CIMType type, bool isArray) {
    TCIMValue out(kUntouched);
    ConvertToCoreValue("Name", value, type, isArray, out, boost::shared_ptr<ICIMClass>());
    return out;
}

/// Converts as an element that declares the value's own type.
TCIMValue Convert(const CIMValue& value) {
    return ConvertAs(value, value.getType(), value.isArray());
}

void ExpectSame(const TCIMValue& actual, const TCIMValue& expected) {
    EXPECT_EQ(actual.GetType(), expected.GetType());
    EXPECT_FALSE(actual != expected) << actual.ToString(10) << " instead of " << expected.ToString(10);
}

const std::vector<TCIMValue>& Elements(const TCIMValue& array) {
    return array;
}

/// A remote numeric type with the host's type and code for it.
template <class TRemote, class THost, Pegasus::CIMType kRemoteType, Type::ECIMType kHostCode>
struct Number {
    using Remote = TRemote;
    using Host = THost;
    static constexpr Pegasus::CIMType kType = kRemoteType;
    static constexpr Type::ECIMType kCode = kHostCode;
};

using Numbers =
    ::testing::Types<Number<Pegasus::Uint8, unsigned char, Pegasus::CIMTYPE_UINT8, Type::eUint8>,
                     Number<Pegasus::Sint8, signed char, Pegasus::CIMTYPE_SINT8, Type::eSint8>,
                     Number<Pegasus::Uint16, unsigned short, Pegasus::CIMTYPE_UINT16, Type::eUint16>,
                     Number<Pegasus::Sint16, short, Pegasus::CIMTYPE_SINT16, Type::eSint16>,
                     Number<Pegasus::Uint32, unsigned int, Pegasus::CIMTYPE_UINT32, Type::eUint32>,
                     Number<Pegasus::Sint32, int, Pegasus::CIMTYPE_SINT32, Type::eSint32>,
                     Number<Pegasus::Uint64, unsigned long long, Pegasus::CIMTYPE_UINT64, Type::eUint64>,
                     Number<Pegasus::Sint64, long long, Pegasus::CIMTYPE_SINT64, Type::eSint64>,
                     Number<Pegasus::Real32, float, Pegasus::CIMTYPE_REAL32, Type::eReal32>,
                     Number<Pegasus::Real64, double, Pegasus::CIMTYPE_REAL64, Type::eReal64>>;

template <class T>
class NumberToCoreTest : public ::testing::Test {
protected:
    using Remote = typename T::Remote;
    using Host = typename T::Host;

    static std::vector<Remote> Extremes() {
        using Limits = std::numeric_limits<Remote>;
        return {Limits::lowest(), Remote(0), Remote(1), Limits::min(), Limits::max()};
    }
};

struct NumberName {
    template <class T>
    static std::string GetName(int) {
        return Pegasus::cimTypeToString(T::kType);
    }
};

TYPED_TEST_SUITE(NumberToCoreTest, Numbers, NumberName);

TYPED_TEST(NumberToCoreTest, KeepsEveryExtreme) {
    for (const auto number : TestFixture::Extremes()) {
        const TCIMValue value = Convert(CIMValue(number));
        EXPECT_EQ(value.GetType(), TypeParam::kCode);
        EXPECT_FALSE(value.IsArray());
        ExpectSame(value, TCIMValue(static_cast<typename TypeParam::Host>(number)));
    }
}

TYPED_TEST(NumberToCoreTest, OfANullIsZero) {
    ExpectSame(Convert(CIMValue(TypeParam::kType, false)), TCIMValue(typename TypeParam::Host(0)));
}

TYPED_TEST(NumberToCoreTest, ArrayCarriesTheScalarCodeAndKeepsOrderAndExtremes) {
    const auto numbers = TestFixture::Extremes();
    const Pegasus::Array<typename TypeParam::Remote> remote(numbers.data(),
                                                            static_cast<Pegasus::Uint32>(numbers.size()));

    const TCIMValue array = Convert(CIMValue(remote));

    EXPECT_TRUE(array.IsArray());
    EXPECT_EQ(array.GetType(), TypeParam::kCode);
    ASSERT_EQ(Elements(array).size(), numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        ExpectSame(Elements(array)[i], TCIMValue(static_cast<typename TypeParam::Host>(numbers[i])));
    }
}

TYPED_TEST(NumberToCoreTest, OfANullOrEmptyArrayIsAnEmptyArray) {
    const TCIMValue empty(TypeParam::kCode, 0, std::vector<TCIMValue>());
    ExpectSame(Convert(CIMValue(TypeParam::kType, true)), empty);
    ExpectSame(Convert(CIMValue(Pegasus::Array<typename TypeParam::Remote>())), empty);
}

TYPED_TEST(NumberToCoreTest, OfAValueOfAnotherTypeThrowsAndLeavesOutUntouched) {
    TCIMValue out(kUntouched);
    const CIMValue text{Pegasus::String("1")};
    EXPECT_THROW(ConvertToCoreValue("Name", text, TypeParam::kType, false, out, {}),
                 Pegasus::TypeMismatchException);
    EXPECT_THROW(ConvertToCoreValue("Name", text, TypeParam::kType, true, out, {}),
                 Pegasus::TypeMismatchException);
    ExpectSame(out, kUntouched);
}

TEST(RealToCoreTest, KeepsInfinitiesAndNotANumber) {
    EXPECT_EQ(static_cast<double>(Convert(CIMValue(Pegasus::Real64(HUGE_VAL)))), HUGE_VAL);
    EXPECT_EQ(static_cast<double>(Convert(CIMValue(Pegasus::Real64(-HUGE_VAL)))), -HUGE_VAL);
    EXPECT_TRUE(std::isnan(static_cast<double>(Convert(CIMValue(Pegasus::Real64(std::nan("")))))));
    EXPECT_TRUE(std::isnan(static_cast<float>(Convert(CIMValue(Pegasus::Real32(std::nanf("")))))));
}

TEST(ArrayToCoreTest, OfThreeSint16ValuesHasTheHostCodeFiveAndHoldsThreeSint16Values) {
    const Pegasus::Sint16 numbers[] = {-3, 0, 7};
    const TCIMValue array = Convert(CIMValue(Pegasus::Array<Pegasus::Sint16>(numbers, 3)));
    EXPECT_EQ(static_cast<int>(array.GetType()), 5);
    ASSERT_EQ(Elements(array).size(), 3u);
    ExpectSame(Elements(array)[0], TCIMValue(short(-3)));
    ExpectSame(Elements(array)[1], TCIMValue(short(0)));
    ExpectSame(Elements(array)[2], TCIMValue(short(7)));
}

TEST(BooleanToCoreTest, KeepsTrueAndFalse) {
    ExpectSame(Convert(CIMValue(Pegasus::Boolean(true))), TCIMValue(true));
    ExpectSame(Convert(CIMValue(Pegasus::Boolean(false))), TCIMValue(false));
}

TEST(BooleanToCoreTest, OfANullIsFalse) {
    ExpectSame(Convert(CIMValue(Pegasus::CIMTYPE_BOOLEAN, false)), TCIMValue(false));
}

// A boolean is compared with true rather than read.
TEST(BooleanToCoreTest, OfAValueOfAnotherTypeIsFalseAndThrowsNothing) {
    ExpectSame(ConvertAs(CIMValue(Pegasus::Uint8(1)), Pegasus::CIMTYPE_BOOLEAN, false), TCIMValue(false));
    ExpectSame(ConvertAs(CIMValue(Pegasus::String("TRUE")), Pegasus::CIMTYPE_BOOLEAN, false),
               TCIMValue(false));
    ExpectSame(
        ConvertAs(CIMValue(Pegasus::Array<Pegasus::Boolean>(1, true)), Pegasus::CIMTYPE_BOOLEAN, false),
        TCIMValue(false));
}

TEST(BooleanToCoreTest, ArrayKeepsItsElements) {
    Pegasus::Array<Pegasus::Boolean> remote;
    remote.append(true);
    remote.append(false);
    ExpectSame(Convert(CIMValue(remote)), TCIMValue(Type::eBoolean, 0, {TCIMValue(true), TCIMValue(false)}));
}

TEST(BooleanToCoreTest, OfANullArrayIsAnEmptyArray) {
    ExpectSame(Convert(CIMValue(Pegasus::CIMTYPE_BOOLEAN, true)),
               TCIMValue(Type::eBoolean, 0, std::vector<TCIMValue>()));
}

TEST(Char16ToCoreTest, GoesThroughTheDecimalTextOfItsCode) {
    ExpectSame(Convert(CIMValue(Pegasus::Char16('A'))), TCIMValue(TCIMChar16("65")));
    ExpectSame(Convert(CIMValue(Pegasus::Char16(0xFFFF))), TCIMValue(TCIMChar16("65535")));
    ExpectSame(Convert(CIMValue(Pegasus::Char16('1'))), TCIMValue(TCIMChar16("49")));
}

TEST(Char16ToCoreTest, OfANullIsTheCodeZero) {
    ExpectSame(Convert(CIMValue(Pegasus::CIMTYPE_CHAR16, false)), TCIMValue(TCIMChar16("0")));
}

TEST(Char16ToCoreTest, ArrayKeepsItsCodes) {
    Pegasus::Array<Pegasus::Char16> remote;
    remote.append(Pegasus::Char16('A'));
    remote.append(Pegasus::Char16(0x20AC));
    ExpectSame(Convert(CIMValue(remote)),
               TCIMValue(Type::eChar16, 0, {TCIMValue(TCIMChar16("65")), TCIMValue(TCIMChar16("8364"))}));
}

TEST(StringToCoreTest, KeepsTextAsUtf8) {
    ExpectSame(Convert(CIMValue(Pegasus::String("fan"))), TCIMValue("fan"));
    ExpectSame(Convert(CIMValue(Pegasus::String("\xC3\xA9\xE2\x82\xAC"))), TCIMValue("\xC3\xA9\xE2\x82\xAC"));
}

TEST(StringToCoreTest, OfANullIsTheEmptyString) {
    const TCIMValue value = Convert(CIMValue(Pegasus::CIMTYPE_STRING, false));
    ExpectSame(value, TCIMValue(""));
    EXPECT_FALSE(value.IsNull());
}

TEST(StringToCoreTest, ArrayKeepsItsTexts) {
    Pegasus::Array<Pegasus::String> remote;
    remote.append(Pegasus::String("a,b"));
    remote.append(Pegasus::String(""));
    ExpectSame(Convert(CIMValue(remote)), TCIMValue(Type::eString, 0, {TCIMValue("a,b"), TCIMValue("")}));
}

TEST(DateTimeToCoreTest, KeepsTheTextOfPointsInTimeAndIntervals) {
    for (const char* text : {"20240229235959.999999+060", "00000012000000.000000:000"}) {
        ExpectSame(Convert(CIMValue(Pegasus::CIMDateTime(Pegasus::String(text)))),
                   TCIMValue(TCIMDateTime(text)));
    }
}

TEST(DateTimeToCoreTest, OfANullIsTheIntervalOfLengthZero) {
    ExpectSame(Convert(CIMValue(Pegasus::CIMTYPE_DATETIME, false)),
               TCIMValue(TCIMDateTime("00000000000000.000000:000")));
}

TEST(DateTimeToCoreTest, ArrayKeepsItsTexts) {
    Pegasus::Array<Pegasus::CIMDateTime> remote;
    remote.append(Pegasus::CIMDateTime(Pegasus::String("20240229235959.999999+060")));
    remote.append(Pegasus::CIMDateTime(Pegasus::String("00000012000000.000000:000")));
    ExpectSame(Convert(CIMValue(remote)), TCIMValue(Type::eDateTime, 0,
                                                    {TCIMValue(TCIMDateTime("20240229235959.999999+060")),
                                                     TCIMValue(TCIMDateTime("00000012000000.000000:000"))}));
}

TEST(ObjectToCoreTest, LeavesOutUntouchedForEmbeddedObjectsAndInstancesScalarOrArray) {
    const Pegasus::CIMInstance instance{Pegasus::CIMName("CIM_Fan")};
    const Pegasus::CIMObject object(instance);
    ExpectSame(Convert(CIMValue(object)), kUntouched);
    ExpectSame(Convert(CIMValue(instance)), kUntouched);
    ExpectSame(Convert(CIMValue(Pegasus::Array<Pegasus::CIMObject>(1, object))), kUntouched);
    ExpectSame(Convert(CIMValue(Pegasus::Array<Pegasus::CIMInstance>(1, instance))), kUntouched);
    ExpectSame(Convert(CIMValue(Pegasus::CIMTYPE_INSTANCE, false)), kUntouched);
}

class ReferenceToCoreTest : public ::testing::Test {
protected:
    TCIMValue Bound(const CIMValue& value) const {
        TCIMValue out(kUntouched);
        ConvertToCoreValue("Name", value, Pegasus::CIMTYPE_REFERENCE, value.isArray(), out, class_);
        return out;
    }

    RecordingLogger log_;
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace_{new TCimHTTPNamespace(false, "root/cimv2")};
    const boost::shared_ptr<ICIMClass> class_{new TCimHTTPClass(nameSpace_, 60000, "CIM_Fan", {})};
};

TEST_F(ReferenceToCoreTest, KeepsThePathAsTheRemoteLibraryWritesIt) {
    const char* path = "//host/root/cimv2:CIM_Fan.DeviceID=\"a\\\"b\",Number=2";
    const TCIMValue value = Bound(CIMValue(Pegasus::CIMObjectPath(Pegasus::String(path))));

    EXPECT_EQ(value.GetType(), Type::eReference);
    EXPECT_TRUE(value.IsReference());
    EXPECT_EQ(value.operator TCIMReference().GetPath(), path);
    EXPECT_EQ(value.operator TCIMReference().GetClassName(), "CIM_Fan");
}

TEST_F(ReferenceToCoreTest, IsBoundToTheNamespaceOfItsOwningClass) {
    const TCIMValue value = Bound(CIMValue(Pegasus::CIMObjectPath(Pegasus::String("CIM_Fan.DeviceID=1"))));
    EXPECT_EQ(value.operator TCIMReference().GetNamespace(), nameSpace_);
}

TEST_F(ReferenceToCoreTest, AddsNoKeysToAPathWithoutAny) {
    const TCIMValue value = Bound(CIMValue(Pegasus::CIMObjectPath(Pegasus::String("CIM_Fan"))));
    EXPECT_EQ(value.operator TCIMReference().GetPath(), "CIM_Fan");
}

TEST_F(ReferenceToCoreTest, OfANullIsAnEmptyPath) {
    const TCIMValue value = Bound(CIMValue(Pegasus::CIMTYPE_REFERENCE, false));
    EXPECT_EQ(value.GetType(), Type::eReference);
    EXPECT_EQ(value.operator TCIMReference().GetPath(), "");
}

TEST_F(ReferenceToCoreTest, LeavesOutUntouchedForAnArray) {
    const Pegasus::CIMObjectPath path{Pegasus::String("CIM_Fan.DeviceID=1")};
    ExpectSame(Bound(CIMValue(Pegasus::Array<Pegasus::CIMObjectPath>(2, path))), kUntouched);
}

TEST_F(ReferenceToCoreTest, RefusesAValueOfAnotherType) {
    EXPECT_THROW(Bound(CIMValue(Pegasus::String("CIM_Fan"))), Pegasus::TypeMismatchException);
}

TEST_F(ReferenceToCoreTest, ReliesOnItsOwningClass) {
    const CIMValue value{Pegasus::CIMObjectPath(Pegasus::String("CIM_Fan"))};
#ifdef NDEBUG
    EXPECT_EQ(Convert(value).operator TCIMReference().GetPath(), "CIM_Fan");
    const std::vector<RecordingLogger::Line> expected{{0, "ConvertToCoreValue: assertion failed: px != 0"}};
    EXPECT_EQ(log_.Lines(), expected);
#else
    EXPECT_DEATH(Convert(value), "px != 0");
#endif
}

}  // namespace
}  // namespace NQELVSK20
