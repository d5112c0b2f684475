#include "model/TCimHTTPQualifier.h"

#include "tests/model/ElementTest.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;

class QualifierSetTest : public ElementTest {
protected:
    boost::shared_ptr<TCimHTTPQualifier> Make(const std::string& name, const TCIMValue& value,
                                              unsigned int flavor) const {
        return boost::shared_ptr<TCimHTTPQualifier>(
            new TCimHTTPQualifier(nameSpace_, LooseDeclaration(name, flavor), value, method_));
    }

    Names InOrder() const {
        Names names;
        set_.Enumerate([&](boost::shared_ptr<ICIMQualifier> qualifier) {
            names.push_back(qualifier->GetName(TContext()));
            return true;
        });
        return names;
    }

    QualifierSet set_;
};

TEST_F(QualifierSetTest, IsEmptyAtFirst) {
    EXPECT_FALSE(set_.Find("Key"));
    EXPECT_EQ(InOrder(), Names());
}

TEST_F(QualifierSetTest, KeepsTheFirstOfTwoWithTheSameValueAndFlavor) {
    const auto first = Make("MaxLen", TCIMValue(5u), 2);
    set_.Add(first);
    set_.Add(Make("MaxLen", TCIMValue(5u), 2));
    EXPECT_EQ(set_.Find("MaxLen"), first);
    EXPECT_EQ(InOrder(), Names{"MaxLen"});
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(QualifierSetTest, KeepsTheFirstOfTwoWithNullValuesOfOneType) {
    const auto first = Make("Description", TCIMValue(TCIMValue::TCIMType::eString, 0), 0);
    set_.Add(first);
    set_.Add(Make("Description", TCIMValue(TCIMValue::TCIMType::eString, 0), 0));
    EXPECT_EQ(set_.Find("Description"), first);
}

TEST_F(QualifierSetTest, RefusesAnotherValueAndKeepsTheOldOne) {
    const auto first = Make("MaxLen", TCIMValue(5u), 2);
    set_.Add(first);
    EXPECT_EQ(StatusOf([&] { set_.Add(Make("MaxLen", TCIMValue(6u), 2)); }), eVSKQualifierConflict);
    EXPECT_EQ(set_.Find("MaxLen"), first);
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(QualifierSetTest, RefusesAnotherFlavorAndKeepsTheOldOne) {
    const auto first = Make("MaxLen", TCIMValue(5u), 2);
    set_.Add(first);
    EXPECT_EQ(StatusOf([&] { set_.Add(Make("MaxLen", TCIMValue(5u), 3)); }), eVSKQualifierConflict);
    EXPECT_EQ(set_.Find("MaxLen"), first);
}

TEST_F(QualifierSetTest, ReplacesOneWithFlavorOneWhateverTheNewValue) {
    set_.Add(Make("MaxLen", TCIMValue(5u), 1));
    const auto second = Make("MaxLen", TCIMValue("text"), 2);
    set_.Add(second);
    EXPECT_EQ(set_.Find("MaxLen"), second);
    EXPECT_EQ(InOrder(), Names{"MaxLen"});
}

TEST_F(QualifierSetTest, ReplacesOneWithTheLowestFlavorBitAmongOthers) {
    set_.Add(Make("MaxLen", TCIMValue(5u), 7));
    const auto second = Make("MaxLen", TCIMValue(5u), 7);
    set_.Add(second);
    EXPECT_EQ(set_.Find("MaxLen"), second);
}

TEST_F(QualifierSetTest, LooksAtTheFlavorOfTheOldOneOnly) {
    set_.Add(Make("MaxLen", TCIMValue(5u), 6));
    EXPECT_EQ(StatusOf([&] { set_.Add(Make("MaxLen", TCIMValue(6u), 1)); }), eVSKQualifierConflict);
}

TEST_F(QualifierSetTest, TakesNamesThatDifferInCaseForOne) {
    const auto first = Make("MaxLen", TCIMValue(5u), 2);
    set_.Add(first);
    set_.Add(Make("MAXLEN", TCIMValue(5u), 2));
    EXPECT_EQ(set_.Find("maxlen"), first);
    EXPECT_EQ(StatusOf([&] { set_.Add(Make("mAXlEN", TCIMValue(6u), 2)); }), eVSKQualifierConflict);
    EXPECT_EQ(InOrder(), Names{"MaxLen"});
}

TEST_F(QualifierSetTest, EnumeratesInTheOrderOfNormalisedNames) {
    for (const char* name : {"Units", "abstract", "_x", "KEY"}) {
        set_.Add(Make(name, TCIMValue(true), 0));
    }
    EXPECT_EQ(InOrder(), (Names{"_x", "abstract", "KEY", "Units"}));
}

TEST_F(QualifierSetTest, StopsEnumeratingAtTheFirstFalse) {
    for (const char* name : {"A", "B", "C"}) {
        set_.Add(Make(name, TCIMValue(true), 0));
    }
    int calls = 0;
    set_.Enumerate([&](boost::shared_ptr<ICIMQualifier>) { return ++calls < 2; });
    EXPECT_EQ(calls, 2);
}

TEST_F(QualifierSetTest, LetsACallbackReplaceAndAddQualifiers) {
    for (const char* name : {"A", "C"}) {
        set_.Add(Make(name, TCIMValue(1), 1));
    }
    int calls = 0;
    set_.Enumerate([&](boost::shared_ptr<ICIMQualifier> qualifier) {
        ++calls;
        set_.Add(Make(qualifier->GetName(TContext()), TCIMValue(2), 1));
        set_.Add(Make("B", TCIMValue(2), 1));
        return true;
    });
    EXPECT_EQ(calls, 3);
    EXPECT_TRUE(Same(set_.Find("A")->GetValue(TContext()), TCIMValue(2)));
    EXPECT_EQ(InOrder(), (Names{"A", "B", "C"}));
}

TEST_F(QualifierSetTest, RefusesMalformedNames) {
    EXPECT_EQ(StatusOf([&] { set_.Find("no name"); }), eVSKInvalidName);
    EXPECT_EQ(StatusOf([&] { set_.Add(Make("1st", TCIMValue(1), 0)); }), eVSKInvalidName);
    const std::vector<RecordingLogger::Line> expected{{0, "CimHTTP: CIM name 'no name' is invalid"},
                                                      {0, "CimHTTP: CIM name '1st' is invalid"}};
    EXPECT_EQ(log_.Lines(), expected);
    EXPECT_EQ(InOrder(), Names());
}

TEST_F(QualifierSetTest, NeedsAQualifier) {
    ExpectMissingPointer(log_, "QualifierSet::Add", [&] { set_.Add(boost::shared_ptr<ICIMQualifier>()); });
}

TEST_F(QualifierSetTest, NeedsAQualifierOfThisPlugin) {
    const boost::shared_ptr<TInmemUnion> other(new TInmemUnion);
    other
        ->AllocateQualifierDecl("Key", TCIMValue(true), ICIMQualifierDecl::eScopeAny,
                                ICIMQualifierDecl::eFlavorNone, TContext())
        ->Commit(TContext());
    const auto foreignClass = other->AllocateClass("CIM_Fan", boost::shared_ptr<ICIMClass>(), TContext());
    const auto foreign = foreignClass->AllocatePropertyDecl("Speed", TCIMValue(1u), TContext())
                             ->AllocateQualifier("Key", TCIMValue(true), TContext());
    ASSERT_TRUE(foreign);
    ExpectMissingPointer(log_, "QualifierSet::Add", [&] { set_.Add(foreign); });
}

}  // namespace
}  // namespace NQELVSK20
