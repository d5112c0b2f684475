// The objects that this plug-in hands out keep the slots of the host's interfaces, and stand where their
// interface stands, so that the host may call them by slot.

#include "model/TCimHTTPQualifier.h"
#include "model/TCimHTTPQualifierDecl.h"
#include "tests/model/ElementTest.h"
#include "tests/support/VtableSlot.h"

namespace NQELVSK20 {
namespace {

class ElementSlotsTest : public ElementTest {
protected:
    template <class TInterface, class TObject>
    static void ExpectInterfaceFirst(TObject& object) {
        EXPECT_EQ(static_cast<void*>(static_cast<TInterface*>(&object)), static_cast<void*>(&object));
    }
};

TEST_F(ElementSlotsTest, StartWithTheirInterface) {
    TCimHTTPQualifierDecl declaration(nameSpace_, "Key", TCIMValue(true), ICIMQualifierDecl::eScopeAny,
                                      ICIMQualifierDecl::eFlavorNone);
    TCimHTTPQualifier qualifier(nameSpace_, LooseDeclaration("Key"), TCIMValue(true), method_);
    ExpectInterfaceFirst<ICIMQualifierDecl>(declaration);
    ExpectInterfaceFirst<ICIMQualifier>(qualifier);
    ExpectInterfaceFirst<ICIMPropertyDecl>(*MakeProperty("Speed"));
    ExpectInterfaceFirst<ICIMMethodDecl>(*method_);
    ExpectInterfaceFirst<ICIMParameterDecl>(*MakeParameter("Mode"));
}

TEST_F(ElementSlotsTest, OfAQualifierDeclaration) {
    using T = TCimHTTPQualifierDecl;
    EXPECT_EQ(SlotOf(&T::Validate), 2u);
    EXPECT_EQ(SlotOf(&T::Commit), 3u);
    EXPECT_EQ(SlotOf(&T::Reserved4), 4u);
    EXPECT_EQ(SlotOf(&T::GetName), 5u);
    EXPECT_EQ(SlotOf(&T::GetNamespace), 6u);
    EXPECT_EQ(SlotOf(&T::GetType), 7u);
    EXPECT_EQ(SlotOf(&T::IsArray), 8u);
    EXPECT_EQ(SlotOf(&T::GetValue), 9u);
    EXPECT_EQ(SlotOf(&T::SetValue), 10u);
    EXPECT_EQ(SlotOf(&T::GetScope), 11u);
    EXPECT_EQ(SlotOf(&T::AddFlavor), 12u);
    EXPECT_EQ(SlotOf(&T::RemoveFlavor), 13u);
    EXPECT_EQ(SlotOf(&T::GetFlavor), 14u);
    EXPECT_EQ(SlotOf(&T::operator==), 15u);
    EXPECT_EQ(SlotOf(&T::operator<), 16u);
    EXPECT_EQ(SlotOf<T& (T::*)(const ICIMQualifierDecl&)>(&T::operator=), 17u);
}

TEST_F(ElementSlotsTest, OfAQualifier) {
    using T = TCimHTTPQualifier;
    EXPECT_EQ(SlotOf(&T::Validate), 2u);
    EXPECT_EQ(SlotOf(&T::Commit), 3u);
    EXPECT_EQ(SlotOf(&T::Reserved4), 4u);
    EXPECT_EQ(SlotOf(&T::GetName), 5u);
    EXPECT_EQ(SlotOf(&T::GetNamespace), 6u);
    EXPECT_EQ(SlotOf(&T::GetType), 7u);
    EXPECT_EQ(SlotOf(&T::IsArray), 8u);
    EXPECT_EQ(SlotOf(&T::GetQualifierDecl), 9u);
    EXPECT_EQ(SlotOf(&T::GetValue), 10u);
    EXPECT_EQ(SlotOf(&T::SetValue), 11u);
    EXPECT_EQ(SlotOf(&T::AddFlavor), 12u);
    EXPECT_EQ(SlotOf(&T::RemoveFlavor), 13u);
    EXPECT_EQ(SlotOf(&T::GetFlavor), 14u);
    EXPECT_EQ(SlotOf(&T::operator==), 15u);
    EXPECT_EQ(SlotOf(&T::operator<), 16u);
    EXPECT_EQ(SlotOf(&T::IsPropagated), 17u);
    EXPECT_EQ(SlotOf<T& (T::*)(const ICIMQualifier&)>(&T::operator=), 18u);
}

template <class TInterface>
void ExpectSlotsOfNamedElement() {
    using T = TNamedElement<TInterface>;
    using Pointer = boost::shared_ptr<ICIMQualifier>;
    using ByName = Pointer (T::*)(const std::string&, const TCIMValue&, TContext);
    using ByDeclaration = Pointer (T::*)(boost::shared_ptr<ICIMQualifierDecl>, const TCIMValue&, TContext);
    EXPECT_EQ(SlotOf(&T::AddQualifier), 2u);
    EXPECT_EQ(SlotOf<ByName>(&T::AllocateQualifier), 3u);
    EXPECT_EQ(SlotOf<ByDeclaration>(&T::AllocateQualifier), 4u);
    EXPECT_EQ(SlotOf(&T::FindQualifier), 5u);
    EXPECT_EQ(SlotOf(&T::GetQualifier), 6u);
    EXPECT_EQ(SlotOf(&T::EnumerateQualifiers), 7u);
    EXPECT_EQ(SlotOf(&T::Validate), 8u);
}

template <class TInterface>
auto AssignmentOf() -> TNamedElement<TInterface>& (TNamedElement<TInterface>::*)(const TInterface&) {
    return &TNamedElement<TInterface>::operator=;
}

TEST_F(ElementSlotsTest, OfAPropertyDeclaration) {
    using T = TCimHTTPPropertyDecl;
    ExpectSlotsOfNamedElement<ICIMPropertyDecl>();
    EXPECT_EQ(SlotOf(&T::Commit), 9u);
    EXPECT_EQ(SlotOf(&T::Reserved10), 10u);
    EXPECT_EQ(SlotOf(&T::GetName), 11u);
    EXPECT_EQ(SlotOf(&T::GetClass), 12u);
    EXPECT_EQ(SlotOf(&T::GetType), 13u);
    EXPECT_EQ(SlotOf(&T::IsArray), 14u);
    EXPECT_EQ(SlotOf(&T::GetValue), 15u);
    EXPECT_EQ(SlotOf(&T::SetValue), 16u);
    EXPECT_EQ(SlotOf(&T::operator==), 17u);
    EXPECT_EQ(SlotOf(&T::operator<), 18u);
    EXPECT_EQ(SlotOf(AssignmentOf<ICIMPropertyDecl>()), 19u);
}

TEST_F(ElementSlotsTest, OfAMethodDeclaration) {
    using T = TCimHTTPMethodDecl;
    ExpectSlotsOfNamedElement<ICIMMethodDecl>();
    EXPECT_EQ(SlotOf(&T::Commit), 9u);
    EXPECT_EQ(SlotOf(&T::GetName), 10u);
    EXPECT_EQ(SlotOf(&T::GetClass), 11u);
    EXPECT_EQ(SlotOf(&T::GetType), 12u);
    EXPECT_EQ(SlotOf(&T::AllocateParameterDecl), 13u);
    EXPECT_EQ(SlotOf(&T::GetParameterDecl), 14u);
    EXPECT_EQ(SlotOf(&T::EnumerateParameterDecls), 15u);
    EXPECT_EQ(SlotOf(&T::operator==), 16u);
    EXPECT_EQ(SlotOf(&T::operator<), 17u);
    EXPECT_EQ(SlotOf(AssignmentOf<ICIMMethodDecl>()), 18u);
}

TEST_F(ElementSlotsTest, OfAParameterDeclaration) {
    using T = TCimHTTPParameterDecl;
    ExpectSlotsOfNamedElement<ICIMParameterDecl>();
    EXPECT_EQ(SlotOf(&T::Commit), 9u);
    EXPECT_EQ(SlotOf(&T::GetName), 10u);
    EXPECT_EQ(SlotOf(&T::GetMethod), 11u);
    EXPECT_EQ(SlotOf(&T::GetType), 12u);
    EXPECT_EQ(SlotOf(&T::IsArray), 13u);
    EXPECT_EQ(SlotOf(&T::operator==), 14u);
    EXPECT_EQ(SlotOf(&T::operator<), 15u);
    EXPECT_EQ(SlotOf(AssignmentOf<ICIMParameterDecl>()), 16u);
}

}  // namespace
}  // namespace NQELVSK20
