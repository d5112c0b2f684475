#include <gtest/gtest.h>

#include "tests/host/Schema.h"
#include "tests/support/StatusOf.h"
#include "tests/support/schema/TInmemMethodDecl.h"
#include "tests/support/schema/TInmemParameterDecl.h"
#include "tests/support/schema/TInmemPropertyDecl.h"
#include "tests/support/schema/TInmemQualifier.h"
#include "tests/support/schema/TInmemQualifierDecl.h"

namespace NQELVSK20 {
namespace {

using TType = TCIMValue::TCIMType;

class TInmemDeclarations : public ::testing::Test {
protected:
    boost::shared_ptr<TInmemUnion> union_ = MakeUnion();
    boost::shared_ptr<ICIMClass> class_ = MakeClass(*union_, "CIM_Fan");
};

class TInmemPropertyDeclTest : public TInmemDeclarations {};
class TInmemMethodDeclTest : public TInmemDeclarations {};
class TInmemParameterDeclTest : public TInmemDeclarations {};
class TInmemQualifierTest : public TInmemDeclarations {};
class TInmemQualifierDeclTest : public TInmemDeclarations {};

TEST_F(TInmemPropertyDeclTest, HasTheTypeOfItsDefaultValue) {
    const auto property = class_->AllocatePropertyDecl("Speed", TCIMValue(TType::eUint16Array, 0), {});
    EXPECT_EQ(property->GetType({}), TType::eUint16Array);
    EXPECT_TRUE(property->IsArray({}));
    property->SetValue(TCIMValue(5U), {});
    EXPECT_EQ(property->GetType({}), TType::eUint32);
    EXPECT_FALSE(property->IsArray({}));
    EXPECT_EQ(property->GetValue({}).ToString(10), "5");
    EXPECT_NO_THROW(property->Reserved10({}));
}

TEST_F(TInmemPropertyDeclTest, ComparesByNameAndIsNotCopiedByAssignment) {
    const auto speed = class_->AllocatePropertyDecl("Speed", TCIMValue(1), {});
    const auto same = class_->AllocatePropertyDecl("SPEED", TCIMValue(2), {});
    const auto state = class_->AllocatePropertyDecl("state", TCIMValue(3), {});
    EXPECT_TRUE(*speed == *same);
    EXPECT_FALSE(*speed == *state);
    EXPECT_TRUE(*speed < *state);
    EXPECT_FALSE(*same < *speed);
    *speed = *state;
    EXPECT_EQ(speed->GetName({}), "Speed");
    EXPECT_EQ(speed->GetValue({}).ToString(10), "1");
}

TEST_F(TInmemMethodDeclTest, HoldsItsParametersByName) {
    const auto method = class_->AllocateMethodDecl("SetSpeed", TType::eUint32, {});
    EXPECT_EQ(method->GetType({}), TType::eUint32);
    method->AllocateParameterDecl("b", TType::eUint64, {})->Commit({});
    method->AllocateParameterDecl("A", TType::eStringArray, {})->Commit({});
    EXPECT_EQ(NamesFrom<ICIMParameterDecl>(
                  [&method](const auto& add) { method->EnumerateParameterDecls(add, {}); }),
              (std::vector<std::string>{"A", "b"}));
    EXPECT_EQ(method->GetParameterDecl("a", {})->GetType({}), TType::eStringArray);
    EXPECT_FALSE(method->GetParameterDecl("c", {}));
    EXPECT_EQ(StatusOf([&] { method->AllocateParameterDecl("B", TType::eUint8, {})->Commit({}); }),
              eVSKAlreadyExists);
    EXPECT_EQ(method->GetParameterDecl("b", {})->GetType({}), TType::eUint64);
}

TEST_F(TInmemMethodDeclTest, ComparesByNameAndIsNotCopiedByAssignment) {
    const auto reset = class_->AllocateMethodDecl("Reset", TType::eUint32, {});
    const auto same = class_->AllocateMethodDecl("RESET", TType::eUint32, {});
    const auto stop = class_->AllocateMethodDecl("stop", TType::eUint32, {});
    EXPECT_TRUE(*reset == *same);
    EXPECT_FALSE(*reset == *stop);
    EXPECT_TRUE(*reset < *stop);
    *reset = *stop;
    EXPECT_EQ(reset->GetName({}), "Reset");
}

TEST_F(TInmemParameterDeclTest, KnowsItsMethodAndWhetherItIsAnArray) {
    const auto method = class_->AllocateMethodDecl("SetSpeed", TType::eUint32, {});
    const auto scalar = method->AllocateParameterDecl("Speed", TType::eUint64, {});
    const auto array = method->AllocateParameterDecl("State", TType::eUint64Array, {});
    EXPECT_EQ(scalar->GetMethod({}), method);
    EXPECT_FALSE(scalar->IsArray({}));
    EXPECT_TRUE(array->IsArray({}));
    EXPECT_TRUE(*scalar < *array);
    EXPECT_FALSE(*scalar == *array);
    *scalar = *array;
    EXPECT_EQ(scalar->GetName({}), "Speed");
}

TEST_F(TInmemParameterDeclTest, TakesQualifiersOfItsNamespace) {
    const auto method = class_->AllocateMethodDecl("SetSpeed", TType::eUint32, {});
    const auto parameter = method->AllocateParameterDecl("Speed", TType::eUint64, {});
    for (const boost::shared_ptr<ICIMNamedElement>& element :
         {boost::shared_ptr<ICIMNamedElement>(method), boost::shared_ptr<ICIMNamedElement>(parameter)}) {
        Qualify(element, "DESCRIPTION", TCIMValue("text"));
        EXPECT_EQ(element->GetQualifier("description", {})->GetNamespace({}), union_);
    }
}

TEST_F(TInmemQualifierDeclTest, HoldsWhatItWasDeclaredWith) {
    const auto declaration = union_->AllocateQualifierDecl("ValueMap", TCIMValue(TType::eStringArray, 0),
                                                           ICIMQualifierDecl::eScopeProperty,
                                                           ICIMQualifierDecl::eFlavorDefaults, {});
    EXPECT_EQ(declaration->GetName({}), "ValueMap");
    EXPECT_EQ(declaration->GetNamespace({}), union_);
    EXPECT_EQ(declaration->GetType({}), TType::eStringArray);
    EXPECT_TRUE(declaration->IsArray({}));
    EXPECT_EQ(declaration->GetScope({}), 8U);
    EXPECT_EQ(declaration->GetFlavor({}), 3U);
    declaration->AddFlavor(4, {});
    declaration->RemoveFlavor(1, {});
    EXPECT_EQ(declaration->GetFlavor({}), 6U);
    declaration->SetValue(TCIMValue("x"), {});
    EXPECT_EQ(declaration->GetValue({}).ToString(10), "x");
    EXPECT_NO_THROW(declaration->Reserved4({}));
}

TEST_F(TInmemQualifierDeclTest, ComparesByNameAndIsNotCopiedByAssignment) {
    const auto key = union_->GetQualifierDecl("KEY", {});
    const auto abstract = union_->GetQualifierDecl("ABSTRACT", {});
    EXPECT_FALSE(*key == *abstract);
    EXPECT_TRUE(*abstract < *key);
    *key = *abstract;
    EXPECT_EQ(key->GetName({}), "KEY");
}

TEST_F(TInmemQualifierTest, BeginsWithItsDeclarationsFlavorAndItsOwnValue) {
    const auto property = AddProperty(class_, "Speed");
    const auto qualifier = property->AllocateQualifier("KEY", TCIMValue(true), {});
    EXPECT_EQ(qualifier->GetFlavor({}), 2U);
    EXPECT_EQ(qualifier->GetType({}), TType::eBoolean);
    EXPECT_FALSE(qualifier->IsArray({}));
    EXPECT_FALSE(qualifier->IsPropagated({}));
    qualifier->AddFlavor(5, {});
    qualifier->RemoveFlavor(2, {});
    EXPECT_EQ(qualifier->GetFlavor({}), 5U);
    EXPECT_EQ(union_->GetQualifierDecl("KEY", {})->GetFlavor({}), 2U);
    qualifier->SetValue(TCIMValue(false), {});
    EXPECT_FALSE(static_cast<bool>(qualifier->GetValue({})));
    EXPECT_NO_THROW(qualifier->Validate({}));
    EXPECT_NO_THROW(qualifier->Reserved4({}));
}

TEST_F(TInmemQualifierTest, ComparesByNameAndIsNotCopiedByAssignment) {
    const auto property = AddProperty(class_, "Speed");
    const auto key = property->AllocateQualifier("KEY", TCIMValue(true), {});
    const auto same = property->AllocateQualifier("key", TCIMValue(false), {});
    const auto abstract = property->AllocateQualifier("ABSTRACT", TCIMValue(false), {});
    EXPECT_TRUE(*key == *same);
    EXPECT_FALSE(*key == *abstract);
    EXPECT_TRUE(*abstract < *key);
    *key = *abstract;
    EXPECT_EQ(key->GetName({}), "KEY");
    EXPECT_TRUE(static_cast<bool>(key->GetValue({})));
}

}  // namespace
}  // namespace NQELVSK20
