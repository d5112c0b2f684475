#include <Pegasus/Common/CIMDateTime.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

constexpr Uint64 kSecond = 1000000;
constexpr Uint64 kMinute = 60 * kSecond;
constexpr Uint64 kHour = 60 * kMinute;
constexpr Uint64 kDay = 24 * kHour;

CIMDateTime datetime(const char* text) {
    return CIMDateTime(String(text));
}

std::string roundTrip(const char* text) {
    return utf8(datetime(text).toString());
}

std::string outOfRange(const char* text) {
    return messageThrownBy<DateTimeOutOfRangeException>([&] { datetime(text); });
}

}  // namespace

TEST(CIMDateTime, IsTheIntervalZeroByDefault) {
    const CIMDateTime zero;
    EXPECT_EQ(utf8(zero.toString()), "00000000000000.000000:000");
    EXPECT_TRUE(zero.isInterval());
    EXPECT_EQ(zero.toMicroSeconds(), 0u);
}

TEST(CIMDateTime, TextsComeBackAsTheyWere) {
    for (const char* text :
         {"20180911124613.128763+120", "20000229235959.999999-300", "00000101000000.000000+000",
          "99991231235959.999999+999", "19700101000000.000000+000", "20240101000000.000000-999",
          "00000001020304.000005:000", "99999999235959.999999:000", "00000000000000.000001:000"})
        EXPECT_EQ(roundTrip(text), text);
}

TEST(CIMDateTime, AsterisksComeBackAsTheyWere) {
    for (const char* text :
         {"**************.******+060", "2018**********.******+000", "201809********.******+000",
          "20180911******.******+000", "2018091112****.******+000", "201809111246**.******+000",
          "20180911124613.******+000", "20180911124613.1*****+000", "20180911124613.128***+000",
          "20180911124613.12876*+000", "**************.******:000", "00000012******.******:000",
          "0000001223****.******:000", "000000122359**.******:000", "00000012235959.******:000",
          "20180911124613.128***:000", "00000012235959.12345*:000"})
        EXPECT_EQ(roundTrip(text), text);
}

TEST(CIMDateTime, WestOfGreenwichByNothingIsEast) {
    EXPECT_EQ(roundTrip("20180911124613.128763-000"), "20180911124613.128763+000");
}

TEST(CIMDateTime, RejectsTextsOfAnotherForm) {
    for (const char* text : {"",
                             "2018",
                             "20180911124613.128763+12",
                             "20180911124613.128763+1200",
                             "20180911124613.128763 120",
                             "20180911124613.128763:001",
                             "20180911124613,128763+000",
                             "2018091112461x.128763+000",
                             "20180911124613.128x63+000",
                             "20180911124613.128763+0x0",
                             "20180911124613.128763+***",
                             "2018*911124613.128763+000",
                             "****0911124613.128763+000",
                             "2018**11124613.128763+000",
                             "201809111246**.128763+000",
                             "20180911124613.1*8763+000",
                             "20180911124613.*28763+000",
                             "00000001**0304.000005:000",
                             " 0180911124613.12876+0000",
                             "-0180911124613.128763+000",
                             "00000001020304.000005:00*",
                             "00000001020304 000005:000"}) {
        EXPECT_EQ(messageThrownBy<InvalidDateTimeFormatException>([&] { datetime(text); }),
                  "invalid datetime format")
            << text;
    }
}

TEST(CIMDateTime, RejectsFieldsOutOfRange) {
    const std::string prefix = "DateTime is out of range : ";
    EXPECT_EQ(outOfRange("20180011124613.128763+000"), prefix + "illegal month number");
    EXPECT_EQ(outOfRange("20181311124613.128763+000"), prefix + "illegal month number");
    EXPECT_EQ(outOfRange("20180900124613.128763+000"), prefix + "illegal day number");
    EXPECT_EQ(outOfRange("20180931124613.128763+000"), prefix + "illegal day number");
    EXPECT_EQ(outOfRange("20180229124613.128763+000"), prefix + "illegal day number");
    EXPECT_EQ(outOfRange("19000229124613.128763+000"), prefix + "illegal day number");
    EXPECT_EQ(outOfRange("20180911244613.128763+000"), prefix + "illegal hours number ");
    EXPECT_EQ(outOfRange("20180911126013.128763+000"), prefix + "illegal minutes number ");
    EXPECT_EQ(outOfRange("20180911124660.128763+000"), prefix + "illegal seconds number ");
    EXPECT_EQ(outOfRange("00000001240304.000005:000"), prefix + "illegal hours number ");
    EXPECT_EQ(outOfRange("00000001026004.000005:000"), prefix + "illegal minutes number ");
    EXPECT_EQ(outOfRange("00000001020360.000005:000"), prefix + "illegal seconds number ");
}

