// What an enumeration does with single properties, and to which classes its rules apply.

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include <string>

#include "model/TCimHTTPInstance.h"
#include "qelc/TQELCNamespace.h"
#include "tests/model/ModelTest.h"
#include "tests/support/schema/TInmemUnion.h"

namespace NQELVSK20 {
namespace {

class InstanceEnumerationRules : public ModelTest {
protected:
    static std::string LostProperty(const std::string& property) {
        return "4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: " + property;
    }

    static std::string Log(const char* className) {
        return ClassXml(className, "", KeyXml("RecordID", "string") + PropertyXml("IsLocalEvent", "boolean"));
    }
    /// A log entry; `isLocal` is its property, if it has one.
    static std::string Entry(const char* className, const char* id, const std::string& isLocal) {
        return InstanceXml(className, PropertyXml("RecordID", "string", id) + isLocal);
    }
    static std::string IsLocal(const char* value) { return PropertyXml("IsLocalEvent", "boolean", value); }
};

TEST_F(InstanceEnumerationRules, PropertiesInAnotherOrderOrLeftOutLandUnderTheirNames) {
    TestMachine machine(Nodes(1));
    const auto id = [](const char* text) { return PropertyXml("Id", "string", text); };
    const auto label = [](const char* text) { return PropertyXml("Label", "string", text); };
    const auto mark = [](const char* text) { return PropertyXml("InstanceID", "string", text); };
    Declare(machine, {ClassXml("X_Fan", "",
                               KeyXml("Id", "string") + PropertyXml("Label", "string") +
                                   PropertyXml("InstanceID", "string")),
                      InstanceXml("X_Fan", id("a") + label("la") + mark("")),
                      InstanceXml("X_Fan", mark("") + label("lb") + id("b")),
                      InstanceXml("X_Fan", label("lc") + id("c")), InstanceXml("X_Fan", id("d")),
                      InstanceXml("X_Fan", id("e") + mark("") + label("le"))});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Fan"));
    EXPECT_EQ(TextsOf(instances, "Id"), (Names{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(TextsOf(instances, "Label"), (Names{"la", "lb", "lc", "", "le"}));
    EXPECT_EQ(TextsOf(instances, "InstanceID"), (Names{"Node1:", "Node1:", "", "", "Node1:"}));
}

TEST_F(InstanceEnumerationRules, AServersOwnNodeIDGivesWayToTheMark) {
    TestMachine machine(Nodes(2));
    for (const std::size_t node : {0U, 1U}) {
        DeclareOn(machine, node,
                  {ClassXml("X_Fan", "", KeyXml("Id", "string") + PropertyXml("NodeID", "string")),
                   InstanceXml("X_Fan", PropertyXml("Id", "string", std::to_string(node).c_str()) +
                                            PropertyXml("NodeID", "string", "the server's"))});
    }
    EXPECT_EQ(TextsOf(InstancesOf(GetClass(Connected(machine), "X_Fan")), "NodeID"), (Names{"1", "2"}));
}

TEST_F(InstanceEnumerationRules, AHostThatRefusesTheNodeCostsTheNodeOnly) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "", KeyXml("Id", "string")),
                      InstanceXml("X_Fan", PropertyXml("Id", "string", "a"))});
    union_->AllocateClass("X_Fan", boost::shared_ptr<ICIMClass>(), TContext())->Commit(TContext());
    const Class fan = Allocate(Connected(machine), "X_Fan");  // left for the union's: has no member at all
    fan->AllocatePropertyDecl("Id", TCIMValue(), TContext())->Commit(TContext());
    log_.Clear();
    const Instances instances = InstancesOf(fan);
    EXPECT_EQ(TextsOf(instances, "Id"), Names{"a"});
    EXPECT_EQ(log_.LinesWith("4TCimHTTPClass"), (Lines{{3, LostProperty("nodeid")}}));
}

TEST_F(InstanceEnumerationRules, OnlyNumberSpelledExactlyIsNarrowed) {
    TestMachine machine(Nodes(1));
    const auto declare = [&](const char* className, const char* property) {
        Declare(machine, {ClassXml(className, "", KeyXml("Tag", "string") + PropertyXml(property, "uint32")),
                          InstanceXml(className, PropertyXml("Tag", "string", "s") +
                                                     PropertyXml(property, "uint32", "70000"))});
    };
    declare("OMC_ProcessorSlot", "NUMBER");
    declare("OMC_Processorslot2", "Number");
    const Namespace nameSpace = Connected(machine);
    EXPECT_EQ(TextsOf(InstancesOf(GetClass(nameSpace, "OMC_ProcessorSlot")), "Number"), Names{"70000"});
    EXPECT_EQ(TextsOf(InstancesOf(GetClass(nameSpace, "OMC_Processorslot2")), "Number"), Names{"70000"});
}

TEST_F(InstanceEnumerationRules, OnlyTheSlotClassSpelledExactlyIsNarrowed) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {ClassXml("OMC_Processorslot", "", KeyXml("Tag", "string") + PropertyXml("Number", "uint32")),
             InstanceXml("OMC_Processorslot",
                         PropertyXml("Tag", "string", "s") + PropertyXml("Number", "uint32", "70000"))});
    const Instances slots = InstancesOf(GetClass(Connected(machine), "OMC_Processorslot"));
    EXPECT_EQ(TextsOf(slots, "Number"), Names{"70000"});
}

