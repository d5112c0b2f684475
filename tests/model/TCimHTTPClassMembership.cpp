#include <gtest/gtest.h>

#include <string>

#include "model/ClassNamespace.h"
#include "model/TCimHTTPMethodDecl.h"
#include "model/TCimHTTPPropertyDecl.h"
#include "tests/model/ModelTest.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

// Classes that no server has anything to say about: their namespace is not connected.
class TCimHTTPClassMembership : public ModelTest {
protected:
    boost::shared_ptr<ICIMPropertyDecl> Property(const std::string& name, Type type) {
        return class_->AllocatePropertyDecl(name, TCIMValue(type, 0), TContext());
    }

    boost::shared_ptr<ICIMQualifierDecl> Declaration(
        const std::string& name, ICIMQualifierDecl::EFlavor flavor = ICIMQualifierDecl::eFlavorNone) {
        return namespace_->AllocateQualifierDecl(name, TCIMValue(Type(Type::eString), 0),
                                                 ICIMQualifierDecl::eScopeAny, flavor, TContext());
    }

    void AddClassQualifier(const std::string& name, const TCIMValue& value,
                           ICIMQualifierDecl::EFlavor flavor = ICIMQualifierDecl::eFlavorNone) {
        class_->AddQualifier(class_->AllocateQualifier(Declaration(name, flavor), value, TContext()),
                             TContext());
    }

    boost::shared_ptr<ICIMPropertyDecl> Override(const Class& owner, const std::string& name, Type type) {
        auto property = owner->AllocatePropertyDecl(name, TCIMValue(type, 0), TContext());
        property->AddQualifier(
            property->AllocateQualifier(Declaration("OVERRIDE"), TCIMValue(name), TContext()), TContext());
        return property;
    }

    EVSKStatusCode Add(const boost::shared_ptr<ICIMPropertyDecl>& property) {
        return StatusOf([&] { class_->AddPropertyDecl(property, TContext()); });
    }

    boost::shared_ptr<ICIMPropertyDecl> Stored(const std::string& name) {
        return class_->GetPropertyDecl(name, TContext());
    }

    static std::string Attempt(const std::string& what) { return "TCimHTTP: Attempt to " + what; }

    Namespace namespace_ = MakeUninitNamespace();
    Class class_ = Allocate(namespace_, "X_Fan");
    Class other_ = Allocate(namespace_, "X_Device");
};

TEST_F(TCimHTTPClassMembership, AReferenceNeedsAnAssociation) {
    log_.Clear();
    EXPECT_EQ(Add(Property("Owner", Type::eReference)), eVSKReferenceNotAllowed);
    EXPECT_EQ(log_.Lines(),
              (Lines{{0, Attempt("add reference property Owner to non-association class X_Fan")}}));
    EXPECT_EQ(PropertiesOf(class_), Names{"NodeID"});

    AddClassQualifier("Association", TCIMValue(true));
    log_.Clear();
    EXPECT_EQ(Add(Property("Owner", Type::eReference)), eVSKSuccess);
    EXPECT_EQ(log_.Lines(), Lines{});
    EXPECT_EQ(PropertiesOf(class_), (Names{"NodeID", "Owner"}));
}

TEST_F(TCimHTTPClassMembership, AFalseOrNullAssociationQualifierAdmitsNoReference) {
    AddClassQualifier("ASSOCIATION", TCIMValue(false));
    EXPECT_EQ(Add(Property("Owner", Type::eReference)), eVSKReferenceNotAllowed);
    other_->AddQualifier(other_->AllocateQualifier(Declaration("ASSOCIATION"), TCIMValue(), TContext()),
                         TContext());
    EXPECT_EQ(StatusOf([&] { other_->AddPropertyDecl(Property("Owner", Type::eReference), TContext()); }),
              eVSKReferenceNotAllowed);
}

TEST_F(TCimHTTPClassMembership, APropertyIsRefusedUnderAnySpellingOfOneThatIsThere) {
    const auto first = Property("Speed", Type::eUint16);
    EXPECT_EQ(Add(first), eVSKSuccess);
    log_.Clear();
    EXPECT_EQ(Add(Property("SPEED", Type::eUint32)), eVSKAlreadyExists);
    EXPECT_EQ(log_.Lines(), (Lines{{0, Attempt("add property SPEED to class X_Fan: already exists")}}));
    EXPECT_EQ(Stored("speed"), first);
    EXPECT_EQ(Add(Property("nodeid", Type::eString)), eVSKAlreadyExists);
}

