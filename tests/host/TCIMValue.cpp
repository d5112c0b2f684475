#include "vskcore/TCIMValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {
namespace {

using TType = TCIMValue::TCIMType;
using TValues = std::vector<TCIMValue>;

template <typename TARGET>
TARGET As(const TCIMValue& value) {
    return value;
}

TCIMReference ReferenceTo(const std::string& path) {
    TCIMReference reference(nullptr, {});
    reference.SetPath(path);
    return reference;
}

TCIMValue ReferenceValue(const std::string& path) {
    TCIMReference reference = ReferenceTo(path);
    return TCIMValue(reference);
}

/// Every scalar type once, in the order of the type codes.
TValues OneOfEach() {
    using uchar = unsigned char;
    using schar = signed char;
    using ushort = unsigned short;
    return {TCIMValue(true),
            TCIMValue(uchar{200}),
            TCIMValue(schar{-100}),
            TCIMValue(ushort{60000}),
            TCIMValue(short{-30000}),
            TCIMValue(4000000000U),
            TCIMValue(-2000000000),
            TCIMValue(18000000000000000000ULL),
            TCIMValue(-9000000000000000000LL),
            TCIMValue(1.5F),
            TCIMValue(-2.25),
            TCIMValue(TCIMChar16("65")),
            TCIMValue("text"),
            TCIMValue(TCIMDateTime("20180911124613.128000:000")),
            ReferenceValue("Class.k=1")};
}

TEST(TCIMValue, IsNullOfUnknownTypeByDefault) {
    const TCIMValue value;
    EXPECT_TRUE(value.IsNull());
    EXPECT_FALSE(value.IsArray());
    EXPECT_FALSE(value.IsReference());
    EXPECT_EQ(value.GetType(), TType::eUnknown);
    EXPECT_EQ(value.ToString(10), "");
}

TEST(TCIMValue, HasTheTypeCodeOfWhatItWasMadeFrom) {
    int code = TType::eBoolean;
    for (const TCIMValue& value : OneOfEach()) {
        EXPECT_EQ(value.GetType(), code);
        EXPECT_FALSE(value.IsNull());
        EXPECT_FALSE(value.IsArray());
        EXPECT_EQ(value.IsReference(), code == TType::eReference);
        ++code;
    }
    EXPECT_EQ(code, TType::eUnknownArray);
}

TEST(TCIMValue, GivesBackWhatItWasMadeFrom) {
    const TValues values = OneOfEach();
    EXPECT_EQ(As<bool>(values[0]), true);
    EXPECT_EQ(As<unsigned char>(values[1]), 200);
    EXPECT_EQ(As<signed char>(values[2]), -100);
    EXPECT_EQ(As<unsigned short>(values[3]), 60000);
    EXPECT_EQ(As<short>(values[4]), -30000);
    EXPECT_EQ(As<unsigned int>(values[5]), 4000000000U);
    EXPECT_EQ(As<int>(values[6]), -2000000000);
    EXPECT_EQ(As<unsigned long long>(values[7]), 18000000000000000000ULL);
    EXPECT_EQ(As<long long>(values[8]), -9000000000000000000LL);
    EXPECT_EQ(As<float>(values[9]), 1.5F);
    EXPECT_EQ(As<double>(values[10]), -2.25);
    EXPECT_EQ(As<TCIMChar16>(values[11]).GetCode(), 65);
    EXPECT_EQ(As<std::string>(values[12]), "text");
    EXPECT_EQ(As<TCIMDateTime>(values[13]).ToString(), "20180911124613.128000:000");
    EXPECT_EQ(As<TCIMReference>(values[14]).GetPath(), "Class.k=1");
}

TEST(TCIMValue, WritesEachTypeAsText) {
    const std::vector<std::string> texts{"true",
                                         "200",
                                         "-100",
                                         "60000",
                                         "-30000",
                                         "4000000000",
                                         "-2000000000",
                                         "18000000000000000000",
                                         "-9000000000000000000",
                                         "1.5",
                                         "-2.25",
                                         "65",
                                         "text",
                                         "20180911124613.128000:000",
                                         "Class.k=1"};
    const TValues values = OneOfEach();
    for (std::size_t index = 0; index < values.size(); ++index) {
        EXPECT_EQ(values[index].ToString(10), texts[index]);
        EXPECT_EQ(As<std::string>(values[index]), texts[index]);
    }
    EXPECT_EQ(TCIMValue(false).ToString(10), "false");
}

TEST(TCIMValue, KeepsTheExtremesOfEveryNumber) {
    EXPECT_EQ(TCIMValue(std::numeric_limits<long long>::min()).ToString(10), "-9223372036854775808");
    EXPECT_EQ(TCIMValue(std::numeric_limits<unsigned long long>::max()).ToString(10), "18446744073709551615");
    EXPECT_EQ(As<float>(TCIMValue(std::numeric_limits<float>::max())), std::numeric_limits<float>::max());
    EXPECT_EQ(As<double>(TCIMValue(std::numeric_limits<double>::denorm_min())),
              std::numeric_limits<double>::denorm_min());
    EXPECT_TRUE(std::isinf(As<float>(TCIMValue(std::numeric_limits<double>::infinity()))));
    EXPECT_TRUE(std::isnan(As<float>(TCIMValue(std::numeric_limits<double>::quiet_NaN()))));
}

TEST(TCIMValue, WritesIntegersInTheBaseAskedFor) {
    EXPECT_EQ(TCIMValue(255).ToString(16), "ff");
    EXPECT_EQ(TCIMValue(-255).ToString(16), "-ff");
    EXPECT_EQ(TCIMValue(std::numeric_limits<unsigned long long>::max()).ToString(2), std::string(64, '1'));
    EXPECT_EQ(TCIMValue(35).ToString(36), "z");
}

TEST(TCIMValue, WritesIntegersInTenWhenTheBaseIsNone) {
    EXPECT_EQ(TCIMValue(255).ToString(0), "255");
    EXPECT_EQ(TCIMValue(255).ToString(1), "255");
    EXPECT_EQ(TCIMValue(255).ToString(37), "255");
}

TEST(TCIMValue, WritesRealsSoThatTheyReadBackTheSame) {
    EXPECT_EQ(TCIMValue(0.1F).ToString(10), "0.1");
    EXPECT_EQ(TCIMValue(0.1).ToString(10), "0.1");
    const double third = 1.0 / 3.0;
    EXPECT_EQ(std::stod(TCIMValue(third).ToString(10)), third);
}

TEST(TCIMValue, WrapsIntegersThatAreOutOfTheTargetsRange) {
    EXPECT_EQ(As<unsigned short>(TCIMValue(70000)), 4464);
    EXPECT_EQ(As<unsigned char>(TCIMValue(-1)), 255);
    EXPECT_EQ(As<signed char>(TCIMValue(200)), -56);
    EXPECT_EQ(As<int>(TCIMValue(0x100000005ULL)), 5);
    EXPECT_EQ(As<unsigned long long>(TCIMValue(-1)), std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(As<long long>(TCIMValue(std::numeric_limits<unsigned long long>::max())), -1);
}

TEST(TCIMValue, TakesTheNearestLimitForRealsOutOfTheTargetsRange) {
    EXPECT_EQ(As<unsigned char>(TCIMValue(300.0)), 255);
    EXPECT_EQ(As<unsigned char>(TCIMValue(-0.5)), 0);
    EXPECT_EQ(As<unsigned char>(TCIMValue(-3.0)), 0);
    EXPECT_EQ(As<signed char>(TCIMValue(-1000.0)), -128);
    EXPECT_EQ(As<long long>(TCIMValue(1e300)), std::numeric_limits<long long>::max());
    EXPECT_EQ(As<unsigned long long>(TCIMValue(std::numeric_limits<double>::infinity())),
              std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(As<float>(TCIMValue(1e300)), std::numeric_limits<float>::max());
    EXPECT_EQ(As<float>(TCIMValue(-1e300)), std::numeric_limits<float>::lowest());
}

TEST(TCIMValue, TruncatesRealsInRange) {
    EXPECT_EQ(As<int>(TCIMValue(2.9)), 2);
    EXPECT_EQ(As<int>(TCIMValue(-2.9)), -2);
}

TEST(TCIMValue, TakesZeroForNotANumber) {
    const TCIMValue value(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(As<int>(value), 0);
    EXPECT_FALSE(As<bool>(value));
}

TEST(TCIMValue, IsTrueForEveryNumberButZero) {
    EXPECT_TRUE(As<bool>(TCIMValue(-1)));
    EXPECT_TRUE(As<bool>(TCIMValue(0.25)));
    EXPECT_TRUE(As<bool>(TCIMValue(256)));
    EXPECT_FALSE(As<bool>(TCIMValue(0)));
    EXPECT_FALSE(As<bool>(TCIMValue(-0.0)));
}

TEST(TCIMValue, ConvertsAChar16AsItsCode) {
    EXPECT_EQ(As<unsigned short>(TCIMValue(TCIMChar16("65535"))), 65535);
    EXPECT_EQ(As<int>(TCIMValue(TCIMChar16("65"))), 65);
    EXPECT_EQ(As<TCIMChar16>(TCIMValue(66)).GetCode(), 66);
    EXPECT_EQ(As<TCIMChar16>(TCIMValue("67")).GetCode(), 67);
}

TEST(TCIMValue, ConvertsTextThatIsANumber) {
    EXPECT_EQ(As<int>(TCIMValue("42")), 42);
    EXPECT_EQ(As<int>(TCIMValue("+42")), 42);
    EXPECT_EQ(As<int>(TCIMValue("-42")), -42);
    EXPECT_EQ(As<unsigned long long>(TCIMValue("18446744073709551615")), 18446744073709551615ULL);
    EXPECT_EQ(As<double>(TCIMValue("2.5e3")), 2500.0);
    EXPECT_EQ(As<int>(TCIMValue("2.5e3")), 2500);
}

TEST(TCIMValue, ConvertsTextThatIsABoolean) {
    EXPECT_TRUE(As<bool>(TCIMValue("true")));
    EXPECT_TRUE(As<bool>(TCIMValue("TRUE")));
    EXPECT_TRUE(As<bool>(TCIMValue("1")));
    EXPECT_FALSE(As<bool>(TCIMValue("false")));
    EXPECT_FALSE(As<bool>(TCIMValue("yes")));
}

TEST(TCIMValue, TakesZeroForTextThatIsNoNumber) {
    for (const char* text : {"", "x", "4x", " 4", "+", "+-4", "0x10"}) {
        EXPECT_EQ(As<int>(TCIMValue(text)), 0) << text;
    }
}

TEST(TCIMValue, ConvertsTextToDateTimesAndReferences) {
    EXPECT_EQ(As<TCIMDateTime>(TCIMValue("20180911124613.128***:000")).ToString(),
              "20180911124613.128***:000");
    EXPECT_EQ(As<TCIMReference>(TCIMValue("Class.k=1")).GetClassName(), "Class");
}

TEST(TCIMValue, ConvertsNumbersToEmptyDateTimesAndReferences) {
    EXPECT_EQ(As<TCIMDateTime>(TCIMValue(5)), TCIMDateTime());
    EXPECT_EQ(As<TCIMReference>(TCIMValue(5)).GetPath(), "");
}

TEST(TCIMValue, ConvertsNullToZeroFalseAndEmpty) {
    for (const TCIMValue& value : {TCIMValue(), TCIMValue(TType::eUint32, 0), TCIMValue(TType::eString, 0)}) {
        EXPECT_FALSE(As<bool>(value));
        EXPECT_EQ(As<int>(value), 0);
        EXPECT_EQ(As<double>(value), 0.0);
        EXPECT_EQ(As<std::string>(value), "");
        EXPECT_EQ(As<TCIMChar16>(value).GetCode(), 0);
        EXPECT_EQ(As<TCIMDateTime>(value), TCIMDateTime());
        EXPECT_EQ(As<TCIMReference>(value).GetPath(), "");
        EXPECT_TRUE(As<TValues>(value).empty());
    }
}

TEST(TCIMValue, OfANullPointerIsANullString) {
    const char* nothing = nullptr;
    const TCIMValue value(nothing);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), TType::eString);
}

TEST(TCIMValue, OfATypeIsNullOfThatType) {
    const TCIMValue scalar(TType::eSint16, 0);
    EXPECT_TRUE(scalar.IsNull());
    EXPECT_FALSE(scalar.IsArray());
    EXPECT_EQ(scalar.GetType(), TType::eSint16);

    const TCIMValue array(TType::eSint16Array, 0);
    EXPECT_TRUE(array.IsNull());
    EXPECT_TRUE(array.IsArray());
    EXPECT_EQ(array.GetType(), TType::eSint16Array);
    EXPECT_TRUE(TCIMValue(TType::eUnknownArray, 0).IsArray());
}

TEST(TCIMValue, OfATypeAndASizeIsAnArrayOfNulls) {
    const TCIMValue array(TType::eSint16, 3);
    EXPECT_TRUE(array.IsArray());
    EXPECT_FALSE(array.IsNull());
    const TValues& elements = array;
    ASSERT_EQ(elements.size(), 3U);
    for (const TCIMValue& element : elements) {
        EXPECT_TRUE(element.IsNull());
        EXPECT_EQ(element.GetType(), TType::eSint16);
        EXPECT_FALSE(element.IsArray());
    }
}

TEST(TCIMValue, OfElementsKeepsTheCodeThatItWasBuiltWith) {
    const TValues elements{TCIMValue(short{1}), TCIMValue(short{2}), TCIMValue(short{3})};
    const TCIMValue array(TType::eSint16, 0, elements);
    EXPECT_TRUE(array.IsArray());
    EXPECT_EQ(array.GetType(), TType::eSint16);
    EXPECT_EQ(array.ToString(10), "1,2,3");
    EXPECT_EQ(TCIMValue(TType::eSint16Array, 0, elements).GetType(), TType::eSint16Array);
}

TEST(TCIMValue, OfNoElementsIsAnEmptyArrayAndNotNull) {
    const TCIMValue array(TType::eString, 0, TValues());
    EXPECT_TRUE(array.IsArray());
    EXPECT_FALSE(array.IsNull());
    EXPECT_EQ(array.ToString(10), "");
    EXPECT_EQ(As<int>(array), 0);
    EXPECT_EQ(As<std::string>(array), "");
}

TEST(TCIMValue, OfElementsAndASizeIsCutOrFilledUp) {
    const TValues elements{TCIMValue(1), TCIMValue(2)};
    EXPECT_EQ(TCIMValue(TType::eSint32, 1, elements).ToString(10), "1");
    const TCIMValue filled(TType::eSint32, 3, elements);
    EXPECT_EQ(filled.ToString(10), "1,2,");
    EXPECT_TRUE(As<TValues>(filled)[2].IsNull());
}

TEST(TCIMValue, ConvertsAnArrayAsItsFirstElement) {
    const TCIMValue array(TType::eString, 0, {TCIMValue("7"), TCIMValue("8")});
    EXPECT_EQ(As<int>(array), 7);
    EXPECT_TRUE(As<bool>(array));
    EXPECT_EQ(As<std::string>(array), "7");
}

TEST(TCIMValue, LetsItsElementsBeChanged) {
    TCIMValue array(TType::eSint32, 0, {TCIMValue(1)});
    TValues& elements = array;
    elements.emplace_back(2);
    EXPECT_EQ(array.ToString(10), "1,2");
}

TEST(TCIMValue, OfAScalarHasNoElementsWhateverWasAddedBefore) {
    TCIMValue scalar(5);
    TValues& elements = scalar;
    EXPECT_TRUE(elements.empty());
    elements.emplace_back(1);
    TCIMValue other(6);
    EXPECT_TRUE(static_cast<TValues&>(other).empty());
    EXPECT_EQ(scalar.ToString(10), "5");
}

TEST(TCIMValue, IsIndependentOfItsCopies) {
    TCIMValue array(TType::eSint32, 0, {TCIMValue(1)});
    const TCIMValue copy = array;
    static_cast<TValues&>(array)[0] = TCIMValue(9);
    EXPECT_EQ(copy.ToString(10), "1");

    TCIMReference reference = ReferenceTo("A.k=1");
    const TCIMValue value(reference);
    reference.SetPath("B.k=1");
    EXPECT_EQ(value.ToString(10), "A.k=1");
}

TEST(TCIMValue, TakesOneOfItsOwnElements) {
    TCIMValue copied(TType::eString, 0, {TCIMValue("a text too long to be kept in place")});
    copied = static_cast<TValues&>(copied)[0];
    EXPECT_EQ(copied.ToString(10), "a text too long to be kept in place");
    EXPECT_FALSE(copied.IsArray());

    TCIMValue moved(TType::eString, 0, {TCIMValue(TType::eSint16, 0, {TCIMValue(short{3})})});
    moved = std::move(static_cast<TValues&>(moved)[0]);
    EXPECT_EQ(moved.ToString(10), "3");
    EXPECT_EQ(moved.GetType(), TType::eSint16);
}

TEST(TCIMValue, SurvivesAssignmentToItself) {
    TCIMValue value("a text too long to be kept in place");
    const TCIMValue& same = value;
    value = same;
    EXPECT_EQ(value.ToString(10), "a text too long to be kept in place");
}

TEST(TCIMValue, BecomesAStringWhenSetFromText) {
    for (TCIMValue value : {TCIMValue(), TCIMValue(5), TCIMValue(TType::eUint8Array, 0), TCIMValue("old")}) {
        value.Set("Node1:");
        EXPECT_EQ(value.GetType(), TType::eString);
        EXPECT_FALSE(value.IsArray());
        EXPECT_EQ(value.ToString(10), "Node1:");
    }
}

TEST(TCIMValue, DiffersByTypeArrayFlagAndContent) {
    const TValues values = OneOfEach();
    for (const TCIMValue& left : values) {
        for (const TCIMValue& right : values) {
            EXPECT_EQ(left != right, &left != &right);
        }
    }
    EXPECT_TRUE(TCIMValue(1) != TCIMValue(2));
    EXPECT_TRUE(TCIMValue("a") != TCIMValue("b"));
    EXPECT_TRUE(ReferenceValue("A.k=1") != ReferenceValue("A.k=2"));
    EXPECT_FALSE(ReferenceValue("A.k=1") != ReferenceValue("A.k=1"));
    EXPECT_TRUE(TCIMValue(1) != TCIMValue(TType::eSint32, 0, {TCIMValue(1)}));
}

TEST(TCIMValue, OfNullDiffersFromNullOfAnotherTypeAndFromAnyContent) {
    EXPECT_FALSE(TCIMValue() != TCIMValue());
    EXPECT_FALSE(TCIMValue(TType::eUint8, 0) != TCIMValue(TType::eUint8, 0));
    EXPECT_TRUE(TCIMValue(TType::eUint8, 0) != TCIMValue(TType::eUint16, 0));
    EXPECT_TRUE(TCIMValue(TType::eUint8, 0) != TCIMValue(TType::eUint8Array, 0));
    EXPECT_TRUE(TCIMValue(TType::eString, 0) != TCIMValue(""));
    EXPECT_TRUE(TCIMValue(TType::eStringArray, 0) != TCIMValue(TType::eStringArray, 0, TValues()));
}

TEST(TCIMValue, OfArraysComparesElementByElement) {
    const TValues elements{TCIMValue(1), TCIMValue(2)};
    EXPECT_FALSE(TCIMValue(TType::eSint32, 0, elements) != TCIMValue(TType::eSint32Array, 0, elements));
    EXPECT_TRUE(TCIMValue(TType::eSint32, 1, elements) != TCIMValue(TType::eSint32, 0, elements));
    EXPECT_TRUE(TCIMValue(TType::eSint32, 0, elements) !=
                TCIMValue(TType::eSint32, 0, {TCIMValue(1), TCIMValue(3)}));
}

class TCIMValueReference : public ::testing::Test {
protected:
    boost::shared_ptr<TInmemUnion> union_{new TInmemUnion};
    boost::shared_ptr<ICIMClass> class_ = union_->AllocateClass("CIM_Fan", nullptr, {});
};

TEST_F(TCIMValueReference, PointsAtNoClassAtFirst) {
    EXPECT_FALSE(TCIMValue().GetReferencedClass());
    EXPECT_FALSE(ReferenceValue("A.k=1").GetReferencedClass());
}

TEST_F(TCIMValueReference, KeepsItsPathWhenItsClassIsSet) {
    TCIMValue value = ReferenceValue("CIM_Fan.k=1");
    value.SetReferencedClass(class_);
    EXPECT_EQ(value.GetReferencedClass(), class_);
    EXPECT_EQ(value.ToString(10), "CIM_Fan.k=1");
    EXPECT_EQ(TCIMValue(value).GetReferencedClass(), class_);
}

TEST_F(TCIMValueReference, IsWhatAValueBecomesWhenItsClassIsSet) {
    TCIMValue null;
    null.SetReferencedClass(class_);
    EXPECT_TRUE(null.IsReference());
    EXPECT_TRUE(null.IsNull());
    EXPECT_EQ(null.GetReferencedClass(), class_);

    TCIMValue array(TType::eStringArray, 0);
    array.SetReferencedClass(class_);
    EXPECT_EQ(array.GetType(), TType::eReferenceArray);
    EXPECT_TRUE(array.IsReference());
}

TEST_F(TCIMValueReference, DoesNotKeepTheClassAlive) {
    TCIMValue value;
    value.SetReferencedClass(class_);
    class_.reset();
    EXPECT_FALSE(value.GetReferencedClass());
    EXPECT_TRUE(value.IsReference());
}

TEST_F(TCIMValueReference, IsForgottenWhenTheValueBecomesAString) {
    TCIMValue value;
    value.SetReferencedClass(class_);
    value.Set("text");
    EXPECT_FALSE(value.IsReference());
    EXPECT_FALSE(value.GetReferencedClass());
}

class PrintedFormTest : public ::testing::Test {
protected:
    PrintedFormTest() {
        THostSetup::SetPrintedForm([](const std::string& text, unsigned char base) {
            return "<" + text + "/" + std::to_string(base) + ">";
        });
    }
    ~PrintedFormTest() override { THostSetup::SetPrintedForm({}); }
};

TEST_F(PrintedFormTest, IsThatOfStringsAndDateTimesAndOfArraysOfThem) {
    const TCIMDateTime time("20180911124613.128000:000");
    EXPECT_EQ(TCIMValue("a").ToString(10), "<a/10>");
    EXPECT_EQ(TCIMValue("a").ToString(16), "<a/16>");
    EXPECT_EQ(TCIMValue(time).ToString(10), "<20180911124613.128000:000/10>");
    EXPECT_EQ(TCIMValue(TType::eString, 0, {TCIMValue("a"), TCIMValue("b")}).ToString(10), "<a/10>,<b/10>");
}

TEST_F(PrintedFormTest, LeavesEveryOtherTypeAlone) {
    EXPECT_EQ(TCIMValue(5).ToString(10), "5");
    EXPECT_EQ(TCIMValue(TCIMChar16("65")).ToString(10), "65");
    EXPECT_EQ(ReferenceValue("Class.k=\"1\"").ToString(10), "Class.k=\"1\"");
    EXPECT_EQ(TCIMValue(TType::eString, 0).ToString(10), "");
}

TEST_F(PrintedFormTest, NeverComesOutOfAConversion) {
    const TCIMDateTime time("20180911124613.128000:000");
    EXPECT_EQ(As<std::string>(TCIMValue("a")), "a");
    EXPECT_EQ(As<std::string>(TCIMValue(time)), time.ToString());
    EXPECT_EQ(As<TCIMDateTime>(TCIMValue(time)), time);
    EXPECT_EQ(As<std::string>(TCIMValue(TType::eString, 0, {TCIMValue("a"), TCIMValue("b")})), "a");
    EXPECT_EQ(As<int>(TCIMValue("7")), 7);
}

TEST_F(PrintedFormTest, StaysOutOfPaths) {
    TCIMReference reference(nullptr, {{"k", TCIMValue("a")}});
    reference.SetPath("Class");
    EXPECT_EQ(reference.GetPath(), "Class.k=\"a\"");
}

}  // namespace
}  // namespace NQELVSK20
