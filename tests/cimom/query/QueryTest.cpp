#include "cimom/query/Query.h"

#include <gtest/gtest.h>

#include "cimom/common/CimError.h"
#include "tests/cimom/support/SmallAssociations.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

const char* const kMarks = R"(
<VALUE.OBJECT><CLASS NAME="Mark">
  <PROPERTY NAME="Id" TYPE="string"><QUALIFIER NAME="Key" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY>
  <PROPERTY NAME="Big" TYPE="uint64"></PROPERTY>
  <PROPERTY NAME="Real" TYPE="real64"></PROPERTY>
  <PROPERTY NAME="Good" TYPE="boolean"></PROPERTY>
  <PROPERTY NAME="Text" TYPE="string"></PROPERTY>
  <PROPERTY NAME="Other" TYPE="string"></PROPERTY>
  <PROPERTY NAME="When" TYPE="datetime"></PROPERTY>
</CLASS></VALUE.OBJECT>
<VALUE.OBJECT><INSTANCE CLASSNAME="Mark">
  <PROPERTY NAME="Id" TYPE="string"><VALUE>1</VALUE></PROPERTY>
  <PROPERTY NAME="Big" TYPE="uint64"><VALUE>18446744073709551615</VALUE></PROPERTY>
  <PROPERTY NAME="Real" TYPE="real64"><VALUE>-1.5e3</VALUE></PROPERTY>
  <PROPERTY NAME="Good" TYPE="boolean"><VALUE>true</VALUE></PROPERTY>
  <PROPERTY NAME="Text" TYPE="string"><VALUE>it's 100%</VALUE></PROPERTY>
  <PROPERTY NAME="Other" TYPE="string"><VALUE>it's 100%</VALUE></PROPERTY>
  <PROPERTY NAME="When" TYPE="datetime"><VALUE>20240912081511.250000+060</VALUE></PROPERTY>
</INSTANCE></VALUE.OBJECT>
<VALUE.OBJECT><INSTANCE CLASSNAME="Mark">
  <PROPERTY NAME="Id" TYPE="string"><VALUE>2</VALUE></PROPERTY>
  <PROPERTY NAME="Big" TYPE="uint64"><VALUE>18446744073709551614</VALUE></PROPERTY>
  <PROPERTY NAME="Real" TYPE="real64"><VALUE>2.5</VALUE></PROPERTY>
  <PROPERTY NAME="Good" TYPE="boolean"><VALUE>FALSE</VALUE></PROPERTY>
  <PROPERTY NAME="Text" TYPE="string"><VALUE></VALUE></PROPERTY>
  <PROPERTY NAME="Other" TYPE="string"><VALUE>other</VALUE></PROPERTY>
  <PROPERTY NAME="When" TYPE="datetime"><VALUE>20230912081511.250000+060</VALUE></PROPERTY>
</INSTANCE></VALUE.OBJECT>
<VALUE.OBJECT><INSTANCE CLASSNAME="Mark"><PROPERTY NAME="Id" TYPE="string"><VALUE>3</VALUE></PROPERTY></INSTANCE></VALUE.OBJECT>
)";

class QueryTest : public testing::Test {
protected:
    QueryTest() {
        space_.add(kMarks);
        space_.add(test::kSmallAssociations);
    }

    /// Ids of what a query selects.
    std::string select(const std::string& text) {
        const Query query = Query::read(text, space_->classes);
        std::string ids;
        for (const Instance* instance : space_->instances.ofClassAndBelow(query.from())) {
            ids += query.selects(*instance) ? instance->path().keys.front().canonical : "";
        }
        return ids;
    }
    std::string marks(const std::string& condition) {
        return select("SELECT * FROM Mark WHERE " + condition);
    }

    /// What a query is refused with.
    std::string whyNot(const std::string& text) {
        try {
            Query::read(text, space_->classes);
        } catch (const CimError& error) {
            EXPECT_EQ(error.status(), CimStatus::InvalidQuery);
            return error.what();
        }
        return "";
    }

    test::SmallNameSpace space_;
};

