#include "model/TCimHTTPQualifierDecl.h"

#include "tests/model/ElementTest.h"

namespace NQELVSK20 {
namespace {

class QualifierDeclTest : public ElementTest {
protected:
    boost::shared_ptr<TCimHTTPQualifierDecl> Make(const std::string& name,
                                                  const TCIMValue& value = TCIMValue("text"),
                                                  unsigned int flavor = 0) const {
        return boost::shared_ptr<TCimHTTPQualifierDecl>(
            new TCimHTTPQualifierDecl(nameSpace_, name, value, ICIMQualifierDecl::eScopeProperty,
                                      static_cast<ICIMQualifierDecl::EFlavor>(flavor)));
    }
};

TEST_F(QualifierDeclTest, KeepsWhatItWasMadeOf) {
    const auto declaration = Make("MaxLen", TCIMValue(64u), 3);
    EXPECT_EQ(declaration->GetName(TContext()), "MaxLen");
    EXPECT_EQ(declaration->GetNamespace(TContext()), nameSpace_);
    EXPECT_EQ(declaration->GetType(TContext()), TCIMValue::TCIMType::eUint32);
    EXPECT_FALSE(declaration->IsArray(TContext()));
    EXPECT_TRUE(Same(declaration->GetValue(TContext()), TCIMValue(64u)));
    EXPECT_EQ(declaration->GetScope(TContext()), 8u);
    EXPECT_EQ(declaration->GetFlavor(TContext()), 3u);
}

TEST_F(QualifierDeclTest, IsAnArrayWhenItsValueIsOne) {
    const auto declaration = Make("ValueMap", TCIMValue(TCIMValue::TCIMType::eString, 0, {TCIMValue("1")}));
    EXPECT_TRUE(declaration->IsArray(TContext()));
    EXPECT_EQ(declaration->GetType(TContext()), TCIMValue::TCIMType::eString);
}

TEST_F(QualifierDeclTest, TakesANewValueAndWithItANewType) {
    const auto declaration = Make("MaxLen", TCIMValue());
    const TCIMValue& live = declaration->GetValue(TContext());
    declaration->SetValue(TCIMValue(true), TContext());
    EXPECT_TRUE(Same(live, TCIMValue(true)));
    EXPECT_EQ(declaration->GetType(TContext()), TCIMValue::TCIMType::eBoolean);
}

TEST_F(QualifierDeclTest, AddsAndRemovesFlavorBits) {
    const auto declaration = Make("Key", TCIMValue(false), 1);
    declaration->AddFlavor(6, TContext());
    EXPECT_EQ(declaration->GetFlavor(TContext()), 7u);
    declaration->RemoveFlavor(5, TContext());
    EXPECT_EQ(declaration->GetFlavor(TContext()), 2u);
}

TEST_F(QualifierDeclTest, ChangesNothingByAddingSetBitsOrRemovingClearOnes) {
    const auto declaration = Make("Key", TCIMValue(false), 3);
    declaration->AddFlavor(1, TContext());
    declaration->RemoveFlavor(4, TContext());
    EXPECT_EQ(declaration->GetFlavor(TContext()), 3u);
}

TEST_F(QualifierDeclTest, EntersItsNamespaceWithCommit) {
    const auto declaration = Make("Key");
    EXPECT_FALSE(nameSpace_->GetQualifierDecl("Key", TContext()));
    declaration->Commit(TContext());
    EXPECT_EQ(nameSpace_->GetQualifierDecl("KEY", TContext()), declaration);
}

TEST_F(QualifierDeclTest, IsRefusedWhenItsNameIsTaken) {
    const auto first = Make("Key");
    first->Commit(TContext());
    log_.Clear();
    EXPECT_EQ(StatusOf([&] { Make("KEY")->Commit(TContext()); }), eVSKAlreadyExists);
    const std::vector<RecordingLogger::Line> expected{
        {3, "CimHTTP: TCimHTTPNamespace: qualifier KEY already defined"}};
    EXPECT_EQ(log_.Lines(), expected);
    EXPECT_EQ(nameSpace_->GetQualifierDecl("Key", TContext()), first);
}

TEST_F(QualifierDeclTest, OutlivesItsNamespaceButCannotBeCommittedThen) {
    const auto declaration = Make("Key");
    class_.reset();
    nameSpace_.reset();
    EXPECT_FALSE(declaration->GetNamespace(TContext()));
    ExpectMissingPointer(log_, "TCimHTTPQualifierDecl::Commit", [&] { declaration->Commit(TContext()); });
}

TEST_F(QualifierDeclTest, ComparesByNameWithoutRegardToCase) {
    EXPECT_TRUE(*Make("Key") == *Make("KEY", TCIMValue(1), 7));
    EXPECT_FALSE(*Make("Key") == *Make("Keys"));
    EXPECT_TRUE(*Make("ABSTRACT") < *Make("key"));
    EXPECT_FALSE(*Make("key") < *Make("ABSTRACT"));
    EXPECT_FALSE(*Make("Key") < *Make("KEY"));
}

TEST_F(QualifierDeclTest, IsNotChangedByAssignment) {
    const auto target = Make("Key", TCIMValue(true), 1);
    const auto source = Make("MaxLen", TCIMValue(5u), 2);
    ICIMQualifierDecl& asInterface = *target;

    EXPECT_EQ(&(*target = *source), target.get());
    EXPECT_EQ(&(asInterface = *source), target.get());

    EXPECT_EQ(target->GetName(TContext()), "Key");
    EXPECT_TRUE(Same(target->GetValue(TContext()), TCIMValue(true)));
    EXPECT_EQ(target->GetFlavor(TContext()), 1u);
}

TEST_F(QualifierDeclTest, AcceptsValidationAndTheReservedOperation) {
    const auto declaration = Make("Key");
    declaration->Validate(TContext());
    declaration->Reserved4(TContext());
    EXPECT_FALSE(nameSpace_->GetQualifierDecl("Key", TContext()));
    EXPECT_TRUE(Same(declaration->GetValue(TContext()), TCIMValue("text")));
}

}  // namespace
}  // namespace NQELVSK20
