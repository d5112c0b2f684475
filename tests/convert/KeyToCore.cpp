#include "convert/KeyToCore.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "provider/contract/PegText.h"
#include "vskcore/TCIMChar16.h"
#include "vskcore/TCIMDateTime.h"
#include "vskcore/TCIMReference.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;
using KeyKind = Pegasus::CIMKeyBinding;

class KeyToCore : public ::testing::Test {
protected:
    /// What a key's text becomes, and whether it was a value of the type.
    struct Result {
        bool isValue;
        TCIMValue value;
    };

    static Result Read(const std::string& text, Type declared, KeyKind::Type kind = KeyKind::STRING) {
        Result result{false, TCIMValue("left over")};
        const KeyKind key(Pegasus::CIMName("Id"), FromText(text), kind);
        result.isValue =
            ConvertKeyToCoreValue(key, declared, boost::shared_ptr<ICIMNamespace>(), result.value);
        return result;
    }

    static void ExpectValue(const Result& result, const TCIMValue& expected, const std::string& text) {
        EXPECT_TRUE(result.isValue) << text;
        EXPECT_EQ(result.value.GetType(), expected.GetType()) << text;
        EXPECT_FALSE(result.value != expected) << text << " became " << result.value.ToString(10);
    }

    static void ExpectText(const Result& result, const std::string& text) {
        EXPECT_FALSE(result.isValue) << text;
        EXPECT_EQ(result.value.GetType(), Type::eString) << text;
        EXPECT_FALSE(result.value.IsNull()) << text;
        EXPECT_EQ(result.value.ToString(10), text);
    }

    static void ExpectNoValues(Type declared, const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            ExpectText(Read(text, declared), text);
        }
    }

    static std::vector<Type::ECIMType> ScalarTypes() {
        std::vector<Type::ECIMType> types;
        for (int code = Type::eBoolean; code <= Type::eReference; ++code) {
            types.push_back(static_cast<Type::ECIMType>(code));
        }
        return types;
    }
};

/// A host integer type with its code, the texts of its limits and the texts one beyond them.
template <class TInteger, Type::ECIMType kCode>
struct KeyInteger {
    using Integer = TInteger;
    static constexpr Type::ECIMType kType = kCode;

    static std::vector<std::string> Beyond() {
        using Limits = std::numeric_limits<TInteger>;
        if constexpr (sizeof(TInteger) < sizeof(long long)) {
            return {std::to_string(static_cast<long long>(Limits::min()) - 1),
                    std::to_string(static_cast<long long>(Limits::max()) + 1)};
        } else if constexpr (Limits::is_signed) {
            return {"-9223372036854775809", "9223372036854775808"};
        } else {
            return {"-1", "18446744073709551616"};
        }
    }
};

using KeyIntegers =
    ::testing::Types<KeyInteger<unsigned char, Type::eUint8>, KeyInteger<signed char, Type::eSint8>,
                     KeyInteger<unsigned short, Type::eUint16>, KeyInteger<short, Type::eSint16>,
                     KeyInteger<unsigned int, Type::eUint32>, KeyInteger<int, Type::eSint32>,
                     KeyInteger<unsigned long long, Type::eUint64>, KeyInteger<long long, Type::eSint64>>;

template <class T>
class IntegerKeyToCore : public KeyToCore {
protected:
    using Integer = typename T::Integer;

    static constexpr bool kIsSigned = std::numeric_limits<Integer>::is_signed;

    static void ExpectInteger(const std::string& text, Integer expected) {
        KeyToCore::ExpectValue(KeyToCore::Read(text, T::kType), TCIMValue(expected), text);
    }
};

TYPED_TEST_SUITE(IntegerKeyToCore, KeyIntegers);

TYPED_TEST(IntegerKeyToCore, TakesBothLimits) {
    using Limits = std::numeric_limits<typename TestFixture::Integer>;
    TestFixture::ExpectInteger(std::to_string(Limits::min()), Limits::min());
    TestFixture::ExpectInteger(std::to_string(Limits::max()), Limits::max());
}

