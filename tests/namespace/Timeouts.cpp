#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/TCIMReference.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;
using Timeouts = std::vector<unsigned int>;

/// How long each request may take, in milliseconds and in the order of the requests.
class TimeoutsTest : public PluginTest {
protected:
    TimeoutsTest() {
        machine_.Repository(0).addDeclarations(
            "root/cimv2",
            Declarations({ClassXml("OMC_EchoService", "",
                                   KeyXml("Name", "string") + "<METHOD NAME=\"Ping\" TYPE=\"uint32\"/>"),
                          ClassXml("T_Sub", "OMC_EchoService"),
                          InstanceXml("OMC_EchoService", PropertyXml("Name", "string", "echo"))}),
            "timeouts");
        nameSpace_ = Connected(machine_);
        timeouts_.clear();
    }

    static TestMachine::Options Bare() {
        TestMachine::Options options;
        options.sampleData = false;
        return options;
    }

    /// A class whose own time-out is that of the context; nothing of what came before is on record.
    boost::shared_ptr<ICIMClass> Allocate(const TContext& context) {
        auto cimClass = nameSpace_->AllocateClass("OMC_EchoService", {}, context);
        timeouts_.clear();
        return cimClass;
    }

    static void CallPing(ICIMClass& service) {
        TCIMReference path{boost::shared_ptr<ICIMNamespace>(), TContext()};
        path.SetPath("OMC_EchoService.Name=\"echo\"");
        TCIMValue result;
        TContext outputs;
        service.InvokeMethod(result, path, "Ping", TContext(), outputs, TContext());
        EXPECT_EQ(result.ToString(10), "0");
    }

    static void EnumerateInstancesOf(ICIMClass& cimClass) {
        cimClass.EnumerateInstances([](const boost::shared_ptr<ICIMInstance>&) { return true; }, false,
                                    TContext());
    }

    /// Without what instances ask for when they are read, which are their classes.
    Timeouts FirstTwo() const {
        return {timeouts_.begin(), timeouts_.begin() + (timeouts_.size() < 2 ? 0 : 2)};
    }

    TestMachine machine_{Bare()};
    boost::shared_ptr<TCimHTTPNamespace> nameSpace_;
};

TEST_F(TimeoutsTest, ClassNamesMayTakeThreeSeconds) {
    Names names;
    EXPECT_TRUE(nameSpace_->EnumerateClassNames("root/cimv2", "", names, true));
    EXPECT_EQ(timeouts_, Timeouts{3000});
}

TEST_F(TimeoutsTest, InstanceNamesMayTakeFifteenSeconds) {
    Names names;
    EXPECT_TRUE(nameSpace_->EnumerateInstanceNames("root/cimv2", "OMC_EchoService", names));
    EXPECT_EQ(timeouts_, Timeouts{15000});
}

TEST_F(TimeoutsTest, WalkOverInstancesMayTakeAMinute) {
    EXPECT_TRUE(nameSpace_->EnumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"),
                                               Pegasus::CIMName("OMC_EchoService")));
    EXPECT_EQ(timeouts_, Timeouts{60000});
}

TEST_F(TimeoutsTest, ClassMayTakeFifteenSecondsForEachOfItsThreeRequests) {
    ASSERT_TRUE(nameSpace_->GetClass("OMC_EchoService", TContext()));
    EXPECT_EQ(timeouts_, (Timeouts{15000, 15000, 15000}));
}

TEST_F(TimeoutsTest, CallersClassTimeoutIsForTheClassItselfAndNotForItsAncestors) {
    ASSERT_TRUE(nameSpace_->GetClass("T_Sub", {{"GCTimeout", TCIMValue(30000U)}}));
    EXPECT_EQ(machine_.Requests().at(0), "0 GetClass T_Sub");
    EXPECT_EQ(machine_.Requests().at(1), "0 GetClass OMC_EchoService");
    // The two definitions; then each class's own members and its superclass.
    EXPECT_EQ(timeouts_, (Timeouts{30000, 15000, 15000, 15000, 15000, 15000}));
}

TEST_F(TimeoutsTest, AncestorsDoNotGetTheCallersInstanceTimeout) {
    const auto sub = nameSpace_->GetClass("T_Sub", {{"EITimeout", TCIMValue(90000U)}});
    ASSERT_TRUE(sub);
    timeouts_.clear();
    EnumerateInstancesOf(*sub);
    EnumerateInstancesOf(*nameSpace_->GetClass("OMC_EchoService", TContext()));
    EXPECT_EQ(FirstTwo(), (Timeouts{90000, 60000}));
}

TEST_F(TimeoutsTest, ClassReadsItsMembersWithinFifteenSecondsWhateverItsOwnTimeoutIs) {
    nameSpace_->AllocateClass("OMC_EchoService", {},
                              {{"EITimeout", TCIMValue(90000U)}, {"GCTimeout", TCIMValue(80000U)}});
    EXPECT_EQ(timeouts_, Timeouts{15000});
}

TEST_F(TimeoutsTest, SuperclassIsAskedForWithinFifteenSecondsWhateverTheClasssTimeoutIs) {
    const auto cimClass = Allocate({{"EITimeout", TCIMValue(90000U)}});
    EXPECT_TRUE(cimClass->GetSuperClass({{"GCTimeout", TCIMValue(80000U)}}));
    EXPECT_EQ(timeouts_, Timeouts{15000});
}

TEST_F(TimeoutsTest, MethodMayTakeAMinute) {
    CallPing(*Allocate(TContext()));
    EXPECT_EQ(timeouts_, Timeouts{60000});
}

TEST_F(TimeoutsTest, MethodMayTakeAsLongAsTheInstancesOfItsClass) {
    const auto cimClass = Allocate({{"EITimeout", TCIMValue(90000U)}});
    CallPing(*cimClass);
    EnumerateInstancesOf(*cimClass);
    EXPECT_EQ(FirstTwo(), (Timeouts{90000, 90000}));
}

TEST_F(TimeoutsTest, ShorterInstanceTimeoutIsRaisedForMethodsToo) {
    CallPing(*Allocate({{"EITimeout", TCIMValue(5000U)}}));
    EXPECT_EQ(timeouts_, Timeouts{60000});
}

}  // namespace
}  // namespace NQELVSK20