TEST(CIMDateTime, KnowsLeapYears) {
    for (const char* text : {"20000229000000.000000+000", "20240229000000.000000+000",
                             "00000229000000.000000+000", "24000229000000.000000+000"})
        EXPECT_EQ(roundTrip(text), text);
}

TEST(CIMDateTime, SetReplacesTheValue) {
    CIMDateTime value = datetime("20180911124613.128763+120");
    value.set(String("00000001020304.000005:000"));
    EXPECT_EQ(utf8(value.toString()), "00000001020304.000005:000");
    value.clear();
    EXPECT_EQ(utf8(value.toString()), "00000000000000.000000:000");
}

TEST(CIMDateTime, FailedSetLeavesTheZeroInterval) {
    CIMDateTime value = datetime("20180911124613.128763+120");
    messageThrownBy<InvalidDateTimeFormatException>([&] { value.set(String("x")); });
    EXPECT_EQ(utf8(value.toString()), "00000000000000.000000:000");
}

TEST(CIMDateTime, TellsIntervalsFromTimeStamps) {
    CIMDateTime stamp = datetime("20180911124613.128763+120");
    const CIMDateTime interval = datetime("00000001020304.000005:000");
    EXPECT_FALSE(stamp.isInterval());
    EXPECT_TRUE(interval.isInterval());
}

TEST(CIMDateTime, MicrosecondsOfIntervals) {
    EXPECT_EQ(datetime("00000001020304.000005:000").toMicroSeconds(),
              kDay + 2 * kHour + 3 * kMinute + 4 * kSecond + 5);
    EXPECT_EQ(datetime("99999999235959.999999:000").toMicroSeconds(), 100000000 * kDay - 1);
}

TEST(CIMDateTime, MicrosecondsOfTimeStampsAreInUtcSinceTheYearZero) {
    EXPECT_EQ(datetime("00000101000000.000000+000").toMicroSeconds(), 0u);
    EXPECT_EQ(datetime("00000301000000.000000+000").toMicroSeconds(), 60 * kDay);
    EXPECT_EQ(datetime("19700101000000.000000+000").toMicroSeconds(),
              PEGASUS_UINT64_LITERAL(62167219200000000));
    EXPECT_EQ(datetime("19700101010000.000000+060").toMicroSeconds(),
              PEGASUS_UINT64_LITERAL(62167219200000000));
    EXPECT_EQ(datetime("19691231230000.000000-060").toMicroSeconds(),
              PEGASUS_UINT64_LITERAL(62167219200000000));
}

TEST(CIMDateTime, MicrosecondsOfAnUnknownNumberOfDaysCountOne) {
    EXPECT_EQ(datetime("**************.******:000").toMicroSeconds(), kDay);
}

TEST(CIMDateTime, OffsetCountsAsFarAsAsterisksLeaveMinutesAndHours) {
    const Uint64 noon = datetime("20180911120000.000000+000").toMicroSeconds();
    EXPECT_EQ(datetime("201809111200**.******+090").toMicroSeconds(), noon - 90 * kMinute);
    EXPECT_EQ(datetime("2018091112****.******+090").toMicroSeconds(), noon - 60 * kMinute);
    EXPECT_EQ(datetime("20180911******.******+090").toMicroSeconds(), noon - 12 * kHour);
    EXPECT_EQ(datetime("2018091112****.******-090").toMicroSeconds(), noon + 60 * kMinute);
}

TEST(CIMDateTime, IsMadeOfMicroseconds) {
    EXPECT_EQ(utf8(CIMDateTime(kDay + 1, true).toString()), "00000001000000.000001:000");
    EXPECT_EQ(utf8(CIMDateTime(PEGASUS_UINT64_LITERAL(62167219200000000), false).toString()),
              "19700101000000.000000+000");
    EXPECT_EQ(utf8(CIMDateTime(PEGASUS_UINT64_LITERAL(315569519999999999), false).toString()),
              "99991231235959.999999+000");
    EXPECT_EQ(utf8(CIMDateTime(PEGASUS_UINT64_LITERAL(8639999999999999999), true).toString()),
              "99999999235959.999999:000");
}

TEST(CIMDateTime, RejectsMicrosecondsOutOfRange) {
    EXPECT_EQ(messageThrownBy<DateTimeOutOfRangeException>(
                  [] { CIMDateTime(PEGASUS_UINT64_LITERAL(315569520000000000), false); }),
              "DateTime is out of range : Cannot create a CIMDateTime time stamp beyond the year 10,000");
    EXPECT_EQ(
        messageThrownBy<DateTimeOutOfRangeException>(
            [] { CIMDateTime(PEGASUS_UINT64_LITERAL(8640000000000000000), true); }),
        "DateTime is out of range : Cannot create a CIMDateTime interval greater than 100 million days");
}

