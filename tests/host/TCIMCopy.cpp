#include "vskcore/TCIMCopy.h"

#include <gtest/gtest.h>

#include "tests/host/Schema.h"
#include "tests/support/StatusOf.h"
#include "tests/support/schema/TInmemClass.h"
#include "tests/support/schema/TInmemMethodDecl.h"
#include "tests/support/schema/TInmemParameterDecl.h"
#include "vskcore/ICIMQualifier.h"

namespace NQELVSK20 {
namespace {

using TType = TCIMValue::TCIMType;

class TCIMCopyTest : public ::testing::Test {
protected:
    TCIMCopyTest() {
        AddKey(element_, "InstanceID");
        Qualify(fan_, "DESCRIPTION", TCIMValue("A fan"));
        Qualify(AddProperty(fan_, "DesiredSpeed", TCIMValue(3000ULL)), "DESCRIPTION", TCIMValue("rpm"));
        AddProperty(fan_, "States", TCIMValue(TType::eUint16Array, 0));
        const auto method = fan_->AllocateMethodDecl("SetSpeed", TType::eUint32, {});
        Qualify(method, "DESCRIPTION", TCIMValue("Sets it"));
        const auto parameter = method->AllocateParameterDecl("Speeds", TType::eUint64Array, {});
        Qualify(parameter, "DESCRIPTION", TCIMValue("in rpm"));
        parameter->Commit({});
        method->AllocateParameterDecl("Force", TType::eBoolean, {})->Commit({});
        method->Commit({});
    }

    boost::shared_ptr<ICIMClass> Copy(const boost::shared_ptr<ICIMClass>& source) {
        TCIMCopy::CopyClass(source, target_);
        return target_->GetClass(source->GetName({}), {});
    }

    static std::string Description(const boost::shared_ptr<ICIMNamedElement>& element) {
        return element->GetQualifier("DESCRIPTION", {})->GetValue({}).ToString(10);
    }