TEST_F(InstanceEnumerationRules, OnlyTheLogEntryClassSpelledExactlyDropsRemoteEvents) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Log("QEL_StandardMessageLogentry"),
                      Entry("QEL_StandardMessageLogentry", "1", IsLocal("FALSE"))});
    EXPECT_EQ(TextsOf(InstancesOf(GetClass(Connected(machine), "QEL_StandardMessageLogentry")), "RecordID"),
              Names{"1"});
}

TEST_F(InstanceEnumerationRules, ANullIsLocalEventIsFalseInTheStandardNamespaceAndUnknownElsewhere) {
    TestMachine machine(Nodes(2));
    const auto declare = [&](const std::string& nameSpace) {
        for (const std::size_t node : {0U, 1U}) {
            const std::string prefix = std::to_string(node);
            DeclareOn(machine, node,
                      {Log("QEL_StandardMessageLogEntry"),
                       Entry("QEL_StandardMessageLogEntry", (prefix + "null").c_str(), IsLocal(nullptr)),
                       Entry("QEL_StandardMessageLogEntry", (prefix + "without").c_str(), "")},
                      nameSpace);
        }
    };
    declare("root/cimv2");
    declare("root/log");
    const auto recordsIn = [&](const char* nameSpace) {
        return TextsOf(InstancesOf(GetClass(Connected(machine, nameSpace), "QEL_StandardMessageLogEntry")),
                       "RecordID");
    };
    EXPECT_EQ(recordsIn("root/cimv2"), (Names{"0without", "1null", "1without"}));
    EXPECT_EQ(recordsIn("root/log"), (Names{"0null", "0without", "1null", "1without"}));
}

TEST_F(InstanceEnumerationRules, ARefusedPropertyCostsNoOtherNeitherBeforeItNorAfterIt) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {ClassXml("X_Fan", "", KeyXml("Id", "string") + PropertyXml("Label", "string")),
             ClassXml("X_Small", "X_Fan", PropertyXml("Speed", "uint16") + PropertyXml("Load", "uint16")),
             InstanceXml("X_Small", PropertyXml("Id", "string", "s") + PropertyXml("Speed", "uint16", "7") +
                                        PropertyXml("Load", "uint16", "8") +
                                        PropertyXml("Label", "string", "l"))});
    const Class fan = GetClass(Connected(machine), "X_Fan");
    log_.Clear();
    const Instances instances = InstancesOf(fan, true);
    EXPECT_EQ(TextsOf(instances, "Id"), Names{"s"});
    EXPECT_EQ(TextsOf(instances, "Label"), Names{"l"});
    EXPECT_EQ(TextsOf(instances, "NodeID"), Names{"1"});
    EXPECT_EQ(log_.LinesWith("4TCimHTTPClass"),
              (Lines{{3, LostProperty("Speed")}, {3, LostProperty("Load")}}));
}

// A namespace whose lookup of one class fails as a test says.
class FailingLookup : public TCimHTTPNamespace {
public:
    using TCimHTTPNamespace::operator=;

    FailingLookup() : TCimHTTPNamespace(false, "root/cimv2") {}

    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) override {
        if (name == "X_Refused") {
            throw TVSKException(eVSKNotSupported);
        }
        if (name == "X_Remote") {
            throw Pegasus::CIMException(Pegasus::CIM_ERR_FAILED, "no such class");
        }
        return TCimHTTPNamespace::GetClass(name, context);
    }
};

class InstanceEnumerationFailures : public InstanceEnumerationRules {
protected:
    InstanceEnumerationFailures() : machine_(Nodes(1)), namespace_(new FailingLookup) {
        namespace_->Initialize({{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}});
        namespace_->SetUpcallNamespace(common_, TContext());
        namespace_->Init();
        ConnectTo(*namespace_, machine_);
    }

