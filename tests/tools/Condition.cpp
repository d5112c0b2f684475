#include "tools/query/Condition.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "tests/host/Schema.h"
#include "tests/tools/support/Properties.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using TType = TCIMValue::TCIMType;
using ::testing::HasSubstr;

TCIMValue textsFor(const std::vector<TCIMValue>& elements) {
    return TCIMValue(TType::eString, 0, elements);
}

void nameValues(const boost::shared_ptr<ICIMPropertyDecl>& property) {
    Qualify(property, "ValueMap", textsFor({TCIMValue("5"), TCIMValue("10"), TCIMValue("20..")}));
    Qualify(property, "Values", textsFor({TCIMValue("OK"), TCIMValue("Degraded/Warning"), TCIMValue("Bad")}));
}

class ConditionTest : public ::testing::Test {
protected:
    ConditionTest() : union_(MakeUnion()) {
        DeclareQualifier(*union_, "ValueMap", TCIMValue(TType(TType::eStringArray), 0));
        DeclareQualifier(*union_, "Values", TCIMValue(TType(TType::eStringArray), 0));
        class_ = MakeClass(*union_, "TST_Thing");
        for (const char* name : {"Health", "States"}) {
            const bool isArray = std::string(name) == "States";
            const auto property = class_->AllocatePropertyDecl(
                name, TCIMValue(TType(isArray ? TType::eUint16Array : TType::eUint16), 0), {});
            nameValues(property);
            property->Commit({});
        }
        AddProperty(class_, "Big", TCIMValue(TType(TType::eUint64), 0));
        AddProperty(class_, "Real", TCIMValue(TType(TType::eReal64), 0));
        AddProperty(class_, "On", TCIMValue(TType(TType::eBoolean), 0));
        AddProperty(class_, "When", TCIMValue(TType(TType::eDateTime), 0));
        AddProperty(class_, "Name", TCIMValue(TType(TType::eString), 0));
        schema_ = std::make_unique<ClassSchema>(ClassSchema::Chain{class_});
    }

    bool holds(const std::string& condition) const {
        return Condition(condition, *schema_).holds(thing_.source());
    }

    std::string refusal(const std::string& condition) const {
        try {
            const Condition read(condition, *schema_);
        } catch (const UsageError& error) {
            return error.what();
        }
        return "accepted";
    }

    boost::shared_ptr<TInmemUnion> union_;
    boost::shared_ptr<ICIMClass> class_;
    std::unique_ptr<ClassSchema> schema_;
    Properties thing_{{{"Health", TCIMValue(static_cast<unsigned short>(10))},
                       {"States", TCIMValue(TType::eUint16, 0,
                                            {TCIMValue(static_cast<unsigned short>(5)),
                                             TCIMValue(static_cast<unsigned short>(21))})},
                       {"Big", TCIMValue(18446744073709551615ULL)},
                       {"Real", TCIMValue(0.1)},
                       {"On", TCIMValue(true)},
                       {"When", TCIMValue(TCIMDateTime("20240911140241.125000+060"))},
                       {"Name", TCIMValue("Fan 2 (rear)")}}};
};

}  // namespace

TEST_F(ConditionTest, ComparesNumbersAsNumbers) {
    EXPECT_TRUE(holds("Health=10"));
    EXPECT_TRUE(holds("health == 10.0"));
    EXPECT_TRUE(holds("Health=0xA"));
    EXPECT_TRUE(holds("Health>9"));
    EXPECT_FALSE(holds("Health<9"));
    EXPECT_TRUE(holds("Health>=10 and Health<=10"));
    EXPECT_FALSE(holds("Health!=10"));
    EXPECT_FALSE(holds("Health<>10"));
    EXPECT_FALSE(holds("Health>10 or Health<10"));
    EXPECT_TRUE(holds("Big=18446744073709551615"));
    EXPECT_FALSE(holds("Big=18446744073709551614"));
    EXPECT_TRUE(holds("Big>-9223372036854775809"));
    EXPECT_TRUE(holds("Real=0.1"));
    EXPECT_TRUE(holds("Real<1e300"));
}