TEST(CIMDateTime, EveryDayComesBackFromMicroseconds) {
    // One day of each month over the whole range, and both ends of February.
    for (Uint64 day = 0; day < 3652425; day += 29) {
        const CIMDateTime value(day * kDay, false);
        ASSERT_EQ(CIMDateTime(value.toString()).toMicroSeconds(), day * kDay) << value.toString();
    }
}

TEST(CIMDateTime, ComparesTimeStampsInUtc) {
    const CIMDateTime berlin = datetime("20180911140000.000000+120");
    const CIMDateTime london = datetime("20180911120000.000000+000");
    const CIMDateTime newYork = datetime("20180911080000.000001-240");
    EXPECT_TRUE(berlin == london);
    EXPECT_TRUE(berlin.equal(london));
    EXPECT_FALSE(berlin != london);
    EXPECT_TRUE(london < newYork && newYork > berlin && london != newYork);
    EXPECT_TRUE(berlin <= london && berlin >= london && london <= newYork);
    EXPECT_FALSE(newYork <= london || london >= newYork || london < berlin);
}

TEST(CIMDateTime, ComparesIntervals) {
    const CIMDateTime shorter = datetime("00000001000000.000000:000");
    const CIMDateTime longer = datetime("00000001000000.000001:000");
    EXPECT_TRUE(shorter < longer && longer > shorter && shorter != longer);
    EXPECT_TRUE(shorter == datetime("00000001000000.000000:000"));
}

TEST(CIMDateTime, AsterisksMatchAnyDigit) {
    EXPECT_TRUE(datetime("201809111246**.******+000") == datetime("20180911124613.128763+000"));
    EXPECT_TRUE(datetime("201809111246**.******+000") != datetime("20180911124713.128763+000"));
    EXPECT_TRUE(datetime("201809111246**.******+000") < datetime("20180911124713.128763+000"));
    EXPECT_TRUE(datetime("201809111446**.******+120") == datetime("20180911124613.128763+000"));
    EXPECT_TRUE(datetime("00000001******.******:000") == datetime("00000001235959.000000:000"));
    EXPECT_TRUE(datetime("00000001******.******:000") < datetime("00000002000000.000000:000"));
}

TEST(CIMDateTime, DoesNotCompareTimeStampsWithIntervals) {
    const CIMDateTime stamp = datetime("20180911140000.000000+120");
    const CIMDateTime interval;
    const std::string message = "type mismatch: Trying to compare CIMDateTime objects of differing types";
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { (void)stamp.equal(interval); }), message);
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { (void)(interval == stamp); }), message);
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { (void)(interval < stamp); }), message);
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { (void)(interval != stamp); }), message);
}

TEST(CIMDateTime, DifferenceIsSignedMicroseconds) {
    const CIMDateTime earlier = datetime("20180911120000.000000+000");
    const CIMDateTime later = datetime("20180911140000.000001+060");
    EXPECT_EQ(CIMDateTime::getDifference(earlier, later), Sint64(kHour + 1));
    EXPECT_EQ(CIMDateTime::getDifference(later, earlier), -Sint64(kHour + 1));
    EXPECT_EQ(CIMDateTime::getDifference(CIMDateTime(), datetime("00000001000000.000000:000")), Sint64(kDay));
    EXPECT_EQ(messageThrownBy<InvalidDateTimeFormatException>(
                  [&] { CIMDateTime::getDifference(earlier, CIMDateTime()); }),
              "invalid datetime format");
}

TEST(CIMDateTime, AddsIntervals) {
    const CIMDateTime interval = datetime("00000001000000.000001:000");
    EXPECT_EQ(utf8((interval + interval).toString()), "00000002000000.000002:000");
    EXPECT_EQ(utf8((datetime("20181231235959.999999+120") + interval).toString()),
              "20190102000000.000000+120");
    CIMDateTime sum = interval;
    sum += interval;
    sum += interval;
    EXPECT_EQ(utf8(sum.toString()), "00000003000000.000003:000");
    expectTypeMismatch([&] { (void)(interval + datetime("20181231235959.999999+120")); });
    expectTypeMismatch([&] { sum += datetime("20181231235959.999999+120"); });
}

