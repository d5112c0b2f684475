#include "convert/ToRemote.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "convert/ToCore.h"
#include "provider/contract/PegText.h"
#include "vskcore/TCIMChar16.h"
#include "vskcore/TCIMDateTime.h"
#include "vskcore/TCIMReference.h"

namespace NQELVSK20 {
namespace {

using Pegasus::CIMValue;
using Type = TCIMValue::TCIMType;

const CIMValue kUntouched{Pegasus::String("untouched")};

CIMValue Convert(const TCIMValue& value) {
    CIMValue out(kUntouched);
    ConvertToRemoteValue(value, out);
    return out;
}

TCIMValue ArrayOf(Type::ECIMType code, const std::vector<TCIMValue>& elements) {
    return TCIMValue(code, 0, elements);
}

TCIMValue ReferenceTo(const std::string& path) {
    TCIMReference reference(nullptr, {});
    reference.SetPath(path);
    return TCIMValue(reference);
}

/// Whether a value is just that: type, array flag, null state and content.
void ExpectSame(const CIMValue& actual, const CIMValue& expected) {
    EXPECT_EQ(actual.getType(), expected.getType());
    EXPECT_EQ(actual.isArray(), expected.isArray());
    EXPECT_TRUE(actual == expected) << ToText(actual.toString()) << " instead of "
                                    << ToText(expected.toString());
}

/// A host numeric type with the remote type and the host's code for it.
template <class THost, class TRemote, Type::ECIMType kHostCode>
struct Number {
    using Host = THost;
    using Remote = TRemote;
    static constexpr Type::ECIMType kCode = kHostCode;
};

using Numbers = ::testing::Types<
    Number<unsigned char, Pegasus::Uint8, Type::eUint8>, Number<signed char, Pegasus::Sint8, Type::eSint8>,
    Number<unsigned short, Pegasus::Uint16, Type::eUint16>, Number<short, Pegasus::Sint16, Type::eSint16>,
    Number<unsigned int, Pegasus::Uint32, Type::eUint32>, Number<int, Pegasus::Sint32, Type::eSint32>,
    Number<unsigned long long, Pegasus::Uint64, Type::eUint64>,
    Number<long long, Pegasus::Sint64, Type::eSint64>, Number<float, Pegasus::Real32, Type::eReal32>,
    Number<double, Pegasus::Real64, Type::eReal64>>;

template <class T>
class NumberToRemoteTest : public ::testing::Test {
protected:
    using Host = typename T::Host;

