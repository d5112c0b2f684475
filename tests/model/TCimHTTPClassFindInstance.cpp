#include <gtest/gtest.h>

#include <algorithm>
#include <boost/weak_ptr.hpp>
#include <cstddef>
#include <string>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

class TCimHTTPClassFindInstance : public ModelTest {
protected:
    TCimHTTPClassFindInstance() : machine_(Nodes(1)) {
        Declare(machine_,
                {ClassXml("X_Fan", "", KeyXml("Id", "string") + KeyXml("Zone", "uint8")),
                 InstanceXml("X_Fan", PropertyXml("Id", "string", "a") + PropertyXml("Zone", "uint8", "1")),
                 InstanceXml("X_Fan", PropertyXml("Id", "string", "b") + PropertyXml("Zone", "uint8", "2"))});
        namespace_ = Connected(machine_);
        class_ = GetClass(namespace_, "X_Fan");
        machine_.ClearRequests();
    }

    Instance Find(const std::string& path) { return class_->FindInstance(Reference(path), TContext()); }

    std::ptrdiff_t Enumerations() {
        const Names requests = machine_.Requests();
        return std::count(requests.begin(), requests.end(), "0 EnumerateInstances X_Fan");
    }

    TestMachine machine_;
    Namespace namespace_;
    Class class_;
};

TEST_F(TCimHTTPClassFindInstance, LooksAmongTheInstancesCollectedLast) {
    const Instances instances = InstancesOf(class_);
    machine_.ClearRequests();
    EXPECT_EQ(Find("X_Fan.Id=\"a\",Zone=1"), instances[0]);
    EXPECT_EQ(class_->FindInstance(instances[1]->GetReference(TContext()), TContext()), instances[1]);
    EXPECT_EQ(machine_.Requests(), Names{});
}

TEST_F(TCimHTTPClassFindInstance, EnumeratesOnceWhenNothingWasCollected) {
    const Instance found = Find("X_Fan.Id=\"b\",Zone=2");
    ASSERT_TRUE(found);
    EXPECT_EQ(TextOf(found, "Zone"), "2");
    EXPECT_EQ(Enumerations(), 1);
    EXPECT_EQ(Find("X_Fan.Id=\"b\",Zone=2"), found);
    EXPECT_EQ(Enumerations(), 1);
}

TEST_F(TCimHTTPClassFindInstance, AsksForTheInstancesWithTheirOwnPropertiesAlone) {
    ASSERT_TRUE(Find("X_Fan.Id=\"b\",Zone=2"));
    const Names requests = machine_.Requests();
    ASSERT_EQ(requests.at(0), "0 EnumerateInstances X_Fan");
    EXPECT_FALSE(machine_.Option(0, "DeepInheritance"));
    EXPECT_TRUE(machine_.Option(0, "LocalOnly"));
}

TEST_F(TCimHTTPClassFindInstance, FindsAnInstanceUnderEverySpellingOfItsPath) {
    const Instances instances = InstancesOf(class_);
    for (const char* path :
         {"root/cimv2:X_Fan.Id=\"a\",Zone=1", "//any.host/root/cimv2:X_Fan.Id=\"a\",Zone=1",
          "X_Fan.Zone=1,Id=\"a\"", "x_fan.ID=\"a\",ZONE=1"}) {
        EXPECT_EQ(Find(path), instances[0]) << path;
    }
}

TEST_F(TCimHTTPClassFindInstance, GivesAnEmptyPointerAfterOneEnumerationWhenThereIsNone) {
    EXPECT_FALSE(Find("X_Fan.Id=\"c\",Zone=1"));
    EXPECT_EQ(Enumerations(), 1);
    EXPECT_FALSE(Find("X_Fan"));
    EXPECT_FALSE(Find("X_Fan.Id=\"a"));
    EXPECT_FALSE(Find(""));
}

TEST_F(TCimHTTPClassFindInstance, IsWhatTheNamespaceGetsAnInstanceWith) {
    const Instance found = namespace_->GetInstance(Reference("root/cimv2:X_Fan.Id=\"a\",Zone=1"), TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(found, Find("X_Fan.Id=\"a\",Zone=1"));
    EXPECT_FALSE(namespace_->GetInstance(Reference("X_Fan.Id=\"z\",Zone=1"), TContext()));
}

TEST_F(TCimHTTPClassFindInstance, ForgottenInstancesAreNotFoundWithoutAServer) {
    InstancesOf(class_);
    machine_.Kill(0);
    EXPECT_TRUE(Find("X_Fan.Id=\"a\",Zone=1"));
    class_->ForgetInstances();
    EXPECT_FALSE(Find("X_Fan.Id=\"a\",Zone=1"));
}

TEST_F(TCimHTTPClassFindInstance, WhatWasCollectedDoesNotOutliveTheNamespace) {
    boost::weak_ptr<ICIMInstance> collected;
    boost::weak_ptr<TCimHTTPClass> owner;
    {
        const Namespace nameSpace = MakeNamespace();
        ConnectTo(*nameSpace, machine_);
        const Class fan = GetClass(nameSpace, "X_Fan");
        collected = InstancesOf(fan).at(0);
        owner = fan;
        ASSERT_FALSE(collected.expired());
    }
    EXPECT_TRUE(collected.expired());
    EXPECT_TRUE(owner.expired());
}

TEST_F(TCimHTTPClassFindInstance, AnInstanceThatTheHostKeepsOutlivesTheNamespace) {
    Instance kept;
    {
        const Namespace nameSpace = MakeNamespace();
        ConnectTo(*nameSpace, machine_);
        kept = InstancesOf(GetClass(nameSpace, "X_Fan")).at(0);
    }
    EXPECT_EQ(TextOf(kept, "Id"), "a");
    EXPECT_EQ(kept->GetReference(TContext()).GetPath(), "X_Fan.Id=\"a\",Zone=1");
}

}  // namespace
}  // namespace NQELVSK20
