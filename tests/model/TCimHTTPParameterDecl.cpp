#include "model/TCimHTTPParameterDecl.h"

#include "tests/model/ElementTest.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

class ParameterDeclTest : public ElementTest {};

TEST_F(ParameterDeclTest, BelongsToItsMethod) {
    EXPECT_EQ(MakeParameter("Mode")->GetMethod(TContext()), method_);
}

TEST_F(ParameterDeclTest, IsAnArrayWhenItsTypeIsAnArrayCode) {
    for (int code = Type::eUnknown; code <= Type::eReferenceArray; ++code) {
        const auto parameter = MakeParameter("Mode", static_cast<Type::ECIMType>(code));
        EXPECT_EQ(static_cast<int>(parameter->GetType(TContext())), code);
        EXPECT_EQ(parameter->IsArray(TContext()), code >= 16) << code;
    }
}

TEST_F(ParameterDeclTest, EntersItsMethodWithCommit) {
    const auto parameter = MakeParameter("Mode");
    EXPECT_FALSE(method_->GetParameterDecl("Mode", TContext()));
    parameter->Commit(TContext());
    EXPECT_EQ(method_->GetParameterDecl("Mode", TContext()), parameter);
}

TEST_F(ParameterDeclTest, IsRefusedWhenItsNameDiffersFromAnotherOnlyInCase) {
    const auto first = MakeParameter("Mode");
    first->Commit(TContext());
    EXPECT_EQ(StatusOf([&] { MakeParameter("MODE")->Commit(TContext()); }), eVSKAlreadyExists);
    const std::vector<RecordingLogger::Line> expected{
        {0, "Inmem: Attempt to add property MODE to method Reset: already exists"}};
    EXPECT_EQ(log_.Lines(), expected);
    EXPECT_EQ(method_->GetParameterDecl("mode", TContext()), first);
}

TEST_F(ParameterDeclTest, IsRefusedWhenItsNameIsMalformed) {
    EXPECT_EQ(StatusOf([&] { MakeParameter("1st")->Commit(TContext()); }), eVSKInvalidName);
}

TEST_F(ParameterDeclTest, DoesNotKeepItsMethodAlive) {
    const auto parameter = MakeParameter("Mode");
    method_.reset();
    EXPECT_FALSE(parameter->GetMethod(TContext()));
    ExpectMissingPointer(log_, "TCimHTTPParameterDecl::Commit", [&] { parameter->Commit(TContext()); });
}

TEST_F(ParameterDeclTest, CannotAllocateQualifiersWithoutItsMethod) {
    const auto parameter = MakeParameter("Mode");
    const auto declaration = LooseDeclaration("Key");
    method_.reset();
    ExpectMissingPointer(log_, "TCimHTTPParameterDecl::AllocateQualifier",
                         [&] { parameter->AllocateQualifier(declaration, TCIMValue(1), TContext()); });
}

TEST_F(ParameterDeclTest, KeepsItsTypeAndMethodWhenAssignedTo) {
    const auto target = MakeParameter("Mode");
    *target = *MakeParameter("Level", TCIMValue::TCIMType::eUint8Array);
    EXPECT_EQ(target->GetType(TContext()), TCIMValue::TCIMType::eString);
    EXPECT_EQ(target->GetMethod(TContext()), method_);
}

}  // namespace
}  // namespace NQELVSK20