TEST_F(TCimHTTPClassMembership, APortTypeReplacesTheOneThatIsThereInSilence) {
    EXPECT_EQ(Add(Property("OtherPortType", Type::eString)), eVSKSuccess);
    const auto second = Property("OtherPortType", Type::eUint16);
    log_.Clear();
    EXPECT_EQ(Add(second), eVSKSuccess);
    EXPECT_EQ(log_.Lines(), Lines{});
    EXPECT_EQ(Stored("OtherPortType"), second);
}

TEST_F(TCimHTTPClassMembership, PortTypeIsSoughtInTheNewNameWithItsLetterCase) {
    EXPECT_EQ(Add(Property("PortType", Type::eString)), eVSKSuccess);
    EXPECT_EQ(Add(Property("porttype", Type::eString)), eVSKAlreadyExists);
}

TEST_F(TCimHTTPClassMembership, AnOverrideOfNothingIsLoggedAndAdded) {
    const auto property = Override(class_, "Speed", Type::eUint16);
    log_.Clear();
    EXPECT_EQ(Add(property), eVSKSuccess);
    EXPECT_EQ(log_.Lines(), (Lines{{0, Attempt("override property Speed in class X_Fan: property doesn't "
                                               "exist in base class")}}));
    EXPECT_EQ(Stored("Speed"), property);
}

TEST_F(TCimHTTPClassMembership, AnOverrideMayNotChangeTheType) {
    const auto inherited =
        other_->AllocatePropertyDecl("Speed", TCIMValue(Type(Type::eUint16), 0), TContext());
    EXPECT_EQ(Add(inherited), eVSKSuccess);
    log_.Clear();
    EXPECT_EQ(Add(Override(class_, "Speed", Type::eUint32)), eVSKTypeMismatch);
    const std::string reason = TVSKException(eVSKTypeMismatch).what();
    EXPECT_EQ(
        log_.Lines(),
        (Lines{{0, Attempt("override property Speed in class X_Fan: different types")},
               {0, "TCimHTTP: Attempt define property Speed in class X_Fanfailed. Reason = " + reason}}));
    EXPECT_EQ(Stored("Speed"), inherited);
}

TEST_F(TCimHTTPClassMembership, AnOverrideMayNotChangeAScalarIntoAnArray) {
    EXPECT_EQ(Add(other_->AllocatePropertyDecl("Speed", TCIMValue(Type(Type::eUint16), 0), TContext())),
              eVSKSuccess);
    EXPECT_EQ(Add(Override(class_, "Speed", Type::eUint16Array)), eVSKTypeMismatch);
}

TEST_F(TCimHTTPClassMembership, AnOverrideOfTheClasssOwnPropertyIsRefused) {
    const auto own = Property("Speed", Type::eUint16);
    EXPECT_EQ(Add(own), eVSKSuccess);
    log_.Clear();
    EXPECT_EQ(Add(Override(class_, "SPEED", Type::eUint16)), eVSKAlreadyExists);
    const std::string reason = TVSKException(eVSKAlreadyExists).what();
    EXPECT_EQ(
        log_.Lines(),
        (Lines{{0, Attempt("override property SPEED in class X_Fan: original was defined in this class")},
               {0, "TCimHTTP: Attempt define property SPEED in class X_Fanfailed. Reason = " + reason}}));
    EXPECT_EQ(Stored("Speed"), own);
}

TEST_F(TCimHTTPClassMembership, AnOverrideOfAnInheritedPropertyTakesItsPlace) {
    EXPECT_EQ(Add(other_->AllocatePropertyDecl("Speed", TCIMValue(Type(Type::eUint16), 0), TContext())),
              eVSKSuccess);
    const auto overriding = Override(class_, "speed", Type::eUint16);
    log_.Clear();
    EXPECT_EQ(Add(overriding), eVSKSuccess);
    EXPECT_EQ(log_.Lines(), Lines{});
    EXPECT_EQ(Stored("Speed"), overriding);
}

// A declaration of another kind, which answers with an empty pointer where this plug-in's throw.
class PropertyWithoutQualifiers : public TCimHTTPPropertyDecl {
public:
    using TCimHTTPPropertyDecl::operator=;
    using TCimHTTPPropertyDecl::TCimHTTPPropertyDecl;

    boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string&, TContext) const override { return {}; }
};