TYPED_TEST(IntegerKeyToCore, KeepsTheTextOfWhatIsOneBeyondALimit) {
    KeyToCore::ExpectNoValues(TypeParam::kType, TypeParam::Beyond());
}

TYPED_TEST(IntegerKeyToCore, TakesHexadecimalDigitsInAnyCase) {
    TestFixture::ExpectInteger("0x1f", 31);
    TestFixture::ExpectInteger("0X1F", 31);
    TestFixture::ExpectInteger("0x10", 16);
    TestFixture::ExpectInteger("0x00", 0);
}

TYPED_TEST(IntegerKeyToCore, TakesSignsAsFarAsTheTypeHasNumbersForThem) {
    TestFixture::ExpectInteger("+5", 5);
    TestFixture::ExpectInteger("+0x10", 16);
    TestFixture::ExpectInteger("-0", 0);
    if (TestFixture::kIsSigned) {
        TestFixture::ExpectInteger("-5", static_cast<typename TestFixture::Integer>(-5));
        TestFixture::ExpectInteger("-0x10", static_cast<typename TestFixture::Integer>(-16));
    } else {
        KeyToCore::ExpectNoValues(TypeParam::kType, {"-5", "-0x10"});
    }
}

TYPED_TEST(IntegerKeyToCore, LeadingZerosMakeNoOctalNumber) {
    TestFixture::ExpectInteger("010", 10);
}

TYPED_TEST(IntegerKeyToCore, KeepsTheTextOfWhatIsNoInteger) {
    KeyToCore::ExpectNoValues(
        TypeParam::kType, {"", "+", "-", "+-5", "--5", "0x", "0x-5", "x10", "1g", "0x1g", " 5", "5 ", "1.0",
                           "1e1", "five", "true", "18446744073709551616", "0x10000000000000000"});
}

TEST_F(KeyToCore, AnIntegersHexadecimalLimitsAreThoseOfItsType) {
    ExpectValue(Read("0xFF", Type::eUint8), TCIMValue(static_cast<unsigned char>(255)), "0xFF");
    ExpectText(Read("0x100", Type::eUint8), "0x100");
    ExpectValue(Read("-0x80", Type::eSint8), TCIMValue(static_cast<signed char>(-128)), "-0x80");
    ExpectText(Read("0x80", Type::eSint8), "0x80");
    ExpectValue(Read("0xffffffffffffffff", Type::eUint64), TCIMValue(18446744073709551615ULL), "all ones");
}

TEST_F(KeyToCore, RealsComeWithAndWithoutFractionExponentAndSign) {
    const std::vector<std::pair<std::string, double>> reals{{"1.5", 1.5},    {"-1.5", -1.5},   {"+1.5", 1.5},
                                                            {"1.5e3", 1500}, {"1.5E+3", 1500}, {"25E-2", .25},
                                                            {"-2e-1", -0.2}, {"7", 7},         {"+5", 5}};
    for (const auto& [text, real] : reals) {
        ExpectValue(Read(text, Type::eReal32), TCIMValue(static_cast<float>(real)), text);
        ExpectValue(Read(text, Type::eReal64), TCIMValue(real), text);
    }
}

TEST_F(KeyToCore, RealsMayBeInfiniteOrNoNumber) {
    for (const char* text : {"INF", "+INF", "inf"}) {
        ExpectValue(Read(text, Type::eReal32), TCIMValue(std::numeric_limits<float>::infinity()), text);
        ExpectValue(Read(text, Type::eReal64), TCIMValue(std::numeric_limits<double>::infinity()), text);
    }
    ExpectValue(Read("-INF", Type::eReal64), TCIMValue(-std::numeric_limits<double>::infinity()), "-INF");
    const Result nan = Read("NaN", Type::eReal64);
    EXPECT_TRUE(nan.isValue);
    EXPECT_TRUE(std::isnan(nan.value.operator double()));
}