    boost::shared_ptr<TInmemUnion> source_ = MakeUnion();
    boost::shared_ptr<TInmemUnion> target_{new TInmemUnion};
    boost::shared_ptr<ICIMClass> element_ = MakeClass(*source_, "CIM_ManagedElement");
    boost::shared_ptr<ICIMClass> device_ = MakeClass(*source_, "CIM_LogicalDevice", element_);
    boost::shared_ptr<ICIMClass> fan_ = MakeClass(*source_, "CIM_Fan", device_);
};

TEST_F(TCIMCopyTest, EntersACopyIntoTheTargetAndLeavesTheSource) {
    const auto copy = Copy(fan_);
    ASSERT_TRUE(copy);
    EXPECT_NE(copy, fan_);
    EXPECT_EQ(copy->GetName({}), "CIM_Fan");
    EXPECT_EQ(copy->GetNamespace({}), target_);
    EXPECT_EQ(source_->GetClass("CIM_Fan", {}), fan_);
}

TEST_F(TCIMCopyTest, CopiesTheSuperclassChainThatTheTargetLacks) {
    const auto copy = Copy(fan_);
    const auto device = copy->GetSuperClass({});
    ASSERT_TRUE(device);
    EXPECT_EQ(device, target_->GetClass("CIM_LogicalDevice", {}));
    EXPECT_EQ(device->GetSuperClass({}), target_->GetClass("CIM_ManagedElement", {}));
    EXPECT_EQ(device->GetSuperClass({})->GetNamespace({}), target_);
    EXPECT_TRUE(device->GetSuperClass({})->IsTopLevel({}));
}

TEST_F(TCIMCopyTest, TakesTheSuperclassThatTheTargetHas) {
    const auto device = MakeClass(*target_, "cim_logicaldevice");
    EXPECT_EQ(Copy(fan_)->GetSuperClass({}), device);
    EXPECT_FALSE(target_->GetClass("CIM_ManagedElement", {}));
}

TEST_F(TCIMCopyTest, CopiesPropertiesWithTypeValueAndQualifiers) {
    const auto copy = Copy(fan_);
    const auto speed = copy->GetPropertyDecl("DesiredSpeed", {});
    EXPECT_EQ(speed->GetName({}), "DesiredSpeed");
    EXPECT_FALSE(speed->GetValue({}) != TCIMValue(3000ULL));
    EXPECT_EQ(Description(speed), "rpm");
    EXPECT_EQ(speed->GetClass({}), copy);
    const auto states = copy->GetPropertyDecl("States", {});
    EXPECT_EQ(states->GetType({}), TType::eUint16Array);
    EXPECT_TRUE(states->IsArray({}));
    EXPECT_TRUE(states->GetValue({}).IsNull());
}

TEST_F(TCIMCopyTest, CopiesMethodsWithTheirParametersAndQualifiers) {
    const auto copy = Copy(fan_);
    const auto method = copy->GetMethodDecl("SetSpeed", {});
    ASSERT_TRUE(method);
    EXPECT_EQ(method->GetType({}), TType::eUint32);
    EXPECT_EQ(method->GetClass({}), copy);
    EXPECT_EQ(Description(method), "Sets it");
    EXPECT_EQ(NamesFrom<ICIMParameterDecl>(
                  [&method](const auto& add) { method->EnumerateParameterDecls(add, {}); }),
              (std::vector<std::string>{"Force", "Speeds"}));
    const auto speeds = method->GetParameterDecl("Speeds", {});
    EXPECT_EQ(speeds->GetType({}), TType::eUint64Array);
    EXPECT_EQ(Description(speeds), "in rpm");
    EXPECT_EQ(method->GetParameterDecl("Force", {})->GetType({}), TType::eBoolean);
}

TEST_F(TCIMCopyTest, CopiesClassQualifiersAndTheDeclarationsThatTheTargetLacks) {
    const auto copy = Copy(fan_);
    EXPECT_EQ(Description(boost::dynamic_pointer_cast<ICIMNamedElement>(copy)), "A fan");
    const auto declaration = target_->GetQualifierDecl("DESCRIPTION", {});
    ASSERT_TRUE(declaration);
    EXPECT_EQ(declaration->GetNamespace({}), target_);
    EXPECT_FALSE(declaration->GetValue({}) != TCIMValue(""));
    EXPECT_EQ(declaration->GetScope({}), ICIMQualifierDecl::eScopeAny);
    EXPECT_EQ(declaration->GetFlavor({}), ICIMQualifierDecl::eFlavorEnableOverride);
    EXPECT_FALSE(target_->GetQualifierDecl("ASSOCIATION", {}));
}

TEST_F(TCIMCopyTest, KeepsTheDeclarationThatTheTargetHasAndTheQualifiersFlavor) {
    const auto declaration =
        DeclareQualifier(*target_, "description", TCIMValue("none"), ICIMQualifierDecl::eScopeClass,
                         ICIMQualifierDecl::eFlavorTranslatable);
    const auto copy = boost::dynamic_pointer_cast<ICIMNamedElement>(Copy(fan_));
    EXPECT_EQ(target_->GetQualifierDecl("DESCRIPTION", {}), declaration);
    const auto qualifier = copy->GetQualifier("DESCRIPTION", {});
    EXPECT_EQ(qualifier->GetQualifierDecl({}), declaration);
    EXPECT_EQ(qualifier->GetFlavor({}), ICIMQualifierDecl::eFlavorEnableOverride);
}

TEST_F(TCIMCopyTest, CopiesAnAssociationWithItsReferences) {
    const auto link = MakeClass(*source_, "CIM_Link");
    Qualify(link, "ASSOCIATION", TCIMValue(true));
    TCIMValue reference(TType::eReference, 0);
    reference.SetReferencedClass(fan_);
    AddKey(link, "Dependent", reference);
    const auto copy = Copy(link);
    EXPECT_TRUE(copy->IsAssociation({}));
    const auto dependent = copy->GetPropertyDecl("Dependent", {});
    EXPECT_TRUE(dependent->GetValue({}).IsReference());
    EXPECT_EQ(dependent->GetValue({}).GetReferencedClass(), fan_);
}

/// A class that counts as an association by its own qualifiers only, as a plug-in's may.
class StrictClass : public TInmemClass {
public:
    using TInmemClass::operator=;
    using TInmemClass::TInmemClass;
    bool IsAssociation(TContext /*context*/) const override { return IsMarked("ASSOCIATION"); }
};

class StrictNamespace : public TInmemUnion {
public:
    using TInmemUnion::operator=;
    boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                               boost::shared_ptr<ICIMClass> superclass,
                                               TContext /*context*/) override {
        last_ = boost::make_shared<StrictClass>(boost::dynamic_pointer_cast<TInmemUnion>(shared_from_this()),
                                                name, superclass);
        return last_;
    }

    boost::shared_ptr<ICIMClass> last_;
};

/// An association and a subclass of it that inherits its being one and has a reference of its own.
class AssociationCopyTest : public TCIMCopyTest {
protected:
    AssociationCopyTest() {
        Qualify(base_, "ASSOCIATION", TCIMValue(true));
        AddProperty(derived_, "Active", TCIMValue(true));
        TCIMValue reference(TType::eReference, 0);
        reference.SetReferencedClass(fan_);
        AddKey(derived_, "Dependent", reference);
    }

    static std::vector<std::string> QualifiersOf(const boost::shared_ptr<ICIMClass>& cimClass) {
        const auto element = boost::dynamic_pointer_cast<ICIMNamedElement>(cimClass);
        return NamesFrom<ICIMQualifier>([&](const auto& add) { element->EnumerateQualifiers(add, {}); });
    }

