#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include <boost/weak_ptr.hpp>
#include <functional>
#include <string>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "qelc/TQELCNamespace.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "vskcore/ICIMIndicationFilter.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMSubscription.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {
namespace {

using Lines = std::vector<RecordingLogger::Line>;
using Names = std::vector<std::string>;

class QueriesTest : public PluginTest {
protected:
    static TestMachine::Options Bare() {
        TestMachine::Options options;
        options.sampleData = false;
        return options;
    }

    QueriesTest() {
        machine_.Repository(0).addDeclarations(
            "root/cimv2",
            Declarations({ClassXml("T_Base", "", KeyXml("Id", "uint32")), ClassXml("T_B", "T_Base"),
                          ClassXml("T_A", "T_Base"), ClassXml("T_AA", "T_A"),
                          InstanceXml("T_A", PropertyXml("Id", "uint32", "2")),
                          InstanceXml("T_A", PropertyXml("Id", "uint32", "1"))}),
            "queries");
    }

    TestMachine machine_{Bare()};
};

TEST_F(QueriesTest, ClassNamesAreDirectSubclassesEvenWithTheFlag) {
    const auto nameSpace = Connected(machine_);
    Names names{"left over"};
    EXPECT_TRUE(nameSpace->EnumerateClassNames("root/cimv2", "T_Base", names, true));
    EXPECT_EQ(names, (Names{"T_B", "T_A"}));
    EXPECT_FALSE(machine_.Option(0, "DeepInheritance"));
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::EnumerateClassNames"},
                                   {3, "Exiting TCimHTTPNamespace::EnumerateClassNames"}}));
}

TEST_F(QueriesTest, ClassNamesOfNoClassAreTheTopLevelOnes) {
    const auto nameSpace = Connected(machine_);
    Names names;
    EXPECT_TRUE(nameSpace->EnumerateClassNames("root/cimv2", "", names, false));
    EXPECT_EQ(names, (Names{"T_Base"}));
}

TEST_F(QueriesTest, EmptyClassNamesGiveFalseAndBothMessages) {
    const auto nameSpace = Connected(machine_);
    Names names{"left over"};
    EXPECT_FALSE(nameSpace->EnumerateClassNames("root/cimv2", "T_AA", names, false));
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::EnumerateClassNames"},
                                   {3, "Exiting TCimHTTPNamespace::EnumerateClassNames"}}));
}

TEST_F(QueriesTest, InstanceNamesComeInTheServersOrder) {
    const auto nameSpace = Connected(machine_);
    Names names{"left over"};
    EXPECT_TRUE(nameSpace->EnumerateInstanceNames("root/cimv2", "T_A", names));
    EXPECT_EQ(names, (Names{"T_A.Id=2", "T_A.Id=1"}));
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::EnumerateInstanceNames"},
                                   {3, "Exiting TCimHTTPNamespace::EnumerateInstanceNames"}}));
}

TEST_F(QueriesTest, EmptyInstanceNamesGiveFalseAndBothMessages) {
    const auto nameSpace = Connected(machine_);
    Names names{"left over"};
    EXPECT_FALSE(nameSpace->EnumerateInstanceNames("root/cimv2", "T_B", names));
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::EnumerateInstanceNames"},
                                   {3, "Exiting TCimHTTPNamespace::EnumerateInstanceNames"}}));
}

TEST_F(QueriesTest, MalformedNamesAreRefusedByTheLibraryBeforeAnythingIsSent) {
    const auto nameSpace = Connected(machine_);
    Names names;
    EXPECT_THROW(nameSpace->EnumerateClassNames("root/cimv2", "no name", names, false),
                 Pegasus::InvalidNameException);
    EXPECT_THROW(nameSpace->EnumerateInstanceNames("root/cimv2", "no name", names),
                 Pegasus::InvalidNameException);
    EXPECT_THROW(nameSpace->EnumerateClassNames("no*name", "T_A", names, false),
                 Pegasus::InvalidNamespaceNameException);
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::EnumerateClassNames"},
                                   {3, "Entering TCimHTTPNamespace::EnumerateInstanceNames"},
                                   {3, "Entering TCimHTTPNamespace::EnumerateClassNames"}}));
    EXPECT_TRUE(machine_.Requests().empty());
}

