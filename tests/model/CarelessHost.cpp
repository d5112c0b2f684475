// A host that lets go of its namespace and goes on using what came from it, and one whose callbacks do what
// they like. Whatever it asks has a result, or an error that says what is missing.

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/ModelTest.h"
#include "tests/support/FakeNodes.h"
#include "vskcore/ICIMInstance.h"

namespace NQELVSK20 {
namespace {

using Pegasus::CIMName;
using Pegasus::CIMValue;
using Pegasus::String;

/// Two nodes with a class N_Fan below N_Base, which has the key, and two instances on each.
class CarelessHost : public ModelTest {
protected:
    CarelessHost() : nodes_(2) {
        Pegasus::CIMClass base{CIMName("N_Base")};
        Pegasus::CIMProperty id(CIMName("Id"), CIMValue(String::EMPTY));
        id.addQualifier(Pegasus::CIMQualifier(CIMName("Key"), CIMValue(Pegasus::Boolean(true))));
        base.addProperty(id);
        nodes_.Define(base);
        Pegasus::CIMClass fan{CIMName("N_Fan"), CIMName("N_Base")};
        fan.addProperty(Pegasus::CIMProperty(CIMName("Speed"), CIMValue(Pegasus::Uint16(0))));
        fan.addMethod(Pegasus::CIMMethod(CIMName("Stop"), Pegasus::CIMTYPE_UINT32));
        fan.addQualifier(Pegasus::CIMQualifier(CIMName("Version"), CIMValue(String("1"))));
        nodes_.Define(fan);
        for (const char* name : {"a", "b"}) {
            nodes_.Add(0, Fan(std::string("left ") + name));
            nodes_.Add(1, Fan(std::string("right ") + name));
        }
    }

    static Pegasus::CIMInstance Fan(const std::string& name) {
        Pegasus::CIMInstance fan{CIMName("N_Fan")};
        fan.addProperty(Pegasus::CIMProperty(CIMName("Id"), CIMValue(String(name.c_str()))));
        fan.addProperty(Pegasus::CIMProperty(CIMName("Speed"), CIMValue(Pegasus::Uint16(7))));
        return fan;
    }

    Namespace MakeConnected() {
        const Namespace nameSpace = MakeNamespace();
        nameSpace->connect(nodes_.Hosts(), Names(2), Names(2));
        return nameSpace;
    }

