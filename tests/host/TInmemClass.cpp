#include "tests/support/schema/TInmemClass.h"

#include <gtest/gtest.h>

#include "tests/host/Schema.h"
#include "tests/support/StatusOf.h"
#include "vskcore/ICIMParameterDecl.h"

namespace NQELVSK20 {
namespace {

using TType = TCIMValue::TCIMType;

class TInmemClassTest : public ::testing::Test {
protected:
    static boost::shared_ptr<ICIMNamedElement> Element(const boost::shared_ptr<ICIMClass>& cimClass) {
        return boost::dynamic_pointer_cast<ICIMNamedElement>(cimClass);
    }

    static std::vector<std::string> Subclasses(const boost::shared_ptr<ICIMClass>& cimClass, bool deep) {
        return NamesFrom<ICIMClass>(
            [&](const ICIMClass::ClassCallback& add) { cimClass->EnumerateSubclasses(add, deep, {}); });
    }

    static std::vector<std::string> Instances(const boost::shared_ptr<ICIMClass>& cimClass, bool deep,
                                              std::size_t limit = 100) {
        std::vector<std::string> paths;
        cimClass->EnumerateInstances(
            [&paths, limit](const boost::shared_ptr<ICIMInstance>& instance) {
                paths.push_back(PathOf(*instance));
                return paths.size() < limit;
            },
            deep, {});
        return paths;
    }

    void AddInstance(const boost::shared_ptr<ICIMClass>& cimClass, const std::string& id) {
        const auto instance = cimClass->CreateInstance({});
        instance->SetPropertyValue("Id", TCIMValue(id), {});
        instance->Commit({});
    }