    static std::vector<Host> Extremes() {
        using Limits = std::numeric_limits<Host>;
        return {Limits::lowest(), Host(0), Host(1), Limits::min(), Limits::max()};
    }
};

struct NumberName {
    template <class T>
    static std::string GetName(int) {
        return Pegasus::cimTypeToString(CIMValue(typename T::Remote()).getType());
    }
};

TYPED_TEST_SUITE(NumberToRemoteTest, Numbers, NumberName);

TYPED_TEST(NumberToRemoteTest, KeepsEveryExtreme) {
    for (const auto number : TestFixture::Extremes()) {
        ExpectSame(Convert(TCIMValue(number)), CIMValue(static_cast<typename TypeParam::Remote>(number)));
    }
}

TYPED_TEST(NumberToRemoteTest, OfANullIsZero) {
    ExpectSame(Convert(TCIMValue(TypeParam::kCode, 0)), CIMValue(typename TypeParam::Remote(0)));
}

TYPED_TEST(NumberToRemoteTest, ArrayKeepsOrderAndExtremes) {
    std::vector<TCIMValue> elements;
    Pegasus::Array<typename TypeParam::Remote> expected;
    for (const auto number : TestFixture::Extremes()) {
        elements.push_back(TCIMValue(number));
        expected.append(static_cast<typename TypeParam::Remote>(number));
    }
    ExpectSame(Convert(ArrayOf(TypeParam::kCode, elements)), CIMValue(expected));
}

TYPED_TEST(NumberToRemoteTest, OfAnEmptyArrayIsAnEmptyArray) {
    const CIMValue value = Convert(ArrayOf(TypeParam::kCode, {}));
    ExpectSame(value, CIMValue(Pegasus::Array<typename TypeParam::Remote>()));
    EXPECT_FALSE(value.isNull());
}

TEST(RealToRemoteTest, KeepsInfinitiesAndNotANumber) {
    Pegasus::Real64 real = 0;
    Convert(TCIMValue(-HUGE_VAL)).get(real);
    EXPECT_EQ(real, -HUGE_VAL);
    Convert(TCIMValue(std::nan(""))).get(real);
    EXPECT_TRUE(std::isnan(real));
}

TEST(BooleanToRemoteTest, KeepsTrueAndFalse) {
    ExpectSame(Convert(TCIMValue(true)), CIMValue(Pegasus::Boolean(true)));
    ExpectSame(Convert(TCIMValue(false)), CIMValue(Pegasus::Boolean(false)));
}

TEST(BooleanToRemoteTest, OfANullIsFalse) {
    ExpectSame(Convert(TCIMValue(Type::eBoolean, 0)), CIMValue(Pegasus::Boolean(false)));
}

TEST(BooleanToRemoteTest, ArrayKeepsItsElements) {
    Pegasus::Array<Pegasus::Boolean> expected;
    expected.append(false);
    expected.append(true);
    ExpectSame(Convert(ArrayOf(Type::eBoolean, {TCIMValue(false), TCIMValue(true)})), CIMValue(expected));
}

TEST(Char16ToRemoteTest, OfTheCode65IsTheCharacterA) {
    ExpectSame(Convert(TCIMValue(TCIMChar16("65"))), CIMValue(Pegasus::Char16('A')));
}

TEST(Char16ToRemoteTest, ArrayKeepsItsCodes) {
    Pegasus::Array<Pegasus::Char16> expected;
    expected.append(Pegasus::Char16('A'));
    expected.append(Pegasus::Char16(0xFFFF));
    ExpectSame(Convert(ArrayOf(Type::eChar16, {TCIMValue(TCIMChar16("65")), TCIMValue(TCIMChar16("65535"))})),
               CIMValue(expected));
}

TEST(StringToRemoteTest, KeepsTextAsUtf8) {
    ExpectSame(Convert(TCIMValue("\xC3\xA9\xE2\x82\xAC")), CIMValue(Pegasus::String("\xC3\xA9\xE2\x82\xAC")));
}

TEST(StringToRemoteTest, OfANullIsTheEmptyString) {
    const CIMValue value = Convert(TCIMValue(Type::eString, 0));
    ExpectSame(value, CIMValue(Pegasus::String()));
    EXPECT_FALSE(value.isNull());
}

TEST(StringToRemoteTest, ArrayKeepsItsTexts) {
    Pegasus::Array<Pegasus::String> expected;
    expected.append(Pegasus::String("a,b"));
    expected.append(Pegasus::String());
    ExpectSame(Convert(ArrayOf(Type::eString, {TCIMValue("a,b"), TCIMValue("")})), CIMValue(expected));
}

// An element that is itself an array tells the host's string conversion from its printed form.
TEST(StringToRemoteTest, ArrayReadsItsElementsThroughTheStringConversion) {
    const TCIMValue nested = ArrayOf(Type::eString, {TCIMValue("a"), TCIMValue("b")});
    ASSERT_NE(nested.operator std::string(), nested.ToString(10));
    ExpectSame(Convert(ArrayOf(Type::eString, {nested})),
               CIMValue(Pegasus::Array<Pegasus::String>(1, Pegasus::String("a"))));
}

TEST(StringToRemoteTest, OfAnEmptyArrayIsAnEmptyArray) {
    const CIMValue value = Convert(ArrayOf(Type::eString, {}));
    ExpectSame(value, CIMValue(Pegasus::Array<Pegasus::String>()));
    EXPECT_FALSE(value.isNull());
}

TEST(DateTimeToRemoteTest, KeepsPointsInTimeAndIntervals) {
    for (const char* text : {"20240229235959.999999+060", "00000012000000.000000:000"}) {
        ExpectSame(Convert(TCIMValue(TCIMDateTime(text))),
                   CIMValue(Pegasus::CIMDateTime(Pegasus::String(text))));
    }
}

TEST(DateTimeToRemoteTest, ArrayKeepsItsElements) {
    Pegasus::Array<Pegasus::CIMDateTime> expected;
    expected.append(Pegasus::CIMDateTime(Pegasus::String("20240229235959.999999+060")));
    ExpectSame(Convert(ArrayOf(Type::eDateTime, {TCIMValue(TCIMDateTime("20240229235959.999999+060"))})),
               CIMValue(expected));
}

TEST(DateTimeToRemoteTest, OfAnEmptyArrayIsAnEmptyArray) {
    const CIMValue value = Convert(ArrayOf(Type::eDateTime, {}));
    ExpectSame(value, CIMValue(Pegasus::Array<Pegasus::CIMDateTime>()));
    EXPECT_FALSE(value.isNull());
}

TEST(DateTimeToRemoteTest, OfMalformedTextThrowsAndLeavesTheTargetUntouched) {
    CIMValue out(kUntouched);
    EXPECT_THROW(ConvertToRemoteValue(TCIMValue(TCIMDateTime("yesterday")), out),
                 Pegasus::InvalidDateTimeFormatException);
    EXPECT_THROW(ConvertToRemoteValue(ArrayOf(Type::eDateTime, {TCIMValue(TCIMDateTime("yesterday"))}), out),
                 Pegasus::InvalidDateTimeFormatException);
    ExpectSame(out, kUntouched);
}

TEST(ReferenceToRemoteTest, ParsesThePath) {
    const char* path = "//host/root/cimv2:CIM_Fan.DeviceID=\"a\\\"b\",Number=2";
    ExpectSame(Convert(ReferenceTo(path)), CIMValue(Pegasus::CIMObjectPath(Pegasus::String(path))));
}

TEST(ReferenceToRemoteTest, OfAMalformedPathThrowsAndLeavesTheTargetUntouched) {
    CIMValue out(kUntouched);
    EXPECT_THROW(ConvertToRemoteValue(ReferenceTo("CIM_Fan.DeviceID="), out),
                 Pegasus::MalformedObjectNameException);
    ExpectSame(out, kUntouched);
}

TEST(ReferenceToRemoteTest, LeavesTheTargetUntouchedForAnArray) {
    ExpectSame(Convert(ArrayOf(Type::eReference, {ReferenceTo("CIM_Fan.DeviceID=\"1\"")})), kUntouched);
}

TEST(UnknownToRemoteTest, LeavesTheTargetUntouched) {
    ExpectSame(Convert(TCIMValue()), kUntouched);
    ExpectSame(Convert(ArrayOf(Type::eUnknown, {TCIMValue(1)})), kUntouched);
}

TEST(ArrayToRemoteTest, LeavesTheTargetUntouchedForAnArrayCode) {
    ExpectSame(Convert(ArrayOf(Type::eSint32Array, {TCIMValue(1)})), kUntouched);
    ExpectSame(Convert(TCIMValue(Type::eStringArray, 0)), kUntouched);
}

/// A host value of every type that travels both ways, scalar or array.
std::vector<TCIMValue> EveryKindOfValue() {
    const std::vector<TCIMValue> scalars{TCIMValue(true),
                                         TCIMValue(static_cast<unsigned char>(200)),
                                         TCIMValue(static_cast<signed char>(-100)),
                                         TCIMValue(static_cast<unsigned short>(60000)),
                                         TCIMValue(static_cast<short>(-30000)),
                                         TCIMValue(4000000000u),
                                         TCIMValue(-2000000000),
                                         TCIMValue(18000000000000000000ull),
                                         TCIMValue(-9000000000000000000ll),
                                         TCIMValue(1.5f),
                                         TCIMValue(-2.25e300),
                                         TCIMValue(TCIMChar16("8364")),
                                         TCIMValue("\xE2\x82\xAC"),
                                         TCIMValue(TCIMDateTime("20240229235959.999999+060"))};
    std::vector<TCIMValue> all(scalars);
    for (const TCIMValue& scalar : scalars) {
        all.push_back(TCIMValue(scalar.GetType(), 0, {scalar, scalar}));
        all.push_back(TCIMValue(scalar.GetType(), 0, std::vector<TCIMValue>()));
    }
    return all;
}

TEST(RoundTripTest, BringsEveryKindOfValueBackUnchanged) {
    for (const TCIMValue& value : EveryKindOfValue()) {
        const CIMValue remote = Convert(value);
        TCIMValue back;
        ConvertToCoreValue("Name", remote, remote.getType(), remote.isArray(), back, {});
        EXPECT_EQ(back.GetType(), value.GetType());
        EXPECT_EQ(back.IsArray(), value.IsArray());
        EXPECT_FALSE(back != value) << back.ToString(10) << " instead of " << value.ToString(10);
    }
}

}  // namespace
}  // namespace NQELVSK20
