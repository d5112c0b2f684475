// The host calls a class's operations by their slot, those of its first base and those of its second.

#include <gtest/gtest.h>

#include "model/TCimHTTPClass.h"
#include "tests/model/ModelTest.h"
#include "tests/support/VtableSlot.h"

namespace NQELVSK20 {
namespace {

TEST(TCimHTTPClassSlots, OfTheClassInterfaceAreTheContracts) {
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Validate), 2U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Commit), 3U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved4), 4U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved5), 5U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::GetName), 6U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::GetNamespace), 7U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::IsAssociation), 8U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::IsAbstract), 9U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::IsTopLevel), 10U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::GetSuperClass), 11U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumerateSubclasses), 12U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::IsSubclassOf), 13U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumerateReferencedClasses), 14U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumerateReferencedClassesByName), 15U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumerateKeyPropertyNames), 16U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::AllocatePropertyDecl), 17U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::GetPropertyDecl), 18U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumeratePropertyDecls), 19U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::GetMemberEntry), 20U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved21), 21U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumerateMemberEntries), 22U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::CreateInstance), 23U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumerateInstances), 24U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::AllocateMethodDecl), 25U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::GetMethodDecl), 26U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::EnumerateMethodDecls), 27U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved28), 28U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::operator==), 29U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::operator<), 30U);
    // The override returns a narrower type but keeps the slot.
    EXPECT_EQ(
        SlotOf(static_cast<TCimHTTPClass& (TCimHTTPClass::*)(const ICIMClass&)>(&TCimHTTPClass::operator=)),
        31U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved32), 32U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved33), 33U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::AddSubclass), 34U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved35), 35U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::AddInstance), 36U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::RemoveInstance), 37U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved38), 38U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved39), 39U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::AddPropertyDecl), 40U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved41), 41U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved42), 42U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::Reserved43), 43U);
    EXPECT_EQ(SlotOf(&TCimHTTPClass::InvokeMethod), 44U);
}

TEST(TCimHTTPClassSlots, OfANamedElementAreTheContracts) {
    using Element = ICIMNamedElement;
    using Qualifier = boost::shared_ptr<ICIMQualifier>;
    using ByName = Qualifier (Element::*)(const std::string&, const TCIMValue&, TContext);
    using ByDeclaration =
        Qualifier (Element::*)(boost::shared_ptr<ICIMQualifierDecl>, const TCIMValue&, TContext);
    EXPECT_EQ(SlotOf(&Element::AddQualifier), 2U);
    EXPECT_EQ(SlotOf(static_cast<ByName>(&Element::AllocateQualifier)), 3U);
    EXPECT_EQ(SlotOf(static_cast<ByDeclaration>(&Element::AllocateQualifier)), 4U);
    EXPECT_EQ(SlotOf(&Element::FindQualifier), 5U);
    EXPECT_EQ(SlotOf(&Element::GetQualifier), 6U);
    EXPECT_EQ(SlotOf(&Element::EnumerateQualifiers), 7U);
}

class TCimHTTPClassBases : public ModelTest {};

TEST_F(TCimHTTPClassBases, StandInTheOrderOfTheContract) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    const auto offset = [&](const void* base) {
        return static_cast<const char*>(base) - reinterpret_cast<const char*>(fan.get());
    };
    EXPECT_EQ(offset(static_cast<const ICIMElement*>(fan.get())), 0);
    EXPECT_EQ(offset(static_cast<const ICIMClass*>(fan.get())), 0);
    EXPECT_EQ(offset(static_cast<const ICIMNamedElement*>(fan.get())), std::ptrdiff_t{sizeof(void*)});
}

TEST_F(TCimHTTPClassBases, ReachTheClassThroughItsSecondBase) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    ICIMNamedElement& element = *fan;
    const auto declaration = nameSpace->GetQualifierDecl("PLUGINNAME", TContext());
    element.AddQualifier(element.AllocateQualifier(declaration, TCIMValue("a"), TContext()), TContext());
    element.AddQualifier(element.AllocateQualifier("PLUGINVERSION", TCIMValue("b"), TContext()), TContext());
    bool found = false;
    EXPECT_EQ(StatusOf([&] { element.FindQualifier("PLUGINNAME", found, TContext()); }), eVSKNotOffered);
    EXPECT_EQ(element.GetQualifier("pluginname", TContext())->GetValue(TContext()).ToString(10), "a");
    EXPECT_EQ(QualifiersOf(element), (Names{"PLUGINNAME", "PLUGINVERSION"}));
    EXPECT_EQ(QualifiersOf(*fan), (Names{"PLUGINNAME", "PLUGINVERSION"}));
}

}  // namespace
}  // namespace NQELVSK20