    /// A class with two references, each with an instance of the class that it points at.
    Class Link(const std::string& className, const std::string& first) {
        Declare(machine_, {ClassXml("X_Zone", "", KeyXml("Id", "string")),
                           ClassXml(className, "",
                                    ReferenceKeyXml("First", first) + ReferenceKeyXml("Second", "X_Zone")),
                           InstanceXml(className, ReferenceXml("First", first, "Id", "f") +
                                                      ReferenceXml("Second", "X_Zone", "Id", "z"))});
        return GetClass(namespace_, className);
    }

    TestMachine machine_;
    Namespace namespace_;
};

TEST_F(InstanceEnumerationFailures, AHostsExceptionWhileAValueIsReadCostsThatPropertyOnly) {
    const Class link = Link("X_Link", "X_Refused");
    ASSERT_TRUE(link);
    log_.Clear();
    const Instances instances = InstancesOf(link);
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(log_.LinesWith("4TCimHTTPClass"), (Lines{{3, LostProperty("First")}}));
    EXPECT_TRUE(ValueOf(instances[0], "First").IsNull());
    EXPECT_EQ(ValueOf(instances[0], "Second").GetReferencedClass(), GetClass(namespace_, "X_Zone"));
    EXPECT_EQ(TextOf(instances[0], "NodeID"), "1");
}

TEST_F(InstanceEnumerationFailures, ARemoteExceptionIsTheCallers) {
    const Class link = Link("X_Link", "X_Remote");
    ASSERT_TRUE(link);
    log_.Clear();
    EXPECT_THROW(InstancesOf(link), Pegasus::CIMException);
    EXPECT_EQ(log_.LinesWith("4TCimHTTPClass"), Lines{});
}

// A class and an instance that record the contexts which they are called with.
class RecordingClass : public TCimHTTPClass {
public:
    using TCimHTTPClass::operator=;
    using TCimHTTPClass::TCimHTTPClass;

    void EnumerateInstances(const InstanceCallback& callback, bool deep, TContext context) override {
        contexts.push_back(context);
        TCimHTTPClass::EnumerateInstances(callback, deep, std::move(context));
    }
    void AddInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) override {
        contexts.push_back(context);
        TCimHTTPClass::AddInstance(std::move(instance), std::move(context));
    }

    std::vector<TContext> contexts;
};

class RecordingInstance : public TCimHTTPInstance {
public:
    using TCimHTTPInstance::operator=;
    using TCimHTTPInstance::TCimHTTPInstance;

    void Validate(TContext context) override { validated.push_back(std::move(context)); }
    TCIMReference GetReference(TContext context) override {
        referenced.push_back(context);
        return TCimHTTPInstance::GetReference(std::move(context));
    }

    std::vector<TContext> validated;
    std::vector<TContext> referenced;
};

class ForwardedContext : public ModelTest {
protected:
    // No namespace knows the class, and would let it go.
    ~ForwardedContext() override { class_->ForgetInstances(); }

    static TContext Given() { return {{"Caller", TCIMValue("me")}}; }

    static void ExpectGiven(const std::vector<TContext>& contexts) {
        ASSERT_EQ(contexts.size(), 1U);
        ASSERT_EQ(contexts[0].size(), 1U);
        EXPECT_EQ(contexts[0].at("Caller").ToString(10), "me");
    }

    Namespace namespace_ = MakeUninitNamespace();
    boost::shared_ptr<RecordingClass> class_{new RecordingClass(namespace_, 60000, "X_Fan", Class())};
    boost::shared_ptr<RecordingInstance> instance_{
        new RecordingInstance(class_, boost::shared_ptr<ICIMClass>())};
};

TEST_F(ForwardedContext, OfADeepEnumerationReachesTheSubclasses) {
    const Class top = Allocate(namespace_, "X_Top");
    top->AddSubclass(class_, TContext());
    top->EnumerateInstances([](const Instance&) { return true; }, true, Given());
    ExpectGiven(class_->contexts);
}

TEST_F(ForwardedContext, OfAnInstancesCommitReachesItsValidationAndItsClass) {
    instance_->Commit(Given());
    ExpectGiven(instance_->validated);
    ExpectGiven(class_->contexts);
    ExpectGiven(instance_->referenced);
}

TEST_F(ForwardedContext, OfAddingAndRemovingAnInstanceReachesItsReference) {
    class_->AddInstance(instance_, Given());
    ExpectGiven(instance_->referenced);
    instance_->referenced.clear();
    class_->RemoveInstance(instance_, Given());
    ExpectGiven(instance_->referenced);
}

TEST_F(ForwardedContext, OfTheInstanceReferenceReachesTheReference) {
    instance_->GetInstanceReference(Given());
    ExpectGiven(instance_->referenced);
}

}  // namespace
}  // namespace NQELVSK20
