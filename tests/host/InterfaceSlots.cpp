// The host calls operations by their slot, so every operation of every interface must keep its place.

#include <gtest/gtest.h>

#include "tests/support/VtableSlot.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMMethodDecl.h"
#include "vskcore/ICIMNamespace.h"
#include "vskcore/ICIMParameterDecl.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/ICIMPropertyDecl.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/ICIMQualifierDecl.h"
#include "vskcore/ILogger.h"
#include "vskcore/INamespaceProvider.h"
#include "vskcore/INamespaceProviderManager.h"

namespace NQELVSK20 {
namespace {

TEST(InterfaceSlots, OfANamespace) {
    EXPECT_EQ(SlotOf(&ICIMNamespace::GetNamespaceProvider), 2U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::SetUpcallNamespace), 3U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::AddUnderlyingNamespace), 4U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::AllocateClass), 5U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::GetClass), 6U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::EnumerateRootClasses), 7U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::EnumerateProviders), 8U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::AllocateQualifierDecl), 9U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::GetQualifierDecl), 10U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::EnumerateQualifierDecls), 11U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::Subscribe), 12U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::GetInstance), 13U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::DeleteInstance), 14U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::ModifyInstance), 15U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::ExecuteQuery), 16U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::ClearInstances), 17U);
    EXPECT_EQ(SlotOf(&ICIMNamespace::operator=), 18U);
}

TEST(InterfaceSlots, OfANamespaceProvider) {
    EXPECT_EQ(SlotOf(&INamespaceProvider::GetName), 2U);
    EXPECT_EQ(SlotOf(&INamespaceProvider::AllocateNamespace), 3U);
    EXPECT_EQ(SlotOf(&INamespaceProvider::GetType), 4U);
    EXPECT_EQ(SlotOf(&INamespaceProvider::IsIndicationsSupported), 5U);
}

TEST(InterfaceSlots, OfTheProviderManagersRegistrationIsTheFirstAfterTheDestructor) {
    EXPECT_EQ(SlotOf(&INamespaceProviderManager::RegisterProvider), 2U);
    EXPECT_EQ(SlotOf(&INamespaceProviderManager::FindProvider), 3U);
}

TEST(InterfaceSlots, OfTheLoggersOperationIsTheFirstAfterTheDestructor) {
    EXPECT_EQ(SlotOf(&ILogger::Log), 2U);
}

TEST(InterfaceSlots, OfAClass) {
    EXPECT_EQ(SlotOf(&ICIMClass::Validate), 2U);
    EXPECT_EQ(SlotOf(&ICIMClass::Commit), 3U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved4), 4U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved5), 5U);
    EXPECT_EQ(SlotOf(&ICIMClass::GetName), 6U);
    EXPECT_EQ(SlotOf(&ICIMClass::GetNamespace), 7U);
    EXPECT_EQ(SlotOf(&ICIMClass::IsAssociation), 8U);
    EXPECT_EQ(SlotOf(&ICIMClass::IsAbstract), 9U);
    EXPECT_EQ(SlotOf(&ICIMClass::IsTopLevel), 10U);
    EXPECT_EQ(SlotOf(&ICIMClass::GetSuperClass), 11U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumerateSubclasses), 12U);
    EXPECT_EQ(SlotOf(&ICIMClass::IsSubclassOf), 13U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumerateReferencedClasses), 14U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumerateReferencedClassesByName), 15U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumerateKeyPropertyNames), 16U);
    EXPECT_EQ(SlotOf(&ICIMClass::AllocatePropertyDecl), 17U);
    EXPECT_EQ(SlotOf(&ICIMClass::GetPropertyDecl), 18U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumeratePropertyDecls), 19U);
    EXPECT_EQ(SlotOf(&ICIMClass::GetMemberEntry), 20U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved21), 21U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumerateMemberEntries), 22U);
    EXPECT_EQ(SlotOf(&ICIMClass::CreateInstance), 23U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumerateInstances), 24U);
    EXPECT_EQ(SlotOf(&ICIMClass::AllocateMethodDecl), 25U);
    EXPECT_EQ(SlotOf(&ICIMClass::GetMethodDecl), 26U);
    EXPECT_EQ(SlotOf(&ICIMClass::EnumerateMethodDecls), 27U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved28), 28U);
    EXPECT_EQ(SlotOf(&ICIMClass::operator==), 29U);
    EXPECT_EQ(SlotOf(&ICIMClass::operator<), 30U);
    EXPECT_EQ(SlotOf(&ICIMClass::operator=), 31U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved32), 32U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved33), 33U);
    EXPECT_EQ(SlotOf(&ICIMClass::AddSubclass), 34U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved35), 35U);
    EXPECT_EQ(SlotOf(&ICIMClass::AddInstance), 36U);
    EXPECT_EQ(SlotOf(&ICIMClass::RemoveInstance), 37U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved38), 38U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved39), 39U);
    EXPECT_EQ(SlotOf(&ICIMClass::AddPropertyDecl), 40U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved41), 41U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved42), 42U);
    EXPECT_EQ(SlotOf(&ICIMClass::Reserved43), 43U);
    EXPECT_EQ(SlotOf(&ICIMClass::InvokeMethod), 44U);
}

using TAllocateByName = boost::shared_ptr<ICIMQualifier> (ICIMNamedElement::*)(const std::string&,
                                                                               const TCIMValue&, TContext);
using TAllocateByDeclaration = boost::shared_ptr<ICIMQualifier> (ICIMNamedElement::*)(
    boost::shared_ptr<ICIMQualifierDecl>, const TCIMValue&, TContext);

