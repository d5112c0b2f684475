#include "tests/support/schema/TInmemUnion.h"

#include <gtest/gtest.h>

#include "tests/host/Schema.h"
#include "tests/support/StatusOf.h"

namespace NQELVSK20 {
namespace {

class TInmemUnionTest : public ::testing::Test {
protected:
    boost::shared_ptr<TInmemUnion> union_ = MakeUnion();
};

TEST_F(TInmemUnionTest, FindsAClassOnceItIsCommitted) {
    const auto fan = union_->AllocateClass("CIM_Fan", nullptr, {});
    EXPECT_FALSE(union_->GetClass("CIM_Fan", {}));
    fan->Commit({});
    EXPECT_EQ(union_->GetClass("CIM_Fan", {}), fan);
    EXPECT_EQ(union_->GetClass("cim_FAN", {}), fan);
    EXPECT_FALSE(union_->GetClass("CIM_Pump", {}));
    EXPECT_EQ(fan->GetNamespace({}), union_);
}

TEST_F(TInmemUnionTest, ReplacesAClassOfTheSameName) {
    MakeClass(*union_, "CIM_Fan");
    const auto second = MakeClass(*union_, "CIM_FAN");
    EXPECT_EQ(union_->GetClass("CIM_Fan", {}), second);
}

TEST_F(TInmemUnionTest, EnumeratesRootClassesEachWithItsSubclasses) {
    const auto element = MakeClass(*union_, "CIM_ManagedElement");
    const auto device = MakeClass(*union_, "CIM_LogicalDevice", element);
    MakeClass(*union_, "CIM_Fan", device);
    MakeClass(*union_, "CIM_Battery", device);
    MakeClass(*union_, "A_Other");
    EXPECT_EQ(NamesFrom<ICIMClass>([this](const auto& add) { union_->EnumerateRootClasses(add, {}); }),
              (std::vector<std::string>{"A_Other", "CIM_ManagedElement", "CIM_LogicalDevice", "CIM_Battery",
                                        "CIM_Fan"}));
}

TEST_F(TInmemUnionTest, StopsAtTheFirstRootClassThatTheCallbackDeclines) {
    MakeClass(*union_, "A");
    MakeClass(*union_, "B");
    int calls = 0;
    union_->EnumerateRootClasses(
        [&calls](const boost::shared_ptr<ICIMClass>&) {
            ++calls;
            return false;
        },
        {});
    EXPECT_EQ(calls, 1);
}

TEST_F(TInmemUnionTest, FindsAQualifierDeclarationOnceItIsCommitted) {
    const auto declaration = union_->AllocateQualifierDecl(
        "Units", TCIMValue(""), ICIMQualifierDecl::eScopeProperty, ICIMQualifierDecl::eFlavorDefaults, {});
    EXPECT_FALSE(union_->GetQualifierDecl("Units", {}));
    declaration->Commit({});
    EXPECT_EQ(union_->GetQualifierDecl("UNITS", {}), declaration);
}

TEST_F(TInmemUnionTest, EnumeratesQualifierDeclarationsInTheOrderOfTheirNames) {
    DeclareQualifier(*union_, "alias");
    EXPECT_EQ(
        NamesFrom<ICIMQualifierDecl>([this](const auto& add) { union_->EnumerateQualifierDecls(add, {}); }),
        (std::vector<std::string>{"ABSTRACT", "alias", "ASSOCIATION", "DESCRIPTION", "KEY"}));
}

TEST_F(TInmemUnionTest, RefusesToCommitWhatHasNoCimName) {
    for (const char* name : {"", "1a", "a b", "<root>"}) {
        EXPECT_EQ(StatusOf([&] { MakeClass(*union_, name); }), eVSKInvalidName) << name;
        EXPECT_EQ(StatusOf([&] { DeclareQualifier(*union_, name); }), eVSKInvalidName) << name;
        EXPECT_FALSE(union_->GetClass(name, {}));
        EXPECT_FALSE(union_->GetQualifierDecl(name, {}));
    }
}

TEST_F(TInmemUnionTest, LetsGoOfInstancesAndClassesWhenItEnds) {
    auto fan = MakeClass(*union_, "CIM_Fan");
    fan->CreateInstance({})->Commit({});
    const boost::weak_ptr<ICIMClass> remembered = fan;
    fan.reset();
    EXPECT_FALSE(remembered.expired());
    union_.reset();
    EXPECT_TRUE(remembered.expired());
}

TEST_F(TInmemUnionTest, ClearsTheInstancesOfAllClasses) {
    const auto fan = MakeClass(*union_, "CIM_Fan");
    fan->CreateInstance({})->Commit({});
    union_->ClearInstances();
    fan->EnumerateInstances(
        [](const boost::shared_ptr<ICIMInstance>&) {
            ADD_FAILURE() << "an instance is left";
            return true;
        },
        false, {});
}

}  // namespace
}  // namespace NQELVSK20