TEST_F(QueryTest, SelectsInstancesOfAClassAndBelow) {
    EXPECT_EQ(select("SELECT * FROM Base"), "amb");
    EXPECT_EQ(select("select Id, level from LEAF"), "ab");
    EXPECT_EQ(select("SELECT * FROM Other"), "");
}

TEST_F(QueryTest, TellsWhichPropertiesAreSelected) {
    EXPECT_FALSE(Query::read("SELECT * FROM Leaf", space_->classes).properties());
    const auto some = Query::read("SELECT ID, Leaf.Size FROM Leaf", space_->classes).properties();
    EXPECT_EQ(some.value(), (std::unordered_set<std::string>{"id", "size"}));
}

TEST_F(QueryTest, ComparesTexts) {
    EXPECT_EQ(marks("Id = '2'"), "2");
    EXPECT_EQ(marks("Id <> \"2\""), "13");
    EXPECT_EQ(marks("Id != '2'"), "13");
    EXPECT_EQ(marks("Id > '1'"), "23");
    EXPECT_EQ(marks("'2' > Id"), "1");
    EXPECT_EQ(marks("Text = 'it\\'s 100%'"), "1");
    EXPECT_EQ(marks("Text = \"it's 100%\""), "1");
    EXPECT_EQ(marks("Text = 'IT\\'S 100%'"), "") << "to the letter";
    EXPECT_EQ(marks("Text = ''"), "2") << "empty is not null";
    EXPECT_EQ(marks("Text = Other"), "1");
    EXPECT_EQ(marks("When >= '20240101000000.000000+000'"), "1");
}

TEST_F(QueryTest, ComparesNumbersExactly) {
    EXPECT_EQ(marks("Big = 18446744073709551615"), "1");
    EXPECT_EQ(marks("Big < 18446744073709551615"), "2");
    EXPECT_EQ(marks("Big >= 9"), "12") << "nine is not more because it starts with a nine";
    EXPECT_EQ(marks("Big <= 18446744073709551614"), "2");
    EXPECT_EQ(marks("Real = -1500"), "1");
    EXPECT_EQ(marks("Real > -1.5e+3"), "2");
    EXPECT_EQ(marks("Real < 2.50"), "1");
    EXPECT_EQ(select("SELECT * FROM Middle WHERE Size > -10 AND Size < -4"), "a");
    EXPECT_EQ(select("SELECT * FROM Middle WHERE Level = 2"), "ab") << "the class's value counts, too";
}

TEST_F(QueryTest, ComparesBooleans) {
    EXPECT_EQ(marks("Good = TRUE"), "1");
    EXPECT_EQ(marks("Good = false"), "2");
    EXPECT_EQ(marks("Good <> TRUE"), "2");
}

TEST_F(QueryTest, KnowsNothingOfWhatIsNull) {
    EXPECT_EQ(marks("Good IS NULL"), "3");
    EXPECT_EQ(marks("Good IS NOT NULL"), "12");
    EXPECT_EQ(marks("Good = NULL"), "3");
    EXPECT_EQ(marks("Good <> NULL"), "12");
    EXPECT_EQ(marks("NOT Good = TRUE"), "2") << "nor of the opposite";
    EXPECT_EQ(marks("Good = TRUE OR Id = '3'"), "13");
    EXPECT_EQ(marks("NOT (Good = TRUE AND Id = '9')"), "123");
    EXPECT_EQ(marks("NOT (Good = TRUE AND Id = '3')"), "12");
}

TEST_F(QueryTest, BindsAndMoreTightlyThanOr) {
    EXPECT_EQ(marks("Id = '1' OR Id = '2' AND Id = '3'"), "1");
    EXPECT_EQ(marks("(Id = '1' OR Id = '2') AND NOT Id = '1'"), "2");
    EXPECT_EQ(marks("NOT Id = '1' AND NOT NOT Id = '2'"), "2");
}

TEST_F(QueryTest, MatchesPatterns) {
    EXPECT_EQ(marks("Text LIKE '%100_'"), "1");
    EXPECT_EQ(marks("Id LIKE '[1-2]'"), "12");
    EXPECT_EQ(marks("Id NOT LIKE '[^3]'"), "3");
    EXPECT_EQ(marks("Text NOT LIKE 'x'"), "12");
}