    boost::shared_ptr<TInmemUnion> union_ = MakeUnion();
    boost::shared_ptr<ICIMClass> element_ = MakeClass(*union_, "CIM_ManagedElement");
    boost::shared_ptr<ICIMClass> device_ = MakeClass(*union_, "CIM_LogicalDevice", element_);
    boost::shared_ptr<ICIMClass> fan_ = MakeClass(*union_, "CIM_Fan", device_);
};

TEST_F(TInmemClassTest, KnowsItsPlaceInTheHierarchy) {
    EXPECT_TRUE(element_->IsTopLevel({}));
    EXPECT_FALSE(element_->GetSuperClass({}));
    EXPECT_FALSE(fan_->IsTopLevel({}));
    EXPECT_EQ(fan_->GetSuperClass({}), device_);
    EXPECT_TRUE(fan_->IsSubclassOf(fan_, {}));
    EXPECT_TRUE(fan_->IsSubclassOf(element_, {}));
    EXPECT_FALSE(element_->IsSubclassOf(fan_, {}));
}

TEST_F(TInmemClassTest, EnumeratesItsSubclassesEachBeforeItsOwn) {
    MakeClass(*union_, "CIM_Battery", device_);
    MakeClass(*union_, "CIM_Zone", element_);
    EXPECT_EQ(Subclasses(element_, false), (std::vector<std::string>{"CIM_LogicalDevice", "CIM_Zone"}));
    EXPECT_EQ(Subclasses(element_, true),
              (std::vector<std::string>{"CIM_LogicalDevice", "CIM_Battery", "CIM_Fan", "CIM_Zone"}));
}

TEST_F(TInmemClassTest, EndsOnlyTheLevelThatTheCallbackDeclines) {
    MakeClass(*union_, "CIM_Battery", device_);
    MakeClass(*union_, "CIM_Zone", element_);
    std::vector<std::string> names;
    element_->EnumerateSubclasses(
        [&names](const boost::shared_ptr<ICIMClass>& subclass) {
            names.push_back(subclass->GetName({}));
            return names.back() != "CIM_Battery";
        },
        true, {});
    EXPECT_EQ(names, (std::vector<std::string>{"CIM_LogicalDevice", "CIM_Battery", "CIM_Zone"}));
}

TEST_F(TInmemClassTest, IsAnAssociationByItsQualifierOrItsSuperclass) {
    const auto link = MakeClass(*union_, "Link");
    const auto special = MakeClass(*union_, "SpecialLink", link);
    EXPECT_FALSE(link->IsAssociation({}));
    Qualify(link, "ASSOCIATION", TCIMValue(true));
    EXPECT_TRUE(link->IsAssociation({}));
    EXPECT_TRUE(special->IsAssociation({}));
}

TEST_F(TInmemClassTest, IsAbstractByItsOwnQualifierOnly) {
    Qualify(element_, "abstract", TCIMValue(true));
    EXPECT_TRUE(element_->IsAbstract({}));
    EXPECT_FALSE(device_->IsAbstract({}));
    Qualify(fan_, "ABSTRACT", TCIMValue());
    EXPECT_FALSE(fan_->IsAbstract({}));
}

TEST_F(TInmemClassTest, FindsPropertiesThatItDeclaresWithoutRegardToCase) {
    const auto property = AddProperty(device_, "DeviceID");
    EXPECT_EQ(device_->GetPropertyDecl("DEVICEID", {}), property);
    EXPECT_EQ(device_->GetMemberEntry("deviceid", {}), property);
    EXPECT_EQ(StatusOf([this] { fan_->GetPropertyDecl("DeviceID", {}); }), eVSKNotFound);
    EXPECT_EQ(property->GetClass({}), device_);
}

TEST_F(TInmemClassTest, RefusesASecondPropertyOfAName) {
    AddProperty(fan_, "Speed");
    EXPECT_EQ(StatusOf([this] { AddProperty(fan_, "SPEED"); }), eVSKAlreadyExists);
}

TEST_F(TInmemClassTest, RefusesToChangeTheTypeOfAnInheritedProperty) {
    AddProperty(element_, "Speed", TCIMValue(1U));
    EXPECT_EQ(StatusOf([this] { AddProperty(fan_, "speed", TCIMValue("fast")); }), eVSKTypeMismatch);
    EXPECT_EQ(StatusOf([this] { AddProperty(fan_, "speed", TCIMValue(2U)); }), eVSKSuccess);
}

TEST_F(TInmemClassTest, RefusesReferencesUnlessItIsAnAssociation) {
    const TCIMValue reference(TType::eReference, 0);
    EXPECT_EQ(StatusOf([&] { AddProperty(fan_, "Other", reference); }), eVSKReferenceNotAllowed);
    Qualify(fan_, "ASSOCIATION", TCIMValue(true));
    EXPECT_EQ(StatusOf([&] { AddProperty(fan_, "Other", reference); }), eVSKSuccess);
}

TEST_F(TInmemClassTest, RefusesMembersThatHaveNoCimName) {
    EXPECT_EQ(StatusOf([this] { AddProperty(fan_, "a b"); }), eVSKInvalidName);
    EXPECT_EQ(StatusOf([this] { fan_->AllocateMethodDecl("1", TType::eUint32, {})->Commit({}); }),
              eVSKInvalidName);
    EXPECT_EQ(StatusOf([this] {
                  const auto method = fan_->AllocateMethodDecl("Reset", TType::eUint32, {});
                  method->AllocateParameterDecl("", TType::eUint32, {})->Commit({});
              }),
              eVSKInvalidName);
}

TEST_F(TInmemClassTest, EnumeratesPropertiesInTheOrderOfTheNormalizedNames) {
    AddProperty(fan_, "b");
    AddProperty(fan_, "C");
    AddProperty(fan_, "A");
    EXPECT_EQ(NamesFrom<ICIMPropertyDecl>([this](const auto& add) { fan_->EnumeratePropertyDecls(add, {}); }),
              (std::vector<std::string>{"A", "b", "C"}));
}

TEST_F(TInmemClassTest, EnumeratesTheNamesOfItsOwnKeys) {
    AddKey(device_, "DeviceID");
    AddKey(fan_, "Slot");
    AddKey(fan_, "box");
    AddProperty(fan_, "Speed");
    Qualify(AddProperty(fan_, "NoKey"), "KEY", TCIMValue(false));
    std::vector<std::string> names;
    fan_->EnumerateKeyPropertyNames(
        [&names](const std::string& name) {
            names.push_back(name);
            return true;
        },
        {});
    EXPECT_EQ(names, (std::vector<std::string>{"box", "Slot"}));
}

TEST_F(TInmemClassTest, FindsMethodsAndEmptyForAnAbsentOne) {
    const auto method = fan_->AllocateMethodDecl("Reset", TType::eUint32, {});
    EXPECT_FALSE(fan_->GetMethodDecl("Reset", {}));
    method->Commit({});
    EXPECT_EQ(fan_->GetMethodDecl("RESET", {}), method);
    EXPECT_EQ(fan_->GetMemberEntry("reset", {}), method);
    EXPECT_EQ(method->GetClass({}), fan_);
    EXPECT_EQ(StatusOf([this] { fan_->AllocateMethodDecl("reset", TType::eString, {})->Commit({}); }),
              eVSKAlreadyExists);
    EXPECT_EQ(StatusOf([this] { fan_->GetMemberEntry("Absent", {}); }), eVSKNotFound);
}

TEST_F(TInmemClassTest, EnumeratesItsMembersPropertiesFirst) {
    const auto property = AddProperty(fan_, "Speed");
    const auto method = fan_->AllocateMethodDecl("Reset", TType::eUint32, {});
    method->Commit({});
    std::vector<boost::shared_ptr<ICIMNamedElement>> members;
    fan_->EnumerateMemberEntries(
        [&members](const boost::shared_ptr<ICIMNamedElement>& member) {
            members.push_back(member);
            return true;
        },
        {});
    EXPECT_EQ(members, (std::vector<boost::shared_ptr<ICIMNamedElement>>{property, method}));
}

TEST_F(TInmemClassTest, EnumeratesTheClassesThatItsPropertiesReference) {
    const auto link = MakeClass(*union_, "Link");
    Qualify(link, "ASSOCIATION", TCIMValue(true));
    for (const auto& [name, target] : {std::make_pair("A", fan_), std::make_pair("B", device_)}) {
        TCIMValue reference(TType::eReference, 0);
        reference.SetReferencedClass(target);
        AddProperty(link, name, reference);
    }
    AddProperty(link, "Plain");
    EXPECT_EQ(NamesFrom<ICIMClass>([&](const auto& add) { link->EnumerateReferencedClasses(add, {}); }),
              (std::vector<std::string>{"CIM_Fan", "CIM_LogicalDevice"}));
    EXPECT_EQ(NamesFrom<ICIMClass>([&](const auto& add) {
                  link->EnumerateReferencedClassesByName("cim_logicaldevice", add, {});
              }),
              (std::vector<std::string>{"CIM_LogicalDevice"}));
}

TEST_F(TInmemClassTest, EnumeratesInstancesInPathOrderAndThoseOfSubclassesWhenDeep) {
    AddKey(element_, "Id");
    AddInstance(fan_, "2");
    AddInstance(fan_, "1");
    AddInstance(device_, "3");
    EXPECT_EQ(Instances(fan_, false), (std::vector<std::string>{"CIM_Fan.Id=\"1\"", "CIM_Fan.Id=\"2\""}));
    EXPECT_EQ(Instances(device_, false), (std::vector<std::string>{"CIM_LogicalDevice.Id=\"3\""}));
    EXPECT_EQ(Instances(element_, true), (std::vector<std::string>{"CIM_LogicalDevice.Id=\"3\"",
                                                                   "CIM_Fan.Id=\"1\"", "CIM_Fan.Id=\"2\""}));
}

TEST_F(TInmemClassTest, StopsADeepEnumerationOfInstancesAltogether) {
    AddKey(element_, "Id");
    MakeClass(*union_, "CIM_Zone", element_);
    AddInstance(fan_, "1");
    AddInstance(union_->GetClass("CIM_Zone", {}), "2");
    EXPECT_EQ(Instances(element_, true, 1), (std::vector<std::string>{"CIM_Fan.Id=\"1\""}));
}

TEST_F(TInmemClassTest, KeepsTheFirstInstanceOfAPath) {
    AddKey(fan_, "Id");
    AddInstance(fan_, "1");
    AddInstance(fan_, "1");
    EXPECT_EQ(Instances(fan_, false).size(), 1U);
}

TEST_F(TInmemClassTest, GivesEmptyForAnAbsentQualifierAndOffersNoSearch) {
    EXPECT_FALSE(Element(fan_)->GetQualifier("KEY", {}));
    Qualify(fan_, "DESCRIPTION", TCIMValue("A fan"));
    EXPECT_EQ(Element(fan_)->GetQualifier("description", {})->GetValue({}).ToString(10), "A fan");
    bool found = false;
    EXPECT_EQ(StatusOf([&] { Element(fan_)->FindQualifier("KEY", found, {}); }), eVSKNotOffered);
}

TEST_F(TInmemClassTest, ComparesByNameWithoutRegardToCase) {
    EXPECT_TRUE(*fan_ == *union_->AllocateClass("cim_fan", nullptr, {}));
    EXPECT_FALSE(*fan_ == *device_);
    EXPECT_TRUE(*fan_ < *device_);
    EXPECT_FALSE(*device_ < *fan_);
    *fan_ = *device_;
    EXPECT_EQ(fan_->GetName({}), "CIM_Fan");
}

TEST_F(TInmemClassTest, SupportsNeitherInvocationsNorReservedOperations) {
    TCIMValue result;
    TContext outputs;
    const std::vector<std::function<void()>> operations{
        [this] { fan_->Reserved4({}); },
        [this] { fan_->Reserved5({}); },
        [this] { fan_->Reserved21("x", {}); },
        [this] { fan_->Reserved28("x", {}); },
        [this] { fan_->Reserved32({}); },
        [this] { fan_->Reserved33({}); },
        [this] { fan_->Reserved35(nullptr, {}); },
        [this] { fan_->Reserved38(nullptr, {}); },
        [this] { fan_->Reserved39(nullptr, {}); },
        [this] { fan_->Reserved41(nullptr, {}); },
        [this] { fan_->Reserved42(nullptr, {}); },
        [this] { fan_->Reserved43(nullptr, {}); },
        [&] { fan_->InvokeMethod(result, TCIMReference(nullptr, {}), "Reset", {}, outputs, {}); },
    };
    for (const auto& operation : operations) {
        EXPECT_EQ(StatusOf(operation), eVSKNotSupported);
    }
}

}  // namespace
}  // namespace NQELVSK20
