// Associations that come from the host's union namespace.

#include <gtest/gtest.h>

#include <string>

#include "tests/model/ModelTest.h"
#include "tests/support/schema/TInmemUnion.h"

namespace NQELVSK20 {
namespace {

class UnionAssociations : public ModelTest {
protected:
    UnionAssociations() {
        union_
            ->AllocateQualifierDecl("ASSOCIATION", TCIMValue(false), ICIMQualifierDecl::eScopeAssociation,
                                    ICIMQualifierDecl::eFlavorToSubclass, TContext())
            ->Commit(TContext());
    }

    boost::shared_ptr<ICIMClass> DeclareInUnion(const std::string& name,
                                                const boost::shared_ptr<ICIMClass>& superclass = nullptr) {
        const auto cimClass = union_->AllocateClass(name, superclass, TContext());
        cimClass->Commit(TContext());
        return cimClass;
    }

    static void Qualify(const boost::shared_ptr<ICIMClass>& cimClass, bool isAssociation) {
        const auto element = boost::dynamic_pointer_cast<ICIMNamedElement>(cimClass);
        element->AllocateQualifier("ASSOCIATION", TCIMValue(isAssociation), TContext())->Commit(TContext());
    }

    /// A property "Active" and, later in the order of names, a reference "Dependent".
    static void AddMembers(const boost::shared_ptr<ICIMClass>& cimClass) {
        cimClass->AllocatePropertyDecl("Active", TCIMValue(true), TContext())->Commit(TContext());
        cimClass->AllocatePropertyDecl("Dependent", TCIMValue(TCIMValue::TCIMType::eReference, 0), TContext())
            ->Commit(TContext());
    }
};

TEST_F(UnionAssociations, AreCopiedWithTheirReferencesWhenTheyOnlyInheritThatTheyAreOne) {
    const auto base = DeclareInUnion("U_Link");
    Qualify(base, true);
    AddMembers(DeclareInUnion("U_FanLink", DeclareInUnion("U_DeviceLink", base)));
    TestMachine machine(Nodes(1));
    const Class copied = GetClass(Connected(machine), "U_FanLink");
    ASSERT_TRUE(copied);
    EXPECT_TRUE(copied->IsAssociation(TContext()));
    EXPECT_EQ(PropertiesOf(copied), (Names{"Active", "Dependent", "NodeID"}));
    EXPECT_TRUE(copied->GetPropertyDecl("Dependent", TContext())->GetValue(TContext()).IsReference());
}

}  // namespace
}  // namespace NQELVSK20