TEST(InterfaceSlots, OfANamedElement) {
    EXPECT_EQ(SlotOf(&ICIMNamedElement::AddQualifier), 2U);
    EXPECT_EQ(SlotOf(static_cast<TAllocateByName>(&ICIMNamedElement::AllocateQualifier)), 3U);
    EXPECT_EQ(SlotOf(static_cast<TAllocateByDeclaration>(&ICIMNamedElement::AllocateQualifier)), 4U);
    EXPECT_EQ(SlotOf(&ICIMNamedElement::FindQualifier), 5U);
    EXPECT_EQ(SlotOf(&ICIMNamedElement::GetQualifier), 6U);
    EXPECT_EQ(SlotOf(&ICIMNamedElement::EnumerateQualifiers), 7U);
}

TEST(InterfaceSlots, OfAPropertyDeclarationFollowTheNamedElements) {
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::EnumerateQualifiers), 7U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::Validate), 8U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::Commit), 9U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::Reserved10), 10U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::GetName), 11U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::GetClass), 12U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::GetType), 13U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::IsArray), 14U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::GetValue), 15U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::SetValue), 16U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::operator==), 17U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::operator<), 18U);
    EXPECT_EQ(SlotOf(&ICIMPropertyDecl::operator=), 19U);
}

TEST(InterfaceSlots, OfAMethodDeclarationFollowTheNamedElements) {
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::EnumerateQualifiers), 7U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::Validate), 8U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::Commit), 9U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::GetName), 10U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::GetClass), 11U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::GetType), 12U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::AllocateParameterDecl), 13U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::GetParameterDecl), 14U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::EnumerateParameterDecls), 15U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::operator==), 16U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::operator<), 17U);
    EXPECT_EQ(SlotOf(&ICIMMethodDecl::operator=), 18U);
}

TEST(InterfaceSlots, OfAParameterDeclarationFollowTheNamedElements) {
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::EnumerateQualifiers), 7U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::Validate), 8U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::Commit), 9U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::GetName), 10U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::GetMethod), 11U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::GetType), 12U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::IsArray), 13U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::operator==), 14U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::operator<), 15U);
    EXPECT_EQ(SlotOf(&ICIMParameterDecl::operator=), 16U);
}

TEST(InterfaceSlots, OfAQualifierDeclaration) {
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::Validate), 2U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::Commit), 3U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::Reserved4), 4U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::GetName), 5U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::GetNamespace), 6U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::GetType), 7U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::IsArray), 8U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::GetValue), 9U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::SetValue), 10U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::GetScope), 11U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::AddFlavor), 12U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::RemoveFlavor), 13U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::GetFlavor), 14U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::operator==), 15U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::operator<), 16U);
    EXPECT_EQ(SlotOf(&ICIMQualifierDecl::operator=), 17U);
}

TEST(InterfaceSlots, OfAQualifier) {
    EXPECT_EQ(SlotOf(&ICIMQualifier::Validate), 2U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::Commit), 3U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::Reserved4), 4U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::GetName), 5U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::GetNamespace), 6U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::GetType), 7U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::IsArray), 8U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::GetQualifierDecl), 9U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::GetValue), 10U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::SetValue), 11U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::AddFlavor), 12U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::RemoveFlavor), 13U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::GetFlavor), 14U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::operator==), 15U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::operator<), 16U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::IsPropagated), 17U);
    EXPECT_EQ(SlotOf(&ICIMQualifier::operator=), 18U);
}

TEST(InterfaceSlots, OfAnInstance) {
    EXPECT_EQ(SlotOf(&ICIMInstance::Validate), 2U);
    EXPECT_EQ(SlotOf(&ICIMInstance::Commit), 3U);
    EXPECT_EQ(SlotOf(&ICIMInstance::ModifyInstance), 4U);
    EXPECT_EQ(SlotOf(&ICIMInstance::Delete), 5U);
    EXPECT_EQ(SlotOf(&ICIMInstance::GetReference), 6U);
    EXPECT_EQ(SlotOf(&ICIMInstance::GetInstanceReference), 7U);
    EXPECT_EQ(SlotOf(&ICIMInstance::GetClass), 8U);
    EXPECT_EQ(SlotOf(&ICIMInstance::GetPegasusNSPStr), 9U);
    EXPECT_EQ(SlotOf(&ICIMInstance::EnumerateAssociatedInstances), 10U);
    EXPECT_EQ(SlotOf(&ICIMInstance::EnumerateAssociationInstances), 11U);
    EXPECT_EQ(SlotOf(&ICIMInstance::GetProperty), 12U);
    EXPECT_EQ(SlotOf(&ICIMInstance::SetPropertyValue), 13U);
    EXPECT_EQ(SlotOf(&ICIMInstance::EnumerateProperties), 14U);
    EXPECT_EQ(SlotOf(&ICIMInstance::InvokeMethod), 15U);
    EXPECT_EQ(SlotOf(&ICIMInstance::operator==), 16U);
    EXPECT_EQ(SlotOf(&ICIMInstance::operator<), 17U);
    EXPECT_EQ(SlotOf(&ICIMInstance::operator=), 18U);
}

TEST(InterfaceSlots, OfAProperty) {
    EXPECT_EQ(SlotOf(&ICIMProperty::GetName), 2U);
    EXPECT_EQ(SlotOf(&ICIMProperty::GetValue), 3U);
}

// The measure itself: an operation that is not virtual has no slot.
TEST(InterfaceSlots, AreZeroForAnOperationThatIsNotVirtual) {
    EXPECT_EQ(SlotOf(&TCIMReference::SetPath), 0U);
}

}  // namespace
}  // namespace NQELVSK20