TEST_F(TCimHTTPClassMembership, ADeclarationWhoseOverrideIsAnEmptyPointerIsNoOverride) {
    const auto make = [&](const char* name) {
        return boost::shared_ptr<ICIMPropertyDecl>(
            new PropertyWithoutQualifiers(class_, name, TCIMValue(Type(Type::eUint16), 0)));
    };
    log_.Clear();
    EXPECT_EQ(Add(make("Speed")), eVSKSuccess);
    EXPECT_EQ(log_.Lines(), Lines{});
    EXPECT_EQ(Add(make("SPEED")), eVSKAlreadyExists);
    EXPECT_EQ(log_.Lines(), (Lines{{0, Attempt("add property SPEED to class X_Fan: already exists")}}));
}

TEST_F(TCimHTTPClassMembership, APropertyWithAnInvalidNameIsRefused) {
    log_.Clear();
    EXPECT_EQ(Add(Property("two words", Type::eUint16)), eVSKInvalidName);
    EXPECT_EQ(log_.Lines(), (Lines{{0, "CimHTTP: CIM name 'two words' is invalid"}}));
}

TEST_F(TCimHTTPClassMembership, APropertysCommitAddsIt) {
    Property("Speed", Type::eUint16)->Commit(TContext());
    EXPECT_EQ(PropertiesOf(class_), (Names{"NodeID", "Speed"}));
}

TEST_F(TCimHTTPClassMembership, TheSameQualifierTwiceIsOne) {
    AddClassQualifier("Note", TCIMValue("a"));
    const auto first = class_->GetQualifier("Note", TContext());
    AddClassQualifier("NOTE", TCIMValue("a"));
    EXPECT_EQ(class_->GetQualifier("note", TContext()), first);
    EXPECT_EQ(QualifiersOf(*class_), Names{"Note"});
}

TEST_F(TCimHTTPClassMembership, AnotherValueOrFlavorOfAFixedQualifierIsRefusedWithoutALine) {
    AddClassQualifier("Note", TCIMValue("a"));
    log_.Clear();
    EXPECT_EQ(StatusOf([&] { AddClassQualifier("Note", TCIMValue("b")); }), eVSKQualifierConflict);
    EXPECT_EQ(
        StatusOf([&] { AddClassQualifier("Note", TCIMValue("a"), ICIMQualifierDecl::eFlavorToSubclass); }),
        eVSKQualifierConflict);
    EXPECT_EQ(log_.Lines(), Lines{});
    EXPECT_EQ(class_->GetQualifier("Note", TContext())->GetValue(TContext()).ToString(10), "a");
}

TEST_F(TCimHTTPClassMembership, AQualifierThatAllowsOverridingGivesWay) {
    AddClassQualifier("Note", TCIMValue("a"), ICIMQualifierDecl::eFlavorEnableOverride);
    AddClassQualifier("Note", TCIMValue("b"));
    EXPECT_EQ(class_->GetQualifier("Note", TContext())->GetValue(TContext()).ToString(10), "b");
    EXPECT_EQ(StatusOf([&] { AddClassQualifier("Note", TCIMValue("c")); }), eVSKQualifierConflict);
}

TEST_F(TCimHTTPClassMembership, AQualifiersCommitAddsIt) {
    class_->AllocateQualifier(Declaration("Note"), TCIMValue("a"), TContext())->Commit(TContext());
    EXPECT_EQ(QualifiersOf(*class_), Names{"Note"});
}

TEST_F(TCimHTTPClassMembership, AQualifierIsAllocatedByTheNameOfItsDeclaration) {
    const auto qualifier = class_->AllocateQualifier("pluginname", TCIMValue("x"), TContext());
    EXPECT_EQ(qualifier->GetName(TContext()), "PLUGINNAME");
    EXPECT_EQ(QualifiersOf(*class_), Names{});
    EXPECT_EQ(StatusOf([&] { class_->AllocateQualifier("Unknown", TCIMValue("x"), TContext()); }),
              eVSKNotFound);
}

TEST_F(TCimHTTPClassMembership, AMethodIsAddedByItsCommitAndOnlyOnce) {
    const auto first = class_->AllocateMethodDecl("Stop", Type::eUint32, TContext());
    EXPECT_EQ(MethodsOf(class_), Names{});
    first->Commit(TContext());
    EXPECT_EQ(class_->GetMethodDecl("STOP", TContext()), first);
    log_.Clear();
    EXPECT_EQ(
        StatusOf([&] { class_->AllocateMethodDecl("STOP", Type::eUint8, TContext())->Commit(TContext()); }),
        eVSKAlreadyExists);
    EXPECT_EQ(log_.Lines(), (Lines{{0, Attempt("add method STOP to class X_Fan: already exists")}}));
    EXPECT_EQ(class_->GetMethodDecl("Stop", TContext()), first);
}