TEST_F(KeyToCore, ARealBeyondItsTypesRangeKeepsItsText) {
    ExpectValue(Read("3e38", Type::eReal32), TCIMValue(3e38F), "3e38");
    ExpectNoValues(Type::eReal32, {"1e39", "-1e39"});
    ExpectValue(Read("1e39", Type::eReal64), TCIMValue(1e39), "1e39");
    ExpectNoValues(Type::eReal64, {"1e309", "-1e309"});
}

TEST_F(KeyToCore, WhatIsNoRealKeepsItsText) {
    for (const Type::ECIMType type : {Type::eReal32, Type::eReal64}) {
        ExpectNoValues(type, {"", "+", "+-5", "++5", "--1", "1,5", "1.5x", " 1", "0x10", "e3", "much"});
    }
}

TEST_F(KeyToCore, BooleansComeInAnyLetterCase) {
    for (const char* text : {"TRUE", "true", "TrUe"}) {
        ExpectValue(Read(text, Type::eBoolean), TCIMValue(true), text);
    }
    for (const char* text : {"FALSE", "false", "fAlSe"}) {
        ExpectValue(Read(text, Type::eBoolean), TCIMValue(false), text);
    }
    ExpectNoValues(Type::eBoolean, {"", "1", "0", "yes", "TRUE ", "truth"});
}

TEST_F(KeyToCore, AChar16IsTheCharacterItselfEvenADigit) {
    ExpectValue(Read("A", Type::eChar16), TCIMValue(TCIMChar16("65")), "A");
    ExpectValue(Read("7", Type::eChar16), TCIMValue(TCIMChar16("55")), "7");
    ExpectValue(Read("\xE2\x82\xAC", Type::eChar16), TCIMValue(TCIMChar16("8364")), "euro sign");
    ExpectNoValues(Type::eChar16, {"", "65", "AB", "\xF0\x9F\x98\x80"});
}

TEST_F(KeyToCore, AStringStaysAsItIsWhateverKindThePathTells) {
    for (const char* text : {"007", "", "0x10", "TRUE", "a \"b\" \\c", "\xC3\xBC \xF0\x9F\x98\x80"}) {
        for (const KeyKind::Type kind :
             {KeyKind::STRING, KeyKind::NUMERIC, KeyKind::BOOLEAN, KeyKind::REFERENCE}) {
            ExpectValue(Read(text, Type::eString, kind), TCIMValue(text), text);
        }
    }
}

TEST_F(KeyToCore, DatetimesAreTimeStampsAndIntervals) {
    for (const char* text : {"20091231235959.999999+060", "00000012112233.445566:000"}) {
        ExpectValue(Read(text, Type::eDateTime), TCIMValue(TCIMDateTime(text)), text);
    }
    ExpectNoValues(Type::eDateTime,
                   {"", "yesterday", "20091231235959.999999", "20091331235959.999999+060", "2009"});
}

TEST_F(KeyToCore, AReferenceIsThePathAsItStands) {
    for (const char* path : {"X_Fan.Id=\"a\"", "root/cimv2:X_Fan.Id=\"a\"", "no path", ""}) {
        const Result reference = Read(path, Type::eReference);
        EXPECT_TRUE(reference.isValue) << path;
        EXPECT_EQ(reference.value.GetType(), Type::eReference) << path;
        EXPECT_EQ(reference.value.operator TCIMReference().GetPath(), path);
    }
}

TEST_F(KeyToCore, AReferenceIsBoundToTheNamespaceGiven) {
    const boost::shared_ptr<ICIMNamespace> nameSpace(new TCimHTTPNamespace(false, "root/cimv2"));
    const KeyKind key(Pegasus::CIMName("Id"), "X_Fan.Id=1", KeyKind::REFERENCE);
    TCIMValue value;
    EXPECT_TRUE(ConvertKeyToCoreValue(key, Type::eUnknown, nameSpace, value));
    EXPECT_EQ(value.operator TCIMReference().GetNamespace(), nameSpace);
}