TEST_F(ConditionTest, WhatIsNoNumberOnlyDiffers) {
    thing_.set("Real", TCIMValue(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(holds("Real=0 or Real<0 or Real>0 or Real>=0 or Real<=0"));
    EXPECT_TRUE(holds("Real!=0"));
}

TEST_F(ConditionTest, WhatIsNullOnlyDiffers) {
    thing_.set("Health", TCIMValue(TType(TType::eUint16), 0));
    EXPECT_FALSE(holds("Health=0 or Health<5 or Health>=0"));
    EXPECT_TRUE(holds("Health!=5"));
    EXPECT_TRUE(holds("Name!=x and not Name=x"));
    thing_ = Properties({});
    EXPECT_FALSE(holds("Health=0 or Name~''"));
}

TEST_F(ConditionTest, TakesTheNamesOfValues) {
    EXPECT_TRUE(holds("Health=Degraded/Warning"));
    EXPECT_TRUE(holds("Health='degraded/warning'"));
    EXPECT_FALSE(holds("Health=OK"));
    EXPECT_TRUE(holds("Health!=OK"));
    EXPECT_TRUE(holds("Health>OK"));
    EXPECT_TRUE(holds("Health~warn"));
    EXPECT_TRUE(holds("States=Bad"));
    EXPECT_THAT(refusal("Health=Fine"),
                HasSubstr("Health takes a number or one of OK, Degraded/Warning, Bad, not 'Fine'"));
    EXPECT_THAT(refusal("Health>Bad"), HasSubstr("a single value of Health is expected, not 'Bad'"));
}

TEST_F(ConditionTest, FitsWhenAnElementOfAnArrayFits) {
    EXPECT_TRUE(holds("States=5"));
    EXPECT_TRUE(holds("States=21"));
    EXPECT_FALSE(holds("States=7"));
    EXPECT_FALSE(holds("States!=5"));
    EXPECT_TRUE(holds("States!=7"));
    thing_.set("States", TCIMValue(TType::eUint16, 0, std::vector<TCIMValue>()));
    EXPECT_FALSE(holds("States=5"));
    EXPECT_TRUE(holds("States!=5"));
}

TEST_F(ConditionTest, ComparesDatetimesByWhenTheyAre) {
    EXPECT_TRUE(holds("When=20240911130241.125000+000"));
    EXPECT_TRUE(holds("When>2024-09-11"));
    EXPECT_TRUE(holds("When<2024-09-12"));
    EXPECT_TRUE(holds("When>='2024-09-11 13:02:41' and When<'2024-09-11 13:02:42'"));
    EXPECT_TRUE(holds("When>2024"));
    EXPECT_FALSE(holds("When>00000010014510.000000:000"));
    EXPECT_THAT(refusal("When>yesterday"), HasSubstr("character 6: When takes a date"));
    EXPECT_THAT(refusal("When>2024-13-01"), HasSubstr("takes a date"));
    EXPECT_THAT(refusal("When>2024-0"), HasSubstr("takes a date"));
}

TEST_F(ConditionTest, ComparesTextAsTextAndFindsPartsWithoutRegardToCase) {
    EXPECT_TRUE(holds("Name='Fan 2 (rear)'"));
    EXPECT_TRUE(holds("Name=\"Fan 2 (rear)\""));
    EXPECT_FALSE(holds("Name='fan 2 (rear)'"));
    EXPECT_TRUE(holds("Name~FAN"));
    EXPECT_TRUE(holds("Name!~pump"));
    EXPECT_TRUE(holds("Name<G and Name>E"));
    EXPECT_TRUE(holds("Big~0955"));
    thing_.set("Name", TCIMValue("it's \"9\""));
    EXPECT_TRUE(holds(R"(Name='it\'s "9"')"));
    thing_.set("Name", TCIMValue("10"));
    EXPECT_TRUE(holds("Name>9"));
}

TEST_F(ConditionTest, ComparesBooleans) {
    EXPECT_TRUE(holds("On=TRUE"));
    EXPECT_TRUE(holds("On!=false"));
    EXPECT_THAT(refusal("On=1"), HasSubstr("On is true or false, not '1'"));
}

TEST_F(ConditionTest, BindsNotBeforeAndBeforeOr) {
    EXPECT_TRUE(holds("Health=10 or Health=5 and Health=5"));
    EXPECT_FALSE(holds("(Health=10 or Health=5) and Health=5"));
    EXPECT_FALSE(holds("not Health=10 and Health=10"));
    EXPECT_TRUE(holds("not(Health=5 or Health=6)"));
    EXPECT_TRUE(holds("NOT not Health=10 AND (((On=true)))"));
}

TEST_F(ConditionTest, PointsAtWhatIsWrong) {
    EXPECT_EQ(refusal("Health=5 andd On=true"),
              "--where, character 10: 'and', 'or' or the end is expected, not 'andd'");
    EXPECT_EQ(refusal("Speed>5"), "--where, character 1: a property of TST_Thing is expected, not 'Speed'");
    EXPECT_EQ(refusal(""), "--where, at its end: a property is expected");
    EXPECT_EQ(refusal("Health"), "--where, at its end: one of = != < <= > >= ~ !~ is expected");
    EXPECT_EQ(refusal("Health="), "--where, at its end: a value is expected");
    EXPECT_EQ(refusal("Health=!5"), "--where, character 7: one of = != < <= > >= ~ !~ is expected, not '=!'");
    EXPECT_EQ(refusal("Health=five"),
              "--where, character 8: Health takes a number or one of OK, Degraded/Warning, Bad, not 'five'");
    EXPECT_EQ(refusal("Big=many"), "--where, character 5: Big takes a number, not 'many'");
    EXPECT_EQ(refusal("(Health=5"), "--where, at its end: a closing parenthesis is expected");
    EXPECT_EQ(refusal("Health=5)"), "--where, character 9: 'and', 'or' or the end is expected, not ')'");
    EXPECT_EQ(refusal("Name='Fan"), "--where, character 6: the quotation mark ' is never closed");
    EXPECT_EQ(refusal("and"), "--where, at its end: one of = != < <= > >= ~ !~ is expected");
    EXPECT_EQ(refusal("not"), "--where, at its end: a property is expected");
}

TEST_F(ConditionTest, RefusesToGoTooDeep) {
    EXPECT_EQ(refusal(std::string(90, '(') + "On=true" + std::string(90, ')')), "accepted");
    EXPECT_THAT(refusal(std::string(100000, '(')), HasSubstr("nothing deeper is read"));
}

}  // namespace tool