TEST(CIMDateTime, SubtractsLikeFromLike) {
    EXPECT_EQ(
        utf8((datetime("00000002000000.000000:000") - datetime("00000000000001.000000:000")).toString()),
        "00000001235959.000000:000");
    EXPECT_EQ(
        utf8((datetime("20180911140000.000000+120") - datetime("20180911110000.000000+000")).toString()),
        "00000000010000.000000:000");
}

TEST(CIMDateTime, SubtractsIntervalsFromTimeStamps) {
    const CIMDateTime hour = datetime("00000000010000.000000:000");
    EXPECT_EQ(utf8((datetime("20180911120000.000000+000") - hour).toString()), "20180911110000.000000+000");
    CIMDateTime stamp = datetime("20180911120000.000000+120");
    stamp -= hour;
    EXPECT_EQ(utf8(stamp.toString()), "20180911110000.000000+120");
}

TEST(CIMDateTime, BinaryMinusCountsFromUtcAndKeepsTheOffset) {
    const CIMDateTime hour = datetime("00000000010000.000000:000");
    EXPECT_EQ(utf8((datetime("20180911120000.000000+120") - hour).toString()), "20180911090000.000000+120");
}

TEST(CIMDateTime, SubtractionChecksKindsAndSign) {
    CIMDateTime interval = datetime("00000001000000.000000:000");
    const CIMDateTime stamp = datetime("20180911120000.000000+000");
    const std::string negative =
        "DateTime is out of range : Result of subtracting two CIMDateTimes would be negative.";
    expectTypeMismatch([&] { (void)(interval - stamp); });
    expectTypeMismatch([&] { interval -= stamp; });
    EXPECT_EQ(messageThrownBy<DateTimeOutOfRangeException>([&] { (void)(CIMDateTime() - interval); }),
              negative);
    EXPECT_EQ(messageThrownBy<DateTimeOutOfRangeException>([&] { interval -= interval + interval; }),
              negative);
    EXPECT_EQ(utf8((interval - interval).toString()), "00000000000000.000000:000");
}

TEST(CIMDateTime, MultipliesIntervals) {
    const CIMDateTime interval = datetime("00000000010203.000004:000");
    EXPECT_EQ(utf8((interval * 3).toString()), "00000000030609.000012:000");
    EXPECT_EQ(utf8((interval * 0).toString()), "00000000000000.000000:000");
    CIMDateTime product = interval;
    product *= 24;
    EXPECT_EQ(utf8(product.toString()), "00000001004912.000096:000");
    expectTypeMismatch([] { (void)(datetime("20180911120000.000000+000") * 2); });
}

TEST(CIMDateTime, DividesIntervals) {
    const CIMDateTime interval = datetime("00000000030609.000012:000");
    EXPECT_EQ(utf8((interval / 3).toString()), "00000000010203.000004:000");
    EXPECT_EQ(interval / datetime("00000000010203.000004:000"), 3u);
    CIMDateTime quotient = interval;
    quotient /= 2;
    EXPECT_EQ(utf8(quotient.toString()), "00000000013304.500006:000");
}

TEST(CIMDateTime, DivisionChecksKindsAndZero) {
    const CIMDateTime interval = datetime("00000001000000.000000:000");
    CIMDateTime stamp = datetime("20180911120000.000000+000");
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { stamp /= 2; }),
              "type mismatch: Can not divide a TimeStamp by an integer");
    EXPECT_EQ(messageThrownBy<TypeMismatchException>([&] { (void)(interval / stamp); }),
              "type mismatch: Can not divide two CIMDateTime objects if one of them is a TimeStamp");
    EXPECT_EQ(messageThrownBy([&] { (void)(interval / 0); }), "Can not divide CIMDateTime by zero");
    EXPECT_EQ(messageThrownBy([&] { (void)(interval / CIMDateTime()); }),
              "Can not divide CIMDateTime by zero");
}

TEST(CIMDateTime, CurrentTimeIsARecentTimeStamp) {
    const CIMDateTime now = CIMDateTime::getCurrentDateTime();
    EXPECT_FALSE(now.isInterval());
    EXPECT_GT(now.toMicroSeconds(), datetime("20240101000000.000000+000").toMicroSeconds());
    EXPECT_GE(CIMDateTime::getDifference(now, CIMDateTime::getCurrentDateTime()), 0);
    EXPECT_EQ(now.toString().size(), 25u);
}

TEST(CIMDateTime, CopiesAreIndependent) {
    const CIMDateTime original = datetime("00000001000000.000000:000");
    CIMDateTime copy(original);
    copy += original;
    CIMDateTime assigned;
    assigned = original;
    const CIMDateTime& same = assigned;
    assigned = same;
    EXPECT_EQ(utf8(original.toString()), "00000001000000.000000:000");
    EXPECT_TRUE(assigned == original);
}