TEST_F(KeyToCore, TheDeclaredTypeCountsMoreThanTheKindThatThePathTells) {
    ExpectValue(Read("16", Type::eUint8, KeyKind::STRING), TCIMValue(static_cast<unsigned char>(16)), "16");
    ExpectValue(Read("TRUE", Type::eBoolean, KeyKind::STRING), TCIMValue(true), "TRUE");
    ExpectText(Read("TRUE", Type::eUint8, KeyKind::BOOLEAN), "TRUE");
    ExpectText(Read("1", Type::eBoolean, KeyKind::NUMERIC), "1");
}

TEST_F(KeyToCore, WithoutADeclarationANumbersTypeIsTheFirstThatHoldsIt) {
    const auto expectNumber = [](const std::string& text, const TCIMValue& expected) {
        ExpectValue(Read(text, Type::eUnknown, KeyKind::NUMERIC), expected, text);
    };
    expectNumber("0", TCIMValue(0ULL));
    expectNumber("+5", TCIMValue(5ULL));
    expectNumber("-0", TCIMValue(0ULL));
    expectNumber("0x1F", TCIMValue(31ULL));
    expectNumber("0X1f", TCIMValue(31ULL));
    expectNumber("18446744073709551615", TCIMValue(18446744073709551615ULL));
    expectNumber("-5", TCIMValue(-5LL));
    expectNumber("-0x10", TCIMValue(-16LL));
    expectNumber("-9223372036854775808", TCIMValue(std::numeric_limits<long long>::min()));
    expectNumber("18446744073709551616", TCIMValue(18446744073709551616.0));
    expectNumber("-9223372036854775809", TCIMValue(-9223372036854775809.0));
    expectNumber("1.5", TCIMValue(1.5));
    expectNumber("-2e3", TCIMValue(-2000.0));
}

TEST_F(KeyToCore, WithoutADeclarationWhatIsNoNumberKeepsItsText) {
    for (const char* text : {"", "many", "-", "0x", "0x10000000000000000", "1e309"}) {
        ExpectText(Read(text, Type::eUnknown, KeyKind::NUMERIC), text);
    }
}

TEST_F(KeyToCore, WithoutADeclarationTheOtherKindsAreTheirTypes) {
    ExpectValue(Read("fALSE", Type::eUnknown, KeyKind::BOOLEAN), TCIMValue(false), "fALSE");
    ExpectText(Read("1", Type::eUnknown, KeyKind::BOOLEAN), "1");
    ExpectValue(Read("007", Type::eUnknown, KeyKind::STRING), TCIMValue("007"), "007");
    const Result reference = Read("X_Fan.Id=\"a\"", Type::eUnknown, KeyKind::REFERENCE);
    EXPECT_TRUE(reference.isValue);
    EXPECT_EQ(reference.value.GetType(), Type::eReference);
    EXPECT_EQ(reference.value.ToString(10), "X_Fan.Id=\"a\"");
}

TEST_F(KeyToCore, AnEmptyTextIsAValueOfStringsAndReferencesOnly) {
    for (const Type::ECIMType type : ScalarTypes()) {
        if (type != Type::eString && type != Type::eReference) {
            ExpectText(Read("", type), "");
        }
    }
}

TEST_F(KeyToCore, AnArrayIsNoKeyAndItsTextIsKept) {
    ExpectText(Read("16", Type::eUnknownArray, KeyKind::NUMERIC), "16");
    for (const Type::ECIMType type : ScalarTypes()) {
        ExpectText(Read("16", static_cast<Type::ECIMType>(type + Type::eUnknownArray), KeyKind::NUMERIC),
                   "16");
    }
}

}  // namespace
}  // namespace NQELVSK20