TEST_F(QueryTest, AsksForClasses) {
    EXPECT_EQ(select("SELECT * FROM Base WHERE __this ISA Leaf"), "ab");
    EXPECT_EQ(select("SELECT * FROM Base WHERE NOT __this ISA 'Leaf'"), "m");
    EXPECT_EQ(select("SELECT * FROM Base WHERE __CLASS = 'Leaf'"), "ab");
    EXPECT_EQ(select("SELECT * FROM Leaf WHERE Parent ISA Middle"), "a");
    EXPECT_EQ(select("SELECT * FROM Leaf WHERE Parent ISA Leaf"), "");
    EXPECT_EQ(select("SELECT * FROM Leaf WHERE NOT Parent ISA Leaf"), "a") << "b has none";
    EXPECT_EQ(select("SELECT * FROM Leaf WHERE Parent IS NULL"), "b");
}

TEST_F(QueryTest, SaysWhereAQueryIsWrong) {
    EXPECT_EQ(whyNot("SELECT"), "at character 7 of the query: expected a property or '*', not 'the end'");
    EXPECT_EQ(whyNot("SELECT * Mark"), "at character 10 of the query: expected FROM, not 'Mark'");
    EXPECT_EQ(whyNot("SELECT Odd FROM Mark"),
              "at character 8 of the query: the class 'Mark' has no property 'Odd'");
    EXPECT_EQ(whyNot("SELECT * FROM Odd"), "at character 15 of the query: the class 'Odd' does not exist");
    EXPECT_EQ(whyNot("SELECT * FROM Mark Id"),
              "at character 20 of the query: expected nothing more, not 'Id'");
    EXPECT_EQ(whyNot("SELECT * FROM Mark WHERE Id = 'x"),
              "at character 31 of the query: a text that does not end");
    EXPECT_EQ(whyNot("SELECT * FROM Mark WHERE Id ; 1"),
              "at character 29 of the query: ';' means nothing here");
}

TEST_F(QueryTest, RefusesConditionsThatAreNone) {
    for (const char* condition : {"",
                                  "Id",
                                  "Id =",
                                  "= '1'",
                                  "Id = 1",
                                  "Big = '1'",
                                  "Good = 'TRUE'",
                                  "Good < NULL",
                                  "(Id = '1'",
                                  "Id = '1')",
                                  "Id LIKE 1",
                                  "Id LIKE Text",
                                  "Big LIKE '1'",
                                  "Id IS 1",
                                  "Id IS NOT 1",
                                  "Id ISA Mark",
                                  "__this = 'Mark'",
                                  "__this ISA Odd",
                                  "Odd = 1",
                                  "Leaf.Id = '1'",
                                  "Id = '1' AND",
                                  "NOT",
                                  "Id NOT '1'",
                                  "NULL = NULL",
                                  "Id , '1'",
                                  "Id = '1' Id = '2'"}) {
        EXPECT_NE(whyNot(std::string("SELECT * FROM Mark WHERE ") + condition), "") << condition;
    }
    EXPECT_NE(whyNot("SELECT * FROM Leaf WHERE Tags = 't'"), "") << "an array";
    EXPECT_NE(whyNot("SELECT * FROM Leaf WHERE Parent = 't'"), "") << "a reference";
}

TEST_F(QueryTest, GoesOnlySoDeep) {
    const auto nested = [](int depth) {
        return "SELECT * FROM Mark WHERE " + std::string(static_cast<std::size_t>(depth), '(') + "Id = '1'" +
               std::string(static_cast<std::size_t>(depth), ')');
    };
    EXPECT_EQ(select(nested(60)), "1");
    EXPECT_NE(whyNot(nested(100000)), "");
    std::string wide = "Id = '1'";
    for (int i = 0; i < 1000; ++i) {
        wide += " OR (Id = '2')";
    }
    EXPECT_EQ(marks(wide), "12") << "side by side there may be many";
}

}  // namespace
}  // namespace cimom
