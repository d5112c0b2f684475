#include "model/TCimHTTPQualifier.h"

#include "tests/model/ElementTest.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

class QualifierTest : public ElementTest {
protected:
    boost::shared_ptr<TCimHTTPQualifier> Make(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                              const TCIMValue& value) const {
        return boost::shared_ptr<TCimHTTPQualifier>(
            new TCimHTTPQualifier(nameSpace_, declaration, value, property_));
    }

    boost::shared_ptr<TCimHTTPPropertyDecl> property_ = MakeProperty("Speed");
    const boost::shared_ptr<ICIMQualifierDecl> maxLen_ = Declare("MaxLen", TCIMValue(64u), 6);
};

TEST_F(QualifierTest, KeepsWhatItWasMadeOf) {
    const auto qualifier = Make(maxLen_, TCIMValue(5u));
    EXPECT_EQ(qualifier->GetName(TContext()), "MaxLen");
    EXPECT_EQ(qualifier->GetNamespace(TContext()), nameSpace_);
    EXPECT_EQ(qualifier->GetQualifierDecl(TContext()), maxLen_);
    EXPECT_EQ(qualifier->GetType(TContext()), TCIMValue::TCIMType::eUint32);
    EXPECT_FALSE(qualifier->IsArray(TContext()));
    EXPECT_TRUE(Same(qualifier->GetValue(TContext()), TCIMValue(5u)));
}

TEST_F(QualifierTest, TakesTypeAndArrayFlagFromItsOwnValue) {
    const auto qualifier =
        Make(maxLen_, TCIMValue(TCIMValue::TCIMType::eString, 0, {TCIMValue("a"), TCIMValue("b")}));
    EXPECT_EQ(qualifier->GetType(TContext()), TCIMValue::TCIMType::eString);
    EXPECT_TRUE(qualifier->IsArray(TContext()));
}

TEST_F(QualifierTest, StartsWithTheFlavorOfItsDeclaration) {
    EXPECT_EQ(Make(maxLen_, TCIMValue(5u))->GetFlavor(TContext()), 6u);
}

TEST_F(QualifierTest, IsPropagatedWhileItHoldsTheDefaultOfItsDeclaration) {
    EXPECT_TRUE(Make(maxLen_, TCIMValue(64u))->IsPropagated(TContext()));
    EXPECT_FALSE(Make(maxLen_, TCIMValue(5u))->IsPropagated(TContext()));
}

TEST_F(QualifierTest, IsNoLongerPropagatedAfterSetValue) {
    const auto qualifier = Make(maxLen_, TCIMValue(64u));
    const TCIMValue& live = qualifier->GetValue(TContext());
    qualifier->SetValue(TCIMValue(7u), TContext());
    EXPECT_TRUE(Same(live, TCIMValue(7u)));
    EXPECT_FALSE(qualifier->IsPropagated(TContext()));

    qualifier->SetValue(TCIMValue(64u), TContext());
    EXPECT_FALSE(qualifier->IsPropagated(TContext()));
}

TEST_F(QualifierTest, IsNoLongerPropagatedAfterAddFlavor) {
    const auto qualifier = Make(maxLen_, TCIMValue(64u));
    qualifier->AddFlavor(1, TContext());
    EXPECT_EQ(qualifier->GetFlavor(TContext()), 7u);
    EXPECT_FALSE(qualifier->IsPropagated(TContext()));
}

TEST_F(QualifierTest, IsNoLongerPropagatedAfterRemoveFlavor) {
    const auto qualifier = Make(maxLen_, TCIMValue(64u));
    qualifier->RemoveFlavor(2, TContext());
    EXPECT_EQ(qualifier->GetFlavor(TContext()), 4u);
    EXPECT_FALSE(qualifier->IsPropagated(TContext()));
}

TEST_F(QualifierTest, KeepsItsFlavorButNotPropagationWhenAddedBitsAreSetAlready) {
    const auto qualifier = Make(maxLen_, TCIMValue(64u));
    qualifier->AddFlavor(2, TContext());
    EXPECT_EQ(qualifier->GetFlavor(TContext()), 6u);
    EXPECT_FALSE(qualifier->IsPropagated(TContext()));
}

