#include "tests/support/schema/TInmemElement.h"

#include <gtest/gtest.h>

#include "tests/host/Schema.h"
#include "tests/support/StatusOf.h"

namespace NQELVSK20 {
namespace {

/// A property stands for all elements: they share what they do with qualifiers.
class TInmemElementTest : public ::testing::Test {
protected:
    boost::shared_ptr<ICIMQualifier> Make(const std::string& name, const TCIMValue& value) {
        return property_->AllocateQualifier(name, value, {});
    }

    std::string Description() {
        return property_->GetQualifier("DESCRIPTION", {})->GetValue({}).ToString(10);
    }

    boost::shared_ptr<TInmemUnion> union_ = MakeUnion();
    boost::shared_ptr<ICIMClass> class_ = MakeClass(*union_, "CIM_Fan");
    boost::shared_ptr<ICIMPropertyDecl> property_ = AddProperty(class_, "Speed");
};

TEST_F(TInmemElementTest, MakesAQualifierThatIsNotYetThere) {
    const auto qualifier = Make("key", TCIMValue(true));
    EXPECT_EQ(qualifier->GetName({}), "KEY");
    EXPECT_EQ(qualifier->GetQualifierDecl({}), union_->GetQualifierDecl("KEY", {}));
    EXPECT_EQ(qualifier->GetNamespace({}), union_);
    bool found = true;
    EXPECT_FALSE(property_->FindQualifier("KEY", found, {}));
    EXPECT_FALSE(found);
}

TEST_F(TInmemElementTest, MakesNoQualifierWithoutADeclaration) {
    EXPECT_EQ(StatusOf([this] { Make("Unknown", TCIMValue(true)); }), eVSKNotFound);
}

TEST_F(TInmemElementTest, FindsAQualifierWithoutRegardToCase) {
    const auto qualifier = Make("KEY", TCIMValue(true));
    qualifier->Commit({});
    bool found = false;
    EXPECT_EQ(property_->FindQualifier("Key", found, {}), qualifier);
    EXPECT_TRUE(found);
    EXPECT_EQ(property_->GetQualifier("key", {}), qualifier);
    EXPECT_EQ(StatusOf([this] { property_->GetQualifier("ABSTRACT", {}); }), eVSKNotFound);
}

TEST_F(TInmemElementTest, ReplacesAQualifierThatMayBeOverridden) {
    Make("DESCRIPTION", TCIMValue("old"))->Commit({});
    Make("DESCRIPTION", TCIMValue("new"))->Commit({});
    EXPECT_EQ(Description(), "new");
}

TEST_F(TInmemElementTest, KeepsAnEqualQualifierAndRefusesAnother) {
    const auto first = Make("KEY", TCIMValue(true));
    first->Commit({});
    Make("KEY", TCIMValue(true))->Commit({});
    EXPECT_EQ(property_->GetQualifier("KEY", {}), first);
    EXPECT_EQ(StatusOf([this] { Make("KEY", TCIMValue(false))->Commit({}); }), eVSKQualifierConflict);
    const auto translatable = Make("KEY", TCIMValue(true));
    translatable->AddFlavor(ICIMQualifierDecl::eFlavorTranslatable, {});
    EXPECT_EQ(StatusOf([&] { translatable->Commit({}); }), eVSKQualifierConflict);
    EXPECT_EQ(property_->GetQualifier("KEY", {}), first);
}

TEST_F(TInmemElementTest, EnumeratesQualifiersInTheOrderOfTheirNamesUntilFalse) {
    for (const char* name : {"KEY", "ABSTRACT", "DESCRIPTION"}) {
        Make(name, TCIMValue(true))->Commit({});
    }
    EXPECT_EQ(NamesFrom<ICIMQualifier>([this](const auto& add) { property_->EnumerateQualifiers(add, {}); }),
              (std::vector<std::string>{"ABSTRACT", "DESCRIPTION", "KEY"}));
    int calls = 0;
    property_->EnumerateQualifiers(
        [&calls](const boost::shared_ptr<ICIMQualifier>&) {
            ++calls;
            return false;
        },
        {});
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace NQELVSK20
