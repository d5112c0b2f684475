#include "model/TCimHTTPPropertyDecl.h"

#include "tests/model/ElementTest.h"

namespace NQELVSK20 {
namespace {

class PropertyDeclTest : public ElementTest {};

TEST_F(PropertyDeclTest, BelongsToItsClass) {
    EXPECT_EQ(MakeProperty("Speed")->GetClass(TContext()), class_);
}

TEST_F(PropertyDeclTest, HasTheTypeOfItsDefaultValue) {
    const auto property = MakeProperty("Speed", TCIMValue(5u));
    EXPECT_EQ(property->GetType(TContext()), TCIMValue::TCIMType::eUint32);
    EXPECT_FALSE(property->IsArray(TContext()));
    EXPECT_TRUE(Same(property->GetValue(TContext()), TCIMValue(5u)));
}

TEST_F(PropertyDeclTest, IsAnArrayWhenItsDefaultValueIsOne) {
    const auto property = MakeProperty("Names", TCIMValue(TCIMValue::TCIMType::eStringArray, 0));
    EXPECT_TRUE(property->IsArray(TContext()));
    EXPECT_TRUE(property->GetValue(TContext()).IsNull());
}

TEST_F(PropertyDeclTest, TakesANewDefaultValueAndWithItANewType) {
    const auto property = MakeProperty("Speed", TCIMValue());
    const TCIMValue& live = property->GetValue(TContext());
    property->SetValue(TCIMValue(true), TContext());
    EXPECT_TRUE(Same(live, TCIMValue(true)));
    EXPECT_EQ(property->GetType(TContext()), TCIMValue::TCIMType::eBoolean);
}

TEST_F(PropertyDeclTest, EntersItsClassWithCommit) {
    const auto property = MakeProperty("Speed", TCIMValue(5u));
    EXPECT_EQ(StatusOf([&] { class_->GetPropertyDecl("Speed", TContext()); }), eVSKNotFound);
    property->Commit(TContext());
    EXPECT_EQ(class_->GetPropertyDecl("SPEED", TContext()), property);
}

TEST_F(PropertyDeclTest, IsSubjectToTheRulesOfItsClassWhenCommitted) {
    const auto first = MakeProperty("Speed");
    first->Commit(TContext());
    log_.Clear();
    EXPECT_EQ(StatusOf([&] { MakeProperty("SPEED")->Commit(TContext()); }), eVSKAlreadyExists);
    const std::vector<RecordingLogger::Line> expected{
        {0, "TCimHTTP: Attempt to add property SPEED to class CIM_Fan: already exists"}};
    EXPECT_EQ(log_.Lines(), expected);
    EXPECT_EQ(class_->GetPropertyDecl("Speed", TContext()), first);
}

TEST_F(PropertyDeclTest, DoesNotKeepItsClassAlive) {
    const auto property = MakeProperty("Speed");
    class_.reset();
    EXPECT_FALSE(property->GetClass(TContext()));
    ExpectMissingPointer(log_, "TCimHTTPPropertyDecl::Commit", [&] { property->Commit(TContext()); });
}

TEST_F(PropertyDeclTest, KeepsItsValueAndClassWhenAssignedTo) {
    const auto target = MakeProperty("Speed", TCIMValue(5u));
    *target = *MakeProperty("Name", TCIMValue("text"));
    EXPECT_TRUE(Same(target->GetValue(TContext()), TCIMValue(5u)));
    EXPECT_EQ(target->GetClass(TContext()), class_);
}

TEST_F(PropertyDeclTest, IsNotChangedByTheReservedOperation) {
    const auto property = MakeProperty("Speed", TCIMValue(5u));
    property->Reserved10(TContext());
    EXPECT_TRUE(Same(property->GetValue(TContext()), TCIMValue(5u)));
    EXPECT_EQ(StatusOf([&] { class_->GetPropertyDecl("Speed", TContext()); }), eVSKNotFound);
}

}  // namespace
}  // namespace NQELVSK20