TEST_F(QualifierTest, KeepsItsFlavorButNotPropagationWhenRemovedBitsAreClearAlready) {
    const auto qualifier = Make(maxLen_, TCIMValue(64u));
    qualifier->RemoveFlavor(1, TContext());
    EXPECT_EQ(qualifier->GetFlavor(TContext()), 6u);
    EXPECT_FALSE(qualifier->IsPropagated(TContext()));
}

TEST_F(QualifierTest, KeepsItsFlavorWhenItsDeclarationChanges) {
    const auto qualifier = Make(maxLen_, TCIMValue(64u));
    maxLen_->AddFlavor(1, TContext());
    EXPECT_EQ(qualifier->GetFlavor(TContext()), 6u);
}

TEST_F(QualifierTest, StandsOnItsElementAfterCommit) {
    const auto qualifier = Make(maxLen_, TCIMValue(5u));
    bool found = true;
    EXPECT_FALSE(property_->FindQualifier("MaxLen", found, TContext()));
    qualifier->Commit(TContext());
    EXPECT_EQ(property_->GetQualifier("MAXLEN", TContext()), qualifier);
}

TEST_F(QualifierTest, CannotBeCommittedWithoutItsElement) {
    const auto qualifier = Make(maxLen_, TCIMValue(5u));
    property_.reset();
    ExpectMissingPointer(log_, "TCimHTTPQualifier::Commit", [&] { qualifier->Commit(TContext()); });
}

TEST_F(QualifierTest, NeedsADeclaration) {
    ExpectMissingPointer(log_, "TCimHTTPQualifier::TCimHTTPQualifier",
                         [&] { Make(boost::shared_ptr<ICIMQualifierDecl>(), TCIMValue(1)); });
}

TEST_F(QualifierTest, HasAnEmptyNamespaceOnceThatIsGone) {
    const auto qualifier = Make(maxLen_, TCIMValue(5u));
    property_.reset();
    method_.reset();
    class_.reset();
    nameSpace_.reset();
    EXPECT_FALSE(qualifier->GetNamespace(TContext()));
    EXPECT_EQ(qualifier->GetName(TContext()), "MaxLen");
}

TEST_F(QualifierTest, ComparesByTheNameOfItsDeclarationWithoutRegardToCase) {
    const auto left = Make(maxLen_, TCIMValue(1));
    EXPECT_TRUE(*left == *Make(LooseDeclaration("MAXLEN"), TCIMValue("other")));
    EXPECT_FALSE(*left == *Make(LooseDeclaration("MinLen"), TCIMValue(1)));
    EXPECT_TRUE(*left < *Make(LooseDeclaration("minlen"), TCIMValue(1)));
    EXPECT_FALSE(*left < *Make(LooseDeclaration("ABSTRACT"), TCIMValue(1)));
    EXPECT_FALSE(*left < *Make(LooseDeclaration("maxlen"), TCIMValue(1)));
}

TEST_F(QualifierTest, IsNotChangedByAssignment) {
    const auto target = Make(maxLen_, TCIMValue(64u));
    const auto source = Make(LooseDeclaration("Key", 1), TCIMValue(true));
    ICIMQualifier& asInterface = *target;

    EXPECT_EQ(&(*target = *source), target.get());
    EXPECT_EQ(&(asInterface = *source), target.get());

    EXPECT_EQ(target->GetName(TContext()), "MaxLen");
    EXPECT_TRUE(Same(target->GetValue(TContext()), TCIMValue(64u)));
    EXPECT_EQ(target->GetFlavor(TContext()), 6u);
    EXPECT_TRUE(target->IsPropagated(TContext()));
}

TEST_F(QualifierTest, AcceptsValidationAndTheReservedOperation) {
    const auto qualifier = Make(maxLen_, TCIMValue(64u));
    qualifier->Validate(TContext());
    qualifier->Reserved4(TContext());
    EXPECT_TRUE(qualifier->IsPropagated(TContext()));
    EXPECT_EQ(StatusOf([&] { property_->GetQualifier("MaxLen", TContext()); }), eVSKNotFound);
}

}  // namespace
}  // namespace NQELVSK20