    boost::shared_ptr<ICIMClass> base_ = MakeClass(*source_, "CIM_Dependency");
    boost::shared_ptr<ICIMClass> middle_ = MakeClass(*source_, "CIM_Cooling", base_);
    boost::shared_ptr<ICIMClass> derived_ = MakeClass(*source_, "CIM_FanCooling", middle_);
    boost::shared_ptr<StrictNamespace> strict_{new StrictNamespace};
};

TEST_F(AssociationCopyTest, BringsAnInheritedAssociationOverWholeWhereOnlyOwnQualifiersCount) {
    TCIMCopy::CopyClass(derived_, strict_);
    const auto copy = strict_->GetClass("CIM_FanCooling", {});
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->IsAssociation({}));
    EXPECT_TRUE(copy->GetPropertyDecl("Dependent", {})->GetValue({}).IsReference());
    EXPECT_TRUE(copy->GetPropertyDecl("Active", {}));
    EXPECT_TRUE(strict_->GetClass("CIM_Cooling", {})->IsAssociation({}));
}

TEST_F(AssociationCopyTest, MakesInheritedQualifiersTheCopysOwnButNotRestrictedOnes) {
    Qualify(base_, "ABSTRACT", TCIMValue(true));
    EXPECT_EQ(QualifiersOf(Copy(derived_)), std::vector<std::string>{"ASSOCIATION"});
    EXPECT_EQ(QualifiersOf(target_->GetClass("CIM_Dependency", {})),
              (std::vector<std::string>{"ABSTRACT", "ASSOCIATION"}));
    EXPECT_EQ(QualifiersOf(derived_), std::vector<std::string>());
}

TEST_F(AssociationCopyTest, TakesTheNearestOfTheInheritedQualifiersOfAName) {
    DeclareQualifier(*source_, "UNITS", TCIMValue(""));
    Qualify(base_, "UNITS", TCIMValue("far"));
    Qualify(middle_, "UNITS", TCIMValue("near"));
    const auto copy = boost::dynamic_pointer_cast<ICIMNamedElement>(Copy(derived_));
    EXPECT_EQ(copy->GetQualifier("UNITS", {})->GetValue({}).ToString(10), "near");
    boost::dynamic_pointer_cast<ICIMNamedElement>(middle_)
        ->GetQualifier("UNITS", {})
        ->RemoveFlavor(ICIMQualifierDecl::eFlavorToSubclass, {});
    EXPECT_EQ(QualifiersOf(Copy(derived_)), std::vector<std::string>{"ASSOCIATION"});
}

TEST_F(AssociationCopyTest, FailsHalfWayAtAReferenceOfAClassThatDeniesToBeAnAssociation) {
    Qualify(derived_, "ASSOCIATION", TCIMValue(false));
    EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClass(derived_, strict_); }), eVSKReferenceNotAllowed);
    EXPECT_FALSE(strict_->GetClass("CIM_FanCooling", {}));
    ASSERT_EQ(strict_->last_->GetName({}), "CIM_FanCooling");
    EXPECT_EQ(NamesFrom<ICIMPropertyDecl>(
                  [&](const auto& add) { strict_->last_->EnumeratePropertyDecls(add, {}); }),
              std::vector<std::string>{"Active"});
}

/// A namespace whose classes come with members: a property and a class qualifier, as a plug-in's do.
class StampingNamespace : public TInmemUnion {
public:
    using TInmemUnion::operator=;
    boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                               boost::shared_ptr<ICIMClass> superclass,
                                               TContext context) override {
        auto cimClass = TInmemUnion::AllocateClass(name, superclass, context);
        AddProperty(cimClass, "DESIREDSPEED", TCIMValue("stamped"));
        Qualify(cimClass, "DESCRIPTION", TCIMValue("stamped"));
        cimClass->AllocateMethodDecl("SETSPEED", TType::eString, {})->Commit({});
        return cimClass;
    }
};

TEST_F(TCIMCopyTest, LeavesMembersAloneThatTheNewClassComesWith) {
    const boost::shared_ptr<TInmemUnion> target(new StampingNamespace);
    DeclareQualifier(*target, "DESCRIPTION", TCIMValue(""));
    TCIMCopy::CopyClass(element_, target);
    TCIMCopy::CopyClass(fan_, target);
    const auto copy = target->GetClass("CIM_Fan", {});
    EXPECT_EQ(copy->GetPropertyDecl("DesiredSpeed", {})->GetValue({}).ToString(10), "stamped");
    EXPECT_EQ(Description(boost::dynamic_pointer_cast<ICIMNamedElement>(copy)), "stamped");
    EXPECT_EQ(copy->GetMethodDecl("SetSpeed", {})->GetType({}), TType::eString);
    EXPECT_TRUE(copy->GetPropertyDecl("States", {}));
}

TEST_F(TCIMCopyTest, LetsTheTargetsRefusalsPass) {
    const boost::shared_ptr<ICIMNamespace> refusing(new TMinimalNamespace);
    EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClass(element_, refusing); }), eVSKNotSupported);
}

}  // namespace
}  // namespace NQELVSK20