TEST_F(QueriesTest, WalkIsOneRequestAndAlwaysTrue) {
    const auto nameSpace = Connected(machine_);
    EXPECT_TRUE(
        nameSpace->EnumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"), Pegasus::CIMName("T_A")));
    EXPECT_TRUE(
        nameSpace->EnumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"), Pegasus::CIMName("None")));
    EXPECT_EQ(machine_.Requests(), (Names{"0 EnumerateInstances T_A", "0 EnumerateInstances None"}));
    EXPECT_TRUE(machine_.Option(0, "DeepInheritance"));
    EXPECT_TRUE(machine_.Option(0, "LocalOnly"));
    EXPECT_FALSE(machine_.Option(0, "IncludeQualifiers"));
    EXPECT_FALSE(machine_.Option(0, "IncludeClassOrigin"));
    EXPECT_EQ(log_.Lines().size(), 1U) << "only the client's line about the unknown class";
}

// What the walk reads it neither keeps nor logs: that it ends well, whatever there is to read, is all that a
// caller can see of it.
TEST_F(QueriesTest, WalkEndsWellOverPropertiesOfEveryKind) {
    const std::string array = "<PROPERTY.ARRAY NAME=\"Texts\" TYPE=\"string\">";
    const std::string reference = "<PROPERTY.REFERENCE NAME=\"Other\" REFERENCECLASS=\"T_A\">";
    machine_.Repository(0).addDeclarations(
        "root/cimv2",
        Declarations(
            {ClassXml("T_Kinds", "",
                      KeyXml("Id", "string") + PropertyXml("Null", "datetime") +
                          PropertyXml("Real", "real64") + PropertyXml("When", "datetime") + array +
                          "</PROPERTY.ARRAY>" + reference + "</PROPERTY.REFERENCE>"),
             InstanceXml("T_Kinds", PropertyXml("Id", "string", "a")),
             InstanceXml("T_Kinds",
                         PropertyXml("Id", "string", "b") + PropertyXml("Real", "real64", "-1.5e300") +
                             PropertyXml("When", "datetime", "20260228******.******+060") + array +
                             "<VALUE.ARRAY><VALUE>x</VALUE><VALUE/></VALUE.ARRAY></PROPERTY.ARRAY>" +
                             reference +
                             "<VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"T_A\"><KEYBINDING NAME=\"Id\">"
                             "<KEYVALUE VALUETYPE=\"numeric\">1</KEYVALUE></KEYBINDING></INSTANCENAME>"
                             "</VALUE.REFERENCE></PROPERTY.REFERENCE>")}),
        "kinds");
    const auto nameSpace = Connected(machine_);
    EXPECT_TRUE(
        nameSpace->EnumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"), Pegasus::CIMName("T_Kinds")));
    EXPECT_EQ(log_.Lines(), Lines{}) << "the client understood the answer";
}

TEST_F(QueriesTest, AnswersOfAnUninitialisedNamespaceAreEmpty) {
    const auto nameSpace = MakeUninitNamespace();
    Names names{"left over"};
    EXPECT_FALSE(nameSpace->EnumerateClassNames("root/cimv2", "T_A", names, false));
    EXPECT_FALSE(nameSpace->EnumerateInstanceNames("root/cimv2", "T_A", names));
    EXPECT_TRUE(
        nameSpace->EnumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"), Pegasus::CIMName("T_A")));
    EXPECT_TRUE(names.empty());
}

TEST_F(QueriesTest, ProviderIsTheSingleton) {
    EXPECT_EQ(MakeNamespace()->GetNamespaceProvider(TContext()), TCimHTTPNamespaceProvider::GetInstance());
}

TEST_F(QueriesTest, UpcallNamespaceIsTheOneSet) {
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace(new TCimHTTPNamespace(false, "root/cimv2"));
    EXPECT_FALSE(nameSpace->GetUpcallNamespace());
    nameSpace->SetUpcallNamespace(common_, TContext());
    EXPECT_EQ(nameSpace->GetUpcallNamespace(), common_);
    nameSpace->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(), TContext());
    EXPECT_FALSE(nameSpace->GetUpcallNamespace());
}

TEST_F(QueriesTest, UnsupportedOperationsThrowWithoutALogLine) {
    const auto nameSpace = MakeNamespace();
    const TCIMReference reference{boost::shared_ptr<ICIMNamespace>(), TContext()};
    const auto anyInstance = [](boost::shared_ptr<ICIMInstance>) { return true; };
    std::string query = "SELECT * FROM T_A";
    const auto expectStatus = [](int status, const std::function<void()>& operation) {
        try {
            operation();
            FAIL() << "no exception";
        } catch (const TVSKException& error) {
            EXPECT_EQ(error.GetStatusCode(), status);
        }
    };
    expectStatus(31, [&] { nameSpace->AddUnderlyingNamespace(common_, TContext()); });
    expectStatus(
        1, [&] { nameSpace->Subscribe(boost::shared_ptr<ICIMIndicationFilter>(), anyInstance, TContext()); });
    expectStatus(1, [&] { nameSpace->DeleteInstance(reference, TContext()); });
    expectStatus(1, [&] { nameSpace->ModifyInstance(reference, TContext(), TContext()); });
    expectStatus(1, [&] { nameSpace->ExecuteQuery(anyInstance, query, anyInstance, TContext()); });
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(QueriesTest, ProvidersAreNeverEnumerated) {
    const auto nameSpace = Connected(machine_);
    bool called = false;
    nameSpace->EnumerateProviders([&](boost::shared_ptr<IProvider>) { return called = true; }, TContext());
    EXPECT_FALSE(called);
}

TEST_F(QueriesTest, ClearInstancesLeavesClassesAndCollectedInstancesAsTheyWere) {
    const auto nameSpace = Connected(machine_);
    const auto cimClass = nameSpace->GetClass("T_A", TContext());
    boost::weak_ptr<ICIMInstance> collected;
    cimClass->EnumerateInstances(
        [&](const boost::shared_ptr<ICIMInstance>& instance) {
            collected = instance;
            return true;
        },
        false, TContext());
    ASSERT_FALSE(collected.expired());
    machine_.ClearRequests();
    log_.Clear();

    nameSpace->ClearInstances();
    EXPECT_TRUE(log_.Lines().empty());
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_EQ(nameSpace->GetClass("T_A", TContext()), cimClass);
    TCIMReference second{boost::shared_ptr<ICIMNamespace>(), TContext()};
    second.SetPath("T_A.Id=2");
    EXPECT_EQ(nameSpace->GetInstance(second, TContext()), collected.lock());
    EXPECT_FALSE(collected.expired());
    EXPECT_EQ(machine_.Requests(), Names{}) << "neither the class nor the instance was asked for again";
}

class QueriesOnSeveralNodesTest : public PluginTest {
protected:
    QueriesOnSeveralNodesTest() { machine_.ClearRequests(); }

    /// Whether a request asks for no certain properties.
    bool AsksForEveryProperty(std::size_t request) {
        return machine_.Server().requests().at(request).body.find("PropertyList") == std::string::npos;
    }

    TestMachine machine_{3};
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace_{Connected(machine_)};
};

TEST_F(QueriesOnSeveralNodesTest, OnlyTheFirstNodeIsAskedForClassNames) {
    Names names;
    EXPECT_TRUE(nameSpace_->EnumerateClassNames("root/cimv2", "CIM_ManagedElement", names, true));
    EXPECT_EQ(machine_.Requests(), Names{"0 EnumerateClassNames CIM_ManagedElement"});
    EXPECT_FALSE(machine_.Option(0, "DeepInheritance"));
}

TEST_F(QueriesOnSeveralNodesTest, OnlyTheFirstNodeIsAskedForInstanceNames) {
    Names names;
    EXPECT_TRUE(nameSpace_->EnumerateInstanceNames("root/cimv2", "OMC_NumericSensor", names));
    EXPECT_EQ(machine_.Requests(), Names{"0 EnumerateInstanceNames OMC_NumericSensor"});
}

TEST_F(QueriesOnSeveralNodesTest, OnlyTheFirstNodesInstancesAreWalked) {
    EXPECT_TRUE(nameSpace_->EnumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"),
                                               Pegasus::CIMName("OMC_NumericSensor")));
    EXPECT_EQ(machine_.Requests(), Names{"0 EnumerateInstances OMC_NumericSensor"});
    EXPECT_TRUE(machine_.Option(0, "DeepInheritance"));
    EXPECT_TRUE(machine_.Option(0, "LocalOnly"));
    EXPECT_FALSE(machine_.Option(0, "IncludeQualifiers"));
    EXPECT_FALSE(machine_.Option(0, "IncludeClassOrigin"));
    EXPECT_TRUE(AsksForEveryProperty(0));
}

TEST_F(QueriesOnSeveralNodesTest, OnlyTheFirstNodeIsAskedForASuperclass) {
    const auto cimClass = nameSpace_->GetClass("OMC_NumericSensor", TContext());
    ASSERT_TRUE(cimClass);
    machine_.ClearRequests();
    EXPECT_TRUE(cimClass->GetSuperClass(TContext()));
    EXPECT_EQ(machine_.Requests(), Names{"0 GetClass OMC_NumericSensor"});
    EXPECT_TRUE(machine_.Option(0, "LocalOnly"));
    EXPECT_TRUE(machine_.Option(0, "IncludeQualifiers"));
    EXPECT_FALSE(machine_.Option(0, "IncludeClassOrigin"));
    EXPECT_TRUE(AsksForEveryProperty(0));
}

TEST_F(QueriesOnSeveralNodesTest, EveryNodeIsAskedForTheMembersOfAClassInTheSameWay) {
    nameSpace_->AllocateClass("OMC_NumericSensor", {}, TContext());
    ASSERT_EQ(machine_.Requests(), (Names{"0 GetClass OMC_NumericSensor", "1 GetClass OMC_NumericSensor",
                                          "2 GetClass OMC_NumericSensor"}));
    for (std::size_t node = 0; node < 3; ++node) {
        EXPECT_TRUE(machine_.Option(node, "LocalOnly"));
        EXPECT_TRUE(machine_.Option(node, "IncludeQualifiers"));
        EXPECT_FALSE(machine_.Option(node, "IncludeClassOrigin"));
        EXPECT_TRUE(AsksForEveryProperty(node));
    }
}

TEST_F(QueriesOnSeveralNodesTest, OnlyTheFirstNodeRunsMethods) {
    const auto cimClass = nameSpace_->AllocateClass("OMC_UnitaryComputerSystem", {}, TContext());
    machine_.ClearRequests();
    TCIMReference path{boost::shared_ptr<ICIMNamespace>(), TContext()};
    path.SetPath(R"(OMC_UnitaryComputerSystem.CreationClassName="OMC_UnitaryComputerSystem",)"
                 R"(Name="node-0.machine.example")");
    TCIMValue result;
    TContext outputs;
    cimClass->InvokeMethod(result, path, "RequestStateChange", TContext(), outputs, TContext());
    EXPECT_FALSE(result.IsNull());
    EXPECT_EQ(machine_.Requests(), Names{"0 RequestStateChange OMC_UnitaryComputerSystem"});
}

}  // namespace
}  // namespace NQELVSK20
