#include "inmem/TInmemInstance.h"

#include <gtest/gtest.h>

#include "tests/host/CountingClass.h"
#include "tests/host/Schema.h"
#include "tests/support/StatusOf.h"

namespace NQELVSK20 {
namespace {

class TInmemInstanceTest : public ::testing::Test {
protected:
    TInmemInstanceTest() {
        AddKey(device_, "SystemName");
        AddKey(device_, "DeviceID");
        AddProperty(fan_, "DesiredSpeed", TCIMValue(TCIMValue::TCIMType::eUint64, 0));
        AddProperty(fan_, "ElementName");
    }

    boost::shared_ptr<ICIMInstance> MakeFan(const std::string& id) {
        auto fan = fan_->CreateInstance({});
        fan->SetPropertyValue("DeviceID", TCIMValue(id), {});
        fan->SetPropertyValue("SystemName", TCIMValue("box"), {});
        return fan;
    }

    static std::vector<std::string> SetProperties(const ICIMInstance& instance) {
        return NamesFrom<ICIMProperty>([&instance](const ICIMInstance::PropertyCallback& add) {
            instance.EnumerateProperties(add, {});
        });
    }

    boost::shared_ptr<TInmemUnion> union_ = MakeUnion();
    boost::shared_ptr<ICIMClass> device_ = MakeClass(*union_, "CIM_LogicalDevice");
    boost::shared_ptr<ICIMClass> fan_ = MakeClass(*union_, "CIM_Fan", device_);
};

TEST_F(TInmemInstanceTest, HasTheInheritedKeysInItsPath) {
    const auto fan = MakeFan("1");
    EXPECT_EQ(PathOf(*fan), "CIM_Fan.DeviceID=\"1\",SystemName=\"box\"");
    EXPECT_EQ(fan->GetInstanceReference({}).GetPath(), PathOf(*fan));
    EXPECT_EQ(fan->GetReference({}).GetClassName(), "CIM_Fan");
}

TEST_F(TInmemInstanceTest, HasAPathThatFollowsItsKeys) {
    const auto fan = MakeFan("1");
    fan->SetPropertyValue("deviceid", TCIMValue("2"), {});
    EXPECT_EQ(PathOf(*fan), "CIM_Fan.DeviceID=\"2\",SystemName=\"box\"");
}

TEST_F(TInmemInstanceTest, SpellsPropertiesAsTheClassDeclaresThem) {
    const auto fan = fan_->CreateInstance({});
    fan->SetPropertyValue("deviceid", TCIMValue("1"), {});
    fan->SetPropertyValue("ELEMENTNAME", TCIMValue("Fan 1"), {});
    EXPECT_EQ(fan->GetProperty("elementname", {})->GetName({}), "ElementName");
    EXPECT_EQ(PathOf(*fan), "CIM_Fan.DeviceID=\"1\"");
}

TEST_F(TInmemInstanceTest, QuotesAndEscapesKeysByTheirType) {
    const auto all = MakeClass(*union_, "All");
    AddKey(all, "Text");
    AddKey(all, "Number");
    AddKey(all, "Flag");
    AddKey(all, "When");
    const auto instance = all->CreateInstance({});
    instance->SetPropertyValue("Text", TCIMValue("a\"b\\c"), {});
    instance->SetPropertyValue("Number", TCIMValue(-7), {});
    instance->SetPropertyValue("Flag", TCIMValue(true), {});
    instance->SetPropertyValue("When", TCIMValue(TCIMDateTime("20240229120000.000000+060")), {});
    EXPECT_EQ(PathOf(*instance),
              "All.Flag=TRUE,Number=-7,Text=\"a\\\"b\\\\c\",When=\"20240229120000.000000+060\"");
}

TEST_F(TInmemInstanceTest, HasAReferenceKeyInQuotes) {
    const auto link = MakeClass(*union_, "Link");
    Qualify(link, "ASSOCIATION", TCIMValue(true));
    AddKey(link, "Antecedent", TCIMValue(TCIMValue::TCIMType::eReference, 0));
    TCIMReference reference = MakeFan("1")->GetReference({});
    const auto instance = link->CreateInstance({});
    instance->SetPropertyValue("Antecedent", TCIMValue(reference), {});
    EXPECT_EQ(PathOf(*instance), "Link.Antecedent=\"CIM_Fan.DeviceID=\\\"1\\\",SystemName=\\\"box\\\"\"");
}

TEST_F(TInmemInstanceTest, LeavesKeysWithoutAValueOutOfItsPath) {
    const auto fan = fan_->CreateInstance({});
    EXPECT_EQ(PathOf(*fan), "CIM_Fan");
    fan->SetPropertyValue("SystemName", TCIMValue("box"), {});
    EXPECT_EQ(PathOf(*fan), "CIM_Fan.SystemName=\"box\"");
    fan->SetPropertyValue("SystemName", TCIMValue(), {});
    fan->SetPropertyValue("DeviceID", TCIMValue("1"), {});
    EXPECT_EQ(PathOf(*fan), "CIM_Fan.DeviceID=\"1\"");
}

TEST_F(TInmemInstanceTest, OfAClassWithoutKeysHasTheClassNameForAPath) {
    const auto keyless = MakeClass(*union_, "Keyless");
    EXPECT_EQ(PathOf(*keyless->CreateInstance({})), "Keyless");
}

TEST_F(TInmemInstanceTest, GivesTheValueThatWasSet) {
    const auto fan = MakeFan("1");
    fan->SetPropertyValue("DesiredSpeed", TCIMValue(3000ULL), {});
    EXPECT_FALSE(fan->GetProperty("desiredspeed", {})->GetValue({}) != TCIMValue(3000ULL));
    EXPECT_FALSE(fan->GetProperty("SYSTEMNAME", {})->GetValue({}) != TCIMValue("box"));
}

TEST_F(TInmemInstanceTest, ChangesTheValueOfAPropertyThatWasHandedOut) {
    const auto fan = MakeFan("1");
    const auto property = fan->GetProperty("DeviceID", {});
    const TCIMValue& value = property->GetValue({});
    fan->SetPropertyValue("DESIREDSPEED", TCIMValue(1ULL), {});
    fan->SetPropertyValue("DEVICEID", TCIMValue("2"), {});
    EXPECT_EQ(value.ToString(10), "2");
}

TEST_F(TInmemInstanceTest, LeavesAPropertyThatWasHandedOutAlive) {
    boost::shared_ptr<ICIMProperty> property = MakeFan("1")->GetProperty("DeviceID", {});
    union_.reset();
    device_.reset();
    fan_.reset();
    EXPECT_EQ(property->GetName({}), "DeviceID");
    EXPECT_EQ(property->GetValue({}).ToString(10), "1");
}

TEST_F(TInmemInstanceTest, GivesNullForADeclaredPropertyThatWasNotSet) {
    const auto property = fan_->CreateInstance({})->GetProperty("elementname", {});
    EXPECT_EQ(property->GetName({}), "ElementName");
    EXPECT_TRUE(property->GetValue({}).IsNull());
}

TEST_F(TInmemInstanceTest, RefusesPropertiesThatNoClassOfTheChainDeclares) {
    const auto fan = MakeFan("1");
    EXPECT_EQ(StatusOf([&fan] { fan->GetProperty("Absent", {}); }), eVSKNotFound);
    EXPECT_EQ(StatusOf([&fan] { fan->SetPropertyValue("Absent", TCIMValue(1), {}); }), eVSKNotFound);
    EXPECT_EQ(SetProperties(*fan), (std::vector<std::string>{"DeviceID", "SystemName"}));
}

TEST_F(TInmemInstanceTest, EnumeratesWhatWasSetInTheOrderOfTheNormalizedNames) {
    const auto fan = fan_->CreateInstance({});
    fan->SetPropertyValue("systemname", TCIMValue("box"), {});
    fan->SetPropertyValue("elementname", TCIMValue(), {});
    fan->SetPropertyValue("deviceid", TCIMValue("1"), {});
    EXPECT_EQ(SetProperties(*fan), (std::vector<std::string>{"DeviceID", "ElementName", "SystemName"}));
}

TEST_F(TInmemInstanceTest, EndsAnEnumerationWhenTheCallbackSaysSo) {
    int calls = 0;
    MakeFan("1")->EnumerateProperties(
        [&calls](const boost::shared_ptr<ICIMProperty>&) {
            ++calls;
            return false;
        },
        {});
    EXPECT_EQ(calls, 1);
}

TEST_F(TInmemInstanceTest, AllowsPropertiesToBeSetDuringAnEnumeration) {
    const auto fan = MakeFan("1");
    fan->EnumerateProperties(
        [&fan](const boost::shared_ptr<ICIMProperty>& property) {
            fan->SetPropertyValue(property->GetName({}), TCIMValue("new"), {});
            fan->SetPropertyValue("ElementName", TCIMValue("new"), {});
            return true;
        },
        {});
    EXPECT_EQ(PathOf(*fan), "CIM_Fan.DeviceID=\"new\",SystemName=\"new\"");
}

TEST_F(TInmemInstanceTest, EnumeratesWhatWasSetBeforeAndEachOnce) {
    const auto fan = fan_->CreateInstance({});
    fan->SetPropertyValue("ElementName", TCIMValue("Fan 1"), {});
    std::vector<std::string> visited;
    fan->EnumerateProperties(
        [&](const boost::shared_ptr<ICIMProperty>& property) {
            visited.push_back(property->GetName({}));
            fan->SetPropertyValue("DeviceID", TCIMValue("1"), {});
            fan->SetPropertyValue("SystemName", TCIMValue("box"), {});
            return true;
        },
        {});
    EXPECT_EQ(visited, (std::vector<std::string>{"ElementName"}));
    EXPECT_EQ(SetProperties(*fan), (std::vector<std::string>{"DeviceID", "ElementName", "SystemName"}));
}

TEST_F(TInmemInstanceTest, KeepsValuesApartInWhateverOrderInstancesAreFilled) {
    const auto first = MakeFan("1");
    first->SetPropertyValue("ElementName", TCIMValue("Fan 1"), {});
    const auto second = fan_->CreateInstance({});
    second->SetPropertyValue("ElementName", TCIMValue("Fan 2"), {});
    const auto early = second->GetProperty("ElementName", {});
    second->SetPropertyValue("DesiredSpeed", TCIMValue(3000ULL), {});
    second->SetPropertyValue("DEVICEID", TCIMValue("2"), {});
    EXPECT_EQ(SetProperties(*second), (std::vector<std::string>{"DesiredSpeed", "DeviceID", "ElementName"}));
    EXPECT_TRUE(second->GetProperty("SystemName", {})->GetValue({}).IsNull());
    EXPECT_EQ(early->GetValue({}).ToString(10), "Fan 2");
    EXPECT_EQ(PathOf(*second), "CIM_Fan.DeviceID=\"2\"");
    EXPECT_EQ(PathOf(*first), "CIM_Fan.DeviceID=\"1\",SystemName=\"box\"");
    EXPECT_EQ(first->GetProperty("ElementName", {})->GetValue({}).ToString(10), "Fan 1");
}

TEST_F(TInmemInstanceTest, GivesAPropertyWithoutAValueThatIsNoPartOfIt) {
    const auto fan = MakeFan("1");
    const auto property = fan->GetProperty("ElementName", {});
    fan->SetPropertyValue("ElementName", TCIMValue("Fan 1"), {});
    EXPECT_TRUE(property->GetValue({}).IsNull());
}

TEST_F(TInmemInstanceTest, TakesOverTheValuesOfAnother) {
    const auto fan = MakeFan("1");
    const auto other = fan_->CreateInstance({});
    other->SetPropertyValue("DeviceID", TCIMValue("2"), {});
    other->SetPropertyValue("ElementName", TCIMValue("Fan 2"), {});
    fan->ModifyInstance(other, {});
    EXPECT_EQ(PathOf(*fan), "CIM_Fan.DeviceID=\"2\",SystemName=\"box\"");
    EXPECT_EQ(fan->GetProperty("ElementName", {})->GetValue({}).ToString(10), "Fan 2");
}

TEST_F(TInmemInstanceTest, EntersItsClassAndLeavesIt) {
    const auto fan = MakeFan("1");
    const auto count = [this] {
        int instances = 0;
        fan_->EnumerateInstances(
            [&instances](const boost::shared_ptr<ICIMInstance>&) {
                ++instances;
                return true;
            },
            false, {});
        return instances;
    };
    EXPECT_EQ(count(), 0);
    fan->Commit({});
    EXPECT_EQ(count(), 1);
    fan->Delete({});
    EXPECT_EQ(count(), 0);
}

TEST_F(TInmemInstanceTest, ComparesByItsPath) {
    const auto one = MakeFan("1");
    const auto same = MakeFan("1");
    const auto two = MakeFan("2");
    same->SetPropertyValue("ElementName", TCIMValue("other"), {});
    EXPECT_TRUE(*one == *same);
    EXPECT_FALSE(*one == *two);
    EXPECT_TRUE(*one < *two);
    EXPECT_FALSE(*two < *one);
    EXPECT_FALSE(*one < *same);
}

TEST_F(TInmemInstanceTest, IsNotCopiedByAssignment) {
    const auto one = boost::make_shared<TInmemInstance>(fan_, 1);
    const auto two = boost::make_shared<TInmemInstance>(device_, 1);
    one->SetPropertyValue("DeviceID", TCIMValue("1"), {});
    *one = *two;
    static_cast<ICIMInstance&>(*one) = *two;
    EXPECT_EQ(PathOf(*one), "CIM_Fan.DeviceID=\"1\"");
}

TEST_F(TInmemInstanceTest, KnowsItsClassButNoAssociationsAndNoRemoteNamespace) {
    const auto fan = MakeFan("1");
    int calls = 0;
    const ICIMInstance::InstanceCallback callback = [&calls](const boost::shared_ptr<ICIMInstance>&) {
        ++calls;
        return true;
    };
    fan->EnumerateAssociatedInstances(callback, {});
    fan->EnumerateAssociationInstances(callback, {});
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(fan->GetClass({}), fan_);
    EXPECT_EQ(fan->GetPegasusNSPStr({}), "");
    EXPECT_NO_THROW(fan->Validate({}));
}

/// A class that runs methods, by writing down what it was asked.
class InvokedClass : public CountingClass {
public:
    using CountingClass::CountingClass;
    using CountingClass::operator=;
    void InvokeMethod(TCIMValue& result, const TCIMReference& object, const std::string& method,
                      const TContext& inputs, TContext& outputs, TContext context) override {
        result = TCIMValue(object.GetPath() + " " + method + " " + inputs.at("in").ToString(10) + " " +
                           context.at("option").ToString(10));
        outputs["out"] = TCIMValue(1);
    }
};

TEST_F(TInmemInstanceTest, RunsMethodsThroughItsClass) {
    const auto cimClass = boost::make_shared<InvokedClass>(union_, "Sub_Fan", fan_);
    const auto instance = boost::make_shared<TInmemInstance>(cimClass, 1);
    instance->SetPropertyValue("DeviceID", TCIMValue("1"), {});
    TCIMValue result;
    TContext outputs{{"old", TCIMValue(0)}};
    instance->InvokeMethod(result, "Reset", {{"in", TCIMValue(5)}}, outputs, {{"option", TCIMValue("x")}});
    EXPECT_EQ(result.ToString(10), "Sub_Fan.DeviceID=\"1\" Reset 5 x");
    EXPECT_EQ(outputs.size(), 2U);
}

}  // namespace
}  // namespace NQELVSK20