    FakeNodes nodes_;
    const Names all_{"left a", "left b", "right a", "right b"};
};

/// What a host holds of a namespace that is gone.
struct Held {
    boost::shared_ptr<TCimHTTPClass> cimClass;
    boost::shared_ptr<ICIMPropertyDecl> property;
    boost::shared_ptr<ICIMMethodDecl> method;
    boost::shared_ptr<ICIMQualifier> qualifier;
    boost::shared_ptr<ICIMInstance> instance;
    boost::shared_ptr<ICIMInstance> other;
};

struct Use {
    const char* name;
    std::function<void(Held&)> run;
};

const auto kTakeAll = [](const auto&) { return true; };

TCIMReference ReferenceTo(const std::string& path) {
    TCIMReference reference{boost::shared_ptr<ICIMNamespace>(), TContext()};
    reference.SetPath(path);
    return reference;
}

const std::vector<Use>& UsesWithoutANamespace() {
    static const std::vector<Use> uses{
        {"class Validate", [](Held& held) { held.cimClass->Validate(TContext()); }},
        {"class GetName", [](Held& held) { held.cimClass->GetName(TContext()); }},
        {"class GetNamespace", [](Held& held) { EXPECT_FALSE(held.cimClass->GetNamespace(TContext())); }},
        {"class IsAssociation", [](Held& held) { held.cimClass->IsAssociation(TContext()); }},
        {"class IsAbstract", [](Held& held) { held.cimClass->IsAbstract(TContext()); }},
        {"class EnumerateSubclasses",
         [](Held& held) { held.cimClass->EnumerateSubclasses(kTakeAll, true, TContext()); }},
        {"class IsSubclassOf", [](Held& held) { held.cimClass->IsSubclassOf(held.cimClass, TContext()); }},
        {"class EnumerateKeyPropertyNames",
         [](Held& held) { held.cimClass->EnumerateKeyPropertyNames(kTakeAll, TContext()); }},
        {"class AllocatePropertyDecl",
         [](Held& held) { held.cimClass->AllocatePropertyDecl("New", TCIMValue(1), TContext()); }},
        {"class GetPropertyDecl", [](Held& held) { held.cimClass->GetPropertyDecl("Speed", TContext()); }},
        {"class EnumeratePropertyDecls",
         [](Held& held) { held.cimClass->EnumeratePropertyDecls(kTakeAll, TContext()); }},
        {"class GetMemberEntry", [](Held& held) { held.cimClass->GetMemberEntry("Speed", TContext()); }},
        {"class EnumerateMemberEntries",
         [](Held& held) { held.cimClass->EnumerateMemberEntries(kTakeAll, TContext()); }},
        {"class CreateInstance", [](Held& held) { held.cimClass->CreateInstance(TContext()); }},
        {"class AllocateMethodDecl",
         [](Held& held) { held.cimClass->AllocateMethodDecl("Go", TCIMValue(1).GetType(), TContext()); }},
        {"class GetMethodDecl", [](Held& held) { held.cimClass->GetMethodDecl("Stop", TContext()); }},
        {"class EnumerateMethodDecls",
         [](Held& held) { held.cimClass->EnumerateMethodDecls(kTakeAll, TContext()); }},
        {"class comparisons",
         [](Held& held) {
             EXPECT_TRUE(*held.cimClass == *held.cimClass);
             EXPECT_FALSE(*held.cimClass < *held.cimClass);
         }},
        {"class AddInstance", [](Held& held) { held.cimClass->AddInstance(held.instance, TContext()); }},
        {"class RemoveInstance",
         [](Held& held) { held.cimClass->RemoveInstance(held.instance, TContext()); }},
        {"class AddPropertyDecl",
         [](Held& held) {
             held.cimClass->AddPropertyDecl(
                 held.cimClass->AllocatePropertyDecl("New", TCIMValue(1), TContext()), TContext());
         }},
        {"class AddQualifier", [](Held& held) { held.cimClass->AddQualifier(held.qualifier, TContext()); }},
        {"class GetQualifier", [](Held& held) { held.cimClass->GetQualifier("Version", TContext()); }},
        {"class EnumerateQualifiers",
         [](Held& held) { held.cimClass->EnumerateQualifiers(kTakeAll, TContext()); }},
        {"property GetClass", [](Held& held) { held.property->GetClass(TContext()); }},
        {"property GetValue", [](Held& held) { held.property->GetValue(TContext()); }},
        {"property EnumerateQualifiers",
         [](Held& held) { held.property->EnumerateQualifiers(kTakeAll, TContext()); }},
        {"property Commit", [](Held& held) { held.property->Commit(TContext()); }},
        {"method GetClass", [](Held& held) { held.method->GetClass(TContext()); }},
        {"method EnumerateParameterDecls",
         [](Held& held) { held.method->EnumerateParameterDecls(kTakeAll, TContext()); }},
        {"qualifier GetNamespace",
         [](Held& held) { EXPECT_FALSE(held.qualifier->GetNamespace(TContext())); }},
        {"qualifier GetQualifierDecl", [](Held& held) { held.qualifier->GetQualifierDecl(TContext()); }},
        {"qualifier GetValue", [](Held& held) { held.qualifier->GetValue(TContext()); }},
        {"instance Validate", [](Held& held) { held.instance->Validate(TContext()); }},
        {"instance Commit", [](Held& held) { held.instance->Commit(TContext()); }},
        {"instance ModifyInstance",
         [](Held& held) { held.instance->ModifyInstance(held.other, TContext()); }},
        {"instance Delete", [](Held& held) { held.instance->Delete(TContext()); }},
        {"instance GetReference",
         [](Held& held) {
             EXPECT_EQ(held.instance->GetReference(TContext()).GetPath(), "N_Fan.Id=\"left a\"");
         }},
        {"instance GetInstanceReference",
         [](Held& held) { held.instance->GetInstanceReference(TContext()); }},
        {"instance GetClass",
         [](Held& held) { EXPECT_EQ(held.instance->GetClass(TContext()), held.cimClass); }},
        {"instance GetPegasusNSPStr", [](Held& held) { held.instance->GetPegasusNSPStr(TContext()); }},
        {"instance EnumerateAssociatedInstances",
         [](Held& held) { held.instance->EnumerateAssociatedInstances(kTakeAll, TContext()); }},
        {"instance EnumerateAssociationInstances",
         [](Held& held) { held.instance->EnumerateAssociationInstances(kTakeAll, TContext()); }},
        {"instance GetProperty",
         [](Held& held) {
             EXPECT_EQ(held.instance->GetProperty("Speed", TContext())->GetValue(TContext()).ToString(10),
                       "7");
         }},
        {"instance SetPropertyValue",
         [](Held& held) {
             held.instance->SetPropertyValue("Speed", TCIMValue(static_cast<unsigned short>(8)), TContext());
         }},
        {"instance EnumerateProperties",
         [](Held& held) { held.instance->EnumerateProperties(kTakeAll, TContext()); }},
        {"instance comparisons",
         [](Held& held) {
             EXPECT_TRUE(*held.instance == *held.instance);
             EXPECT_TRUE(*held.instance < *held.other);
         }},
        {"instance assignment", [](Held& held) { *held.instance = *held.other; }}};
    return uses;
}

const std::vector<Use>& UsesOfANamespace() {
    static const std::vector<Use> uses{
        {"class Initialize", [](Held& held) { held.cimClass->Initialize(); }},
        {"class Commit", [](Held& held) { held.cimClass->Commit(TContext()); }},
        {"class IsTopLevel", [](Held& held) { EXPECT_FALSE(held.cimClass->IsTopLevel(TContext())); }},
        {"class GetSuperClass", [](Held& held) { EXPECT_FALSE(held.cimClass->GetSuperClass(TContext())); }},
        {"class EnumerateReferencedClasses",
         [](Held& held) { held.cimClass->EnumerateReferencedClasses(kTakeAll, TContext()); }},
        {"class EnumerateReferencedClassesByName",
         [](Held& held) { held.cimClass->EnumerateReferencedClassesByName("N_Base", kTakeAll, TContext()); }},
        {"class EnumerateInstances",
         [](Held& held) { held.cimClass->EnumerateInstances(kTakeAll, true, TContext()); }},
        {"class FindInstance",
         [](Held& held) {
             EXPECT_FALSE(held.cimClass->FindInstance(ReferenceTo("N_Fan.Id=\"left a\""), TContext()));
         }},
        {"class InvokeMethod",
         [](Held& held) {
             TCIMValue result(1);
             TContext outputs;
             held.cimClass->InvokeMethod(result, ReferenceTo("N_Fan.Id=\"left a\""), "Stop", TContext(),
                                         outputs, TContext());
             EXPECT_TRUE(result.IsNull());
         }},
        {"class AllocateQualifier",
         [](Held& held) { held.cimClass->AllocateQualifier("Version", TCIMValue("2"), TContext()); }},
        {"property AllocateQualifier",
         [](Held& held) { held.property->AllocateQualifier("Version", TCIMValue("2"), TContext()); }},
        {"instance InvokeMethod", [](Held& held) {
             TCIMValue result(1);
             TContext outputs;
             held.instance->InvokeMethod(result, "Stop", TContext(), outputs, TContext());
             EXPECT_TRUE(result.IsNull());
         }}};
    return uses;
}

/// After the end of the namespace.
class WithoutItsNamespace : public CarelessHost {
protected:
    Held HoldOn() {
        const Namespace nameSpace = MakeConnected();
        Held held;
        held.cimClass = GetClass(nameSpace, "N_Fan");
        held.property = held.cimClass->GetPropertyDecl("Speed", TContext());
        held.method = held.cimClass->GetMethodDecl("Stop", TContext());
        held.qualifier = held.cimClass->GetQualifier("Version", TContext());
        const Instances instances = InstancesOf(held.cimClass);
        held.instance = instances.at(0);
        held.other = instances.at(1);
        return held;
    }