TEST_F(TCimHTTPClassMembership, AllocatingAMemberDoesNotAddIt) {
    class_->AllocatePropertyDecl("Speed", TCIMValue(), TContext());
    class_->AllocateQualifier(Declaration("Note"), TCIMValue("a"), TContext());
    EXPECT_EQ(PropertiesOf(class_), Names{"NodeID"});
    EXPECT_EQ(QualifiersOf(*class_), Names{});
}

// A server's definition is taken as it is: a reference outside an association, which the rules refuse, too.
TEST_F(TCimHTTPClassMembership, AClassIsValidWhateverItsServerDefines) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Odd", "", ReferenceKeyXml("Owner", "X_Odd"))});
    const Namespace nameSpace = Connected(machine);
    const Class odd = Allocate(nameSpace, "X_Odd");
    ASSERT_EQ(PropertiesOf(odd), (Names{"NodeID", "Owner"}));
    ASSERT_FALSE(odd->IsAssociation(TContext()));
    machine.ClearRequests();
    log_.Clear();
    EXPECT_EQ(StatusOf([&] { odd->Validate(TContext()); }), eVSKSuccess);
    EXPECT_EQ(log_.Lines(), Lines{});
    EXPECT_EQ(machine.Requests(), Names{});
}

TEST_F(TCimHTTPClassMembership, AReferenceIsRefusedBeforeItsNameIsLookedAt) {
    log_.Clear();
    EXPECT_EQ(Add(Property("two words", Type::eReference)), eVSKReferenceNotAllowed);
    EXPECT_EQ(log_.Lines(),
              (Lines{{0, Attempt("add reference property two words to non-association class X_Fan")}}));
}

TEST_F(TCimHTTPClassMembership, WithoutAConnectionACommitAttachesTheClassToTheSuperclassGiven) {
    class_->Commit(TContext());
    EXPECT_EQ(StatusOf([&] { Allocate(namespace_, "x_fan")->Commit(TContext()); }), eVSKAlreadyExists);
    const auto root = namespace_->ForClasses().RootClass();
    EXPECT_EQ(SubclassesOf(*root), Names{"X_Fan"});
    const Class small =
        boost::dynamic_pointer_cast<TCimHTTPClass>(namespace_->AllocateClass("X_Small", class_, TContext()));
    small->Commit(TContext());
    EXPECT_EQ(SubclassesOf(*class_), Names{"X_Small"});
    EXPECT_EQ(SubclassesOf(*root), Names{"X_Fan"});
    EXPECT_TRUE(class_->IsTopLevel(TContext()));
    EXPECT_FALSE(small->IsTopLevel(TContext()));
}

TEST_F(TCimHTTPClassMembership, ASubclassIsKeptOnceAndARedefinedOneTakesItsPlace) {
    const Class first = Allocate(namespace_, "X_First");
    const Class second = Allocate(namespace_, "X_Second");
    class_->AddSubclass(first, TContext());
    class_->AddSubclass(second, TContext());
    class_->AddSubclass(first, TContext());
    EXPECT_EQ(SubclassesOf(*class_), (Names{"X_First", "X_Second"}));
    class_->AddSubclass(Allocate(namespace_, "x_FIRST"), TContext());
    EXPECT_EQ(SubclassesOf(*class_), (Names{"x_FIRST", "X_Second"}));
    EXPECT_TRUE(second->IsSubclassOf(class_, TContext()));
}

TEST_F(TCimHTTPClassMembership, AClassDoesNotBecomeItsOwnAncestor) {
    class_->AddSubclass(other_, TContext());
    EXPECT_EQ(StatusOf([&] { other_->AddSubclass(class_, TContext()); }), eVSKNotSupported);
    EXPECT_EQ(StatusOf([&] { class_->AddSubclass(class_, TContext()); }), eVSKNotSupported);
    EXPECT_EQ(SubclassesOf(*class_, true), Names{"X_Device"});
    EXPECT_EQ(SubclassesOf(*other_), Names{});
}

TEST_F(TCimHTTPClassMembership, AReplacingClassTakesOverTheSubclasses) {
    class_->AddSubclass(other_, TContext());
    const Class replacement = Allocate(namespace_, "X_Fan");
    replacement->TakeOverSubclasses(*class_);
    class_.reset();
    EXPECT_EQ(SubclassesOf(*replacement), Names{"X_Device"});
    EXPECT_TRUE(other_->IsSubclassOf(replacement, TContext()));
}

}  // namespace
}  // namespace NQELVSK20
