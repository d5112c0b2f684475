#include "model/TCimHTTPMethodDecl.h"

#include "tests/model/ElementTest.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;

class MethodDeclTest : public ElementTest {
protected:
    void AddParameter(const std::string& name) {
        method_->AllocateParameterDecl(name, TCIMValue::TCIMType::eString, TContext())->Commit(TContext());
    }

    Names ParameterNames() const {
        Names names;
        method_->EnumerateParameterDecls(
            [&](boost::shared_ptr<ICIMParameterDecl> parameter) {
                names.push_back(parameter->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }
};

TEST_F(MethodDeclTest, BelongsToItsClassAndHasItsReturnType) {
    EXPECT_EQ(method_->GetClass(TContext()), class_);
    EXPECT_EQ(method_->GetType(TContext()), TCIMValue::TCIMType::eUint32);
}

TEST_F(MethodDeclTest, AllocatesAParameterWithoutAddingIt) {
    const auto parameter =
        method_->AllocateParameterDecl("Mode", TCIMValue::TCIMType::eUint16Array, TContext());
    EXPECT_EQ(parameter->GetName(TContext()), "Mode");
    EXPECT_EQ(parameter->GetType(TContext()), TCIMValue::TCIMType::eUint16Array);
    EXPECT_EQ(parameter->GetMethod(TContext()), method_);
    EXPECT_FALSE(method_->GetParameterDecl("Mode", TContext()));
}

TEST_F(MethodDeclTest, FindsAParameterInAnyLetterCase) {
    const auto parameter = method_->AllocateParameterDecl("Mode", TCIMValue::TCIMType::eString, TContext());
    parameter->Commit(TContext());
    EXPECT_EQ(method_->GetParameterDecl("MODE", TContext()), parameter);
}

TEST_F(MethodDeclTest, GivesAnEmptyPointerForAnAbsentParameter) {
    EXPECT_FALSE(method_->GetParameterDecl("Mode", TContext()));
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(MethodDeclTest, EnumeratesParametersInTheOrderOfNormalisedNames) {
    for (const char* name : {"Zone", "alpha", "Beta"}) {
        AddParameter(name);
    }
    EXPECT_EQ(ParameterNames(), (Names{"alpha", "Beta", "Zone"}));
}

TEST_F(MethodDeclTest, StopsEnumeratingParametersAtTheFirstFalse) {
    for (const char* name : {"A", "B", "C"}) {
        AddParameter(name);
    }
    int calls = 0;
    method_->EnumerateParameterDecls([&](boost::shared_ptr<ICIMParameterDecl>) { return ++calls < 2; },
                                     TContext());
    EXPECT_EQ(calls, 2);
}

TEST_F(MethodDeclTest, EntersItsClassWithCommit) {
    EXPECT_FALSE(class_->GetMethodDecl("Reset", TContext()));
    method_->Commit(TContext());
    EXPECT_EQ(class_->GetMethodDecl("RESET", TContext()), method_);
}

TEST_F(MethodDeclTest, IsRefusedByItsClassWhenItsNameIsTaken) {
    method_->Commit(TContext());
    log_.Clear();
    EXPECT_EQ(StatusOf([&] { MakeMethod("RESET")->Commit(TContext()); }), eVSKAlreadyExists);
    const std::vector<RecordingLogger::Line> expected{
        {0, "TCimHTTP: Attempt to add method RESET to class CIM_Fan: already exists"}};
    EXPECT_EQ(log_.Lines(), expected);
    EXPECT_EQ(class_->GetMethodDecl("Reset", TContext()), method_);
}

class InvalidMethodDecl : public TCimHTTPMethodDecl {
public:
    using TCimHTTPMethodDecl::operator=;
    using TCimHTTPMethodDecl::TCimHTTPMethodDecl;
    void Validate(TContext) override { throw TVSKException(eVSKNotSupported); }
};

TEST_F(MethodDeclTest, IsValidatedBeforeItEntersItsClass) {
    const boost::shared_ptr<ICIMMethodDecl> invalid(
        new InvalidMethodDecl(class_, "Reset", TCIMValue::TCIMType::eUint32));
    EXPECT_EQ(StatusOf([&] { invalid->Commit(TContext()); }), eVSKNotSupported);
    EXPECT_FALSE(class_->GetMethodDecl("Reset", TContext()));
}

TEST_F(MethodDeclTest, WithAnInvalidNameIsRefused) {
    EXPECT_EQ(StatusOf([&] { MakeMethod("Re set")->Commit(TContext()); }), eVSKInvalidName);
    const std::vector<RecordingLogger::Line> expected{{0, "CimHTTP: CIM name 'Re set' is invalid"}};
    EXPECT_EQ(log_.Lines(), expected);
}

TEST_F(MethodDeclTest, DoesNotKeepItsClassAlive) {
    class_.reset();
    EXPECT_FALSE(method_->GetClass(TContext()));
    ExpectMissingPointer(log_, "TCimHTTPMethodDecl::Commit", [&] { method_->Commit(TContext()); });
}

TEST_F(MethodDeclTest, KeepsItsTypeAndParametersWhenAssignedTo) {
    AddParameter("Mode");
    const boost::shared_ptr<TCimHTTPMethodDecl> source(
        new TCimHTTPMethodDecl(class_, "Other", TCIMValue::TCIMType::eString));
    *method_ = *source;
    EXPECT_EQ(method_->GetType(TContext()), TCIMValue::TCIMType::eUint32);
    EXPECT_EQ(ParameterNames(), Names{"Mode"});
}

}  // namespace
}  // namespace NQELVSK20