    /// Whether a use was refused, if it was, in the way that the plug-in refuses.
    static void Run(const Use& use, Held& held) {
        try {
            use.run(held);
        } catch (const TVSKException& refusal) {
            EXPECT_NE(refusal.GetStatusCode(), eVSKSuccess);
        }
    }
};

TEST_F(WithoutItsNamespace, WhatNeedsNoneIsAnswered) {
    for (const Use& use : UsesWithoutANamespace()) {
        SCOPED_TRACE(use.name);
        Held held = HoldOn();
        log_.Clear();
        nodes_.Clear();
        Run(use, held);
        EXPECT_TRUE(nodes_.Requests().empty());
        for (const RecordingLogger::Line& line : log_.Lines()) {
            EXPECT_EQ(line.second.find("px != 0"), std::string::npos) << line.second;
        }
    }
}

TEST_F(WithoutItsNamespace, WhatNeedsOneSaysWhatIsMissing) {
    for (const Use& use : UsesOfANamespace()) {
        SCOPED_TRACE(use.name);
        Held held = HoldOn();
        log_.Clear();
        nodes_.Clear();
#ifdef NDEBUG
        Run(use, held);
        EXPECT_TRUE(nodes_.Requests().empty());
        EXPECT_TRUE(
            std::any_of(log_.Lines().begin(), log_.Lines().end(), [](const RecordingLogger::Line& line) {
                return line.first == 0 && line.second.find("px != 0") != std::string::npos;
            }));
#else
        EXPECT_DEATH(Run(use, held), "px != 0");
#endif
    }
}

// Callbacks

TEST_F(CarelessHost, WhatACallbackThrowsReachesTheHostAndTheNextEnumerationIsWhole) {
    const Namespace nameSpace = MakeConnected();
    const Class fan = GetClass(nameSpace, "N_Fan");
    for (const bool deep : {false, true}) {
        int calls = 0;
        EXPECT_THROW(fan->EnumerateInstances(
                         [&](const Instance&) -> bool {
                             ++calls;
                             throw std::logic_error("not now");
                         },
                         deep, TContext()),
                     std::logic_error);
        EXPECT_EQ(calls, 1);
        EXPECT_EQ(TextsOf(InstancesOf(fan), "Id"), all_);
    }
    const Instance instance = InstancesOf(fan).at(0);
    const auto throwing = [](const auto&) -> bool { throw std::logic_error("not now"); };
    EXPECT_THROW(instance->EnumerateProperties(throwing, TContext()), std::logic_error);
    EXPECT_THROW(fan->EnumeratePropertyDecls(throwing, TContext()), std::logic_error);
    EXPECT_THROW(fan->EnumerateMethodDecls(throwing, TContext()), std::logic_error);
    EXPECT_THROW(fan->EnumerateQualifiers(throwing, TContext()), std::logic_error);
    EXPECT_THROW(GetClass(nameSpace, "N_Base")->EnumerateKeyPropertyNames(throwing, TContext()),
                 std::logic_error);
    EXPECT_THROW(nameSpace->EnumerateQualifierDecls(throwing, TContext()), std::logic_error);
    EXPECT_NO_THROW(nameSpace->EnumerateRootClasses(throwing, TContext())) << "one class keeps no other away";
    EXPECT_EQ(TextsOf(InstancesOf(fan), "Id"), all_);
}

TEST_F(CarelessHost, ACallbackMayAskForClassesAndInstancesOfThisAndOthers) {
    const Namespace nameSpace = MakeConnected();
    const Class fan = GetClass(nameSpace, "N_Fan");
    Names seen;
    fan->EnumerateInstances(
        [&](const Instance& instance) {
            seen.push_back(TextOf(instance, "Id"));
            EXPECT_EQ(GetClass(nameSpace, "N_Fan"), fan);
            EXPECT_FALSE(GetClass(nameSpace, "N_Absent"));
            EXPECT_EQ(TextsOf(InstancesOf(fan), "Id"), all_);
            EXPECT_TRUE(InstancesOf(GetClass(nameSpace, "N_Base")).empty());
            EXPECT_TRUE(nameSpace->GetInstance(instance->GetReference(TContext()), TContext()));
            return true;
        },
        false, TContext());
    EXPECT_EQ(seen, all_);
}

TEST_F(CarelessHost, ACallbackMayDisconnectAndConnectAnew) {
    const Namespace nameSpace = MakeConnected();
    const Class fan = GetClass(nameSpace, "N_Fan");
    Names seen;
    fan->EnumerateInstances(
        [&](const Instance& instance) {
            seen.push_back(TextOf(instance, "Id"));
            nameSpace->disconnect();
            EXPECT_FALSE(GetClass(nameSpace, "N_Fan"));
            EXPECT_TRUE(InstancesOf(fan).empty());
            nameSpace->connect(nodes_.Hosts(), Names(2), Names(2));
            EXPECT_EQ(TextsOf(InstancesOf(fan), "Id"), all_);
            return true;
        },
        true, TContext());
    EXPECT_EQ(seen, all_) << "what was collected before";
}

TEST_F(CarelessHost, ACallbackMayEmptyTheNamespace) {
    const Namespace nameSpace = MakeConnected();
    Names seen;
    GetClass(nameSpace, "N_Base")
        ->EnumerateSubclasses(
            [&](const boost::shared_ptr<ICIMClass>& each) {
                seen.push_back(each->GetName(TContext()));
                return true;
            },
            true, TContext());
    GetClass(nameSpace, "N_Fan");
    nameSpace->EnumerateRootClasses(
        [&](const boost::shared_ptr<ICIMClass>& each) {
            seen.push_back(each->GetName(TContext()));
            nameSpace->DeInit();
            return true;
        },
        TContext());
    EXPECT_FALSE(seen.empty());
    EXPECT_FALSE(GetClass(nameSpace, "N_Fan")) << "without a remote name";
}

TEST_F(CarelessHost, ACallbackMayLetGoOfTheNamespaceAndTheClass) {
    Namespace nameSpace = MakeConnected();
    Class fan = GetClass(nameSpace, "N_Fan");
    TCimHTTPClass& enumerated = *fan;
    Class kept = fan;  // a host calls an operation of an object that it holds
    Names seen;
    enumerated.EnumerateInstances(
        [&](const Instance& instance) {
            nameSpace.reset();
            fan.reset();
            seen.push_back(TextOf(instance, "Id"));
            return true;
        },
        false, TContext());
    EXPECT_EQ(seen, all_);
    EXPECT_FALSE(kept->GetNamespace(TContext()));
}

}  // namespace
}  // namespace NQELVSK20
