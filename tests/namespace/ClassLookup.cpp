#include <gtest/gtest.h>

#include <boost/pointer_cast.hpp>
#include <string>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "qelc/TQELCNamespace.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "tests/support/RawAnswers.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "tests/support/schema/TInmemClass.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {
namespace {

using Access = TCimHTTPNamespaceTestAccess;
using Lines = std::vector<RecordingLogger::Line>;
using Names = std::vector<std::string>;

std::string From(const std::string& name) {
    return "TCimHTTPNamespace::GetClass from Pegasus for: " + name;
}

std::string Gc(const std::string& name, const std::string& what) {
    return "TCimHTTPNamespace::GetClass " + name + what;
}

class ClassLookupTest : public PluginTest {
protected:
    static TestMachine::Options Bare(std::size_t nodes = 1) {
        TestMachine::Options options;
        options.nodes = nodes;
        options.sampleData = false;
        return options;
    }

    /// As Connected, without TLS: an attempt after a time-out connects anew, and a handshake on a busy
    /// machine would take the short time that it has.
    boost::shared_ptr<TCimHTTPNamespace> ConnectedOverHttp(TestMachine& machine) {
        const auto nameSpace = MakeNamespace();
        nameSpace->ConnectViaHttp(machine.Host(0), "", "", 5988);
        log_.Clear();
        return nameSpace;
    }

    /// A chain T_A > T_B > T_C > T_D on every node.
    static void DeclareChain(TestMachine& machine) {
        for (std::size_t node = 0; node < machine.Hosts().size(); ++node) {
            machine.Repository(node).addDeclarations(
                "root/cimv2",
                Declarations({ClassXml("T_A", "", KeyXml("Id", "string")), ClassXml("T_B", "T_A"),
                              ClassXml("T_C", "T_B"), ClassXml("T_D", "T_C"),
                              ClassXml("QEL_RemoteNode", "", KeyXml("Id", "string"))}),
                "chain");
        }
    }

    static std::string QualifierOf(ICIMClass& cimClass, const std::string& name) {
        const auto qualifier = dynamic_cast<ICIMNamedElement&>(cimClass).GetQualifier(name, TContext());
        return qualifier ? qualifier->GetValue(TContext()).ToString(10) : "(none)";
    }

    /// A class in the union namespace, with one property.
    void DeclareInUnion(const std::string& name, const std::string& superclass = "") {
        const auto cimClass = union_->AllocateClass(
            name,
            superclass.empty() ? boost::shared_ptr<ICIMClass>() : union_->GetClass(superclass, TContext()),
            TContext());
        cimClass->AllocatePropertyDecl("FromUnion", TCIMValue("x"), TContext())->Commit(TContext());
        cimClass->Commit(TContext());
    }

    static std::vector<std::string> Subclasses(const TCimHTTPNamespace& nameSpace) {
        Names names;
        const_cast<TCimHTTPNamespace&>(nameSpace).EnumerateRootClasses(
            [&](boost::shared_ptr<ICIMClass> cimClass) {
                names.push_back(cimClass->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }
};

TEST_F(ClassLookupTest, UnconnectedNamespaceHasNoClassesAndSaysNothing) {
    const auto nameSpace = MakeNamespace();
    EXPECT_FALSE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_FALSE(nameSpace->GetClass("", TContext()));
    EXPECT_FALSE(nameSpace->GetClass("no name", TContext()));
    EXPECT_TRUE(Subclasses(*nameSpace).empty());
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(ClassLookupTest, EmptyNameAndRootGiveTheRootClass) {
    TestMachine machine(Bare());
    const auto nameSpace = Connected(machine);
    const auto root = nameSpace->GetClass("", TContext());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->GetName(TContext()), "<root>");
    EXPECT_EQ(nameSpace->GetClass("<root>", TContext()), root);
    EXPECT_EQ(log_.Lines(), (Lines{{3, "TCimHTTPNamespace::GetClass  : return <root>"},
                                   {3, "TCimHTTPNamespace::GetClass <root> : return <root>"}}));
    EXPECT_TRUE(machine.Requests().empty());
}

TEST_F(ClassLookupTest, RootInOtherLetterCaseIsNoName) {
    TestMachine machine(Bare());
    const auto nameSpace = Connected(machine);
    EXPECT_FALSE(nameSpace->GetClass("<ROOT>", TContext()));
    EXPECT_EQ(log_.Lines(), (Lines{{0, "CimHTTP: CIM name '<ROOT>' is invalid"}}));
}

TEST_F(ClassLookupTest, InvalidNamesAreLoggedAndGiveNothing) {
    TestMachine machine(Bare());
    const auto nameSpace = Connected(machine);
    for (const std::string name : {"no name", "no-name"}) {
        log_.Clear();
        EXPECT_FALSE(nameSpace->GetClass(name, TContext()));
        EXPECT_EQ(log_.Lines(), (Lines{{0, "CimHTTP: CIM name '" + name + "' is invalid"}}));
    }
    EXPECT_TRUE(machine.Requests().empty());
}

TEST_F(ClassLookupTest, RemoteNodeClassIsSkippedOnASingleNodeMachine) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    for (const unsigned long long count : {0ULL, 1ULL}) {
        log_.Clear();
        THostSetup::SetNodeCount(count);
        EXPECT_FALSE(nameSpace->GetClass("QEL_RemoteNode", TContext()));
        EXPECT_EQ(log_.Lines(), (Lines{{3, "TCimHTTPNamespace::GetClass skip QEL_RemoteNode"}}));
    }
    EXPECT_TRUE(machine.Requests().empty());
}

TEST_F(ClassLookupTest, RemoteNodeClassIsFetchedOnAMultiNodeMachine) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    THostSetup::SetNodeCount(2);
    const auto fetched = nameSpace->GetClass("QEL_RemoteNode", TContext());
    ASSERT_TRUE(fetched);
    EXPECT_EQ(fetched->GetName(TContext()), "QEL_RemoteNode");
}

TEST_F(ClassLookupTest, RemoteNodeClassInOtherLetterCaseIsNotSkippedButSharesTheKey) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    const auto fetched = nameSpace->GetClass("qel_remotenode", TContext());
    ASSERT_TRUE(fetched);
    THostSetup::SetNodeCount(2);
    EXPECT_EQ(nameSpace->GetClass("QEL_RemoteNode", TContext()), fetched);
}

TEST_F(ClassLookupTest, NamesThatNormaliseAlikeShareOneCacheEntry) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    const auto first = nameSpace->GetClass("t_a", TContext());
    ASSERT_TRUE(first);
    EXPECT_EQ(first->GetName(TContext()), "T_A") << "spelled as the server spells it";
    log_.Clear();
    machine.ClearRequests();
    EXPECT_EQ(nameSpace->GetClass("T_A", TContext()), first);
    EXPECT_EQ(log_.Lines(), (Lines{{3, From("T_A")}, {3, Gc("T_A", " Found in TCimHTTPNamespace")}}));
    EXPECT_TRUE(machine.Requests().empty());
}

TEST_F(ClassLookupTest, LogOfATopLevelClassReadsSo) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    ASSERT_TRUE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_EQ(log_.Lines(), (Lines{{3, From("T_A")},
                                   {3, Gc("", " : return <root>")},  // its superclass
                                   {3, Gc("", " : return <root>")},  // its superclass once more, to attach to
                                   {3, Gc("T_A", " Now it is Found in TCimHTTPNamespace")}}));
}

TEST_F(ClassLookupTest, ClassWithThreeAncestorsAsksOneNodeForExactlyThis) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    ASSERT_TRUE(nameSpace->GetClass("T_D", TContext()));
    // Down the chain for the definitions; then, from the top, each class's own members and its superclass.
    EXPECT_EQ(machine.Requests(),
              (Names{"0 GetClass T_D", "0 GetClass T_C", "0 GetClass T_B", "0 GetClass T_A",  //
                     "0 GetClass T_A", "0 GetClass T_A", "0 GetClass T_B", "0 GetClass T_B",  //
                     "0 GetClass T_C", "0 GetClass T_C", "0 GetClass T_D", "0 GetClass T_D"}));
}

TEST_F(ClassLookupTest, ClassWithThreeAncestorsAsksThreeNodesForExactlyThis) {
    TestMachine machine(Bare(3));
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    ASSERT_TRUE(nameSpace->GetClass("T_D", TContext()));
    EXPECT_EQ(machine.Requests(),
              (Names{"0 GetClass T_D", "0 GetClass T_C", "0 GetClass T_B", "0 GetClass T_A",  //
                     "0 GetClass T_A", "1 GetClass T_A", "2 GetClass T_A", "0 GetClass T_A",  //
                     "0 GetClass T_B", "1 GetClass T_B", "2 GetClass T_B", "0 GetClass T_B",  //
                     "0 GetClass T_C", "1 GetClass T_C", "2 GetClass T_C", "0 GetClass T_C",  //
                     "0 GetClass T_D", "1 GetClass T_D", "2 GetClass T_D", "0 GetClass T_D"}));
}

TEST_F(ClassLookupTest, FetchedChainAgreesWithTheSchema) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    const auto bottom = nameSpace->GetClass("T_D", TContext());
    ASSERT_TRUE(bottom);
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_A", "T_B", "T_C", "T_D"}));
    EXPECT_TRUE(bottom->IsSubclassOf(nameSpace->GetClass("T_A", TContext()), TContext()));
    EXPECT_FALSE(nameSpace->GetClass("T_A", TContext())->IsSubclassOf(bottom, TContext()));
    EXPECT_EQ(bottom->GetSuperClass(TContext()), nameSpace->GetClass("T_C", TContext()));
}

TEST_F(ClassLookupTest, FetchedClassIsStampedWithPluginNameAndVersion) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    const auto fetched = nameSpace->GetClass("T_B", TContext());
    ASSERT_TRUE(fetched);
    EXPECT_EQ(QualifierOf(*fetched, "PLUGINNAME"), "cimhttp.nsp");
    EXPECT_EQ(QualifierOf(*fetched, "PLUGINVERSION"), "1.0");
}

TEST_F(ClassLookupTest, FetchAsksForEverythingButClassOrigin) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    nameSpace->GetClass("t_A", TContext());
    const std::string body = machine.Server().requests().at(0).body;
    EXPECT_NE(body.find("\"t_A\""), std::string::npos) << "the name as given: " << body;
    EXPECT_FALSE(machine.Option(0, "LocalOnly"));
    EXPECT_TRUE(machine.Option(0, "IncludeQualifiers"));
    EXPECT_FALSE(machine.Option(0, "IncludeClassOrigin"));
    EXPECT_EQ(body.find("PropertyList"), std::string::npos) << body;
}

TEST_F(ClassLookupTest, UnknownClassGivesNothingAndIsAskedForAgain) {
    TestMachine machine(Bare());
    const auto nameSpace = Connected(machine);
    EXPECT_FALSE(nameSpace->GetClass("T_None", TContext()));
    EXPECT_FALSE(nameSpace->GetClass("T_None", TContext()));
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass T_None", "0 GetClass T_None"}));
    EXPECT_EQ(log_.LinesWith("CIMException in PegClient::GetClass(): ").size(), 2U);
}

TEST_F(ClassLookupTest, TimeOutGivesNothingIsLoggedAndTheNextCallTriesAgain) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = ConnectedOverHttp(machine);
    shortened_ = 100;
    cimom::Fault silence;
    silence.kind = cimom::Fault::Kind::NoAnswer;
    machine.Server().inject(silence);
    EXPECT_FALSE(nameSpace->GetClass("T_A", TContext()));
    const std::string timedOut = "ConnectionTimeoutException in PegClient::GetClass(): connection timed out";
    EXPECT_EQ(log_.Lines(), (Lines{{3, From("T_A")},
                                   {3, timedOut},
                                   {3, timedOut},
                                   {3,
                                    "TCimHTTPNamespace::GetClass after AllocateClass from Pegasus for: T_A "
                                    "returned exception: connection timed out"}}));
    shortened_.reset();
    machine.Server().clearFaults();
    EXPECT_TRUE(nameSpace->GetClass("T_A", TContext()));
}

/// One node's fault for the Nth request about a class.
cimom::Fault RefusesOnce(const std::string& host, const std::string& className) {
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.address = host;
    fault.className = className;
    fault.code = 1;
    fault.times = 1;
    return fault;
}

/// A request about a class that is to be answered, so that a fault behind it meets the next one.
cimom::Fault Passes(const std::string& host, const std::string& className) {
    cimom::Fault fault = RefusesOnce(host, className);
    fault.kind = cimom::Fault::Kind::Delay;
    return fault;
}

TEST_F(ClassLookupTest, ClassWhoseOwnFetchFailsOnEveryNodeIsNotCached) {
    TestMachine machine(Bare(2));
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    machine.Server().inject(Passes(machine.Host(0), "T_A"));
    machine.Server().inject(RefusesOnce(machine.Host(0), "T_A"));
    machine.Server().inject(RefusesOnce(machine.Host(1), "T_A"));
    EXPECT_FALSE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass T_A", "0 GetClass T_A", "1 GetClass T_A"}));
    EXPECT_TRUE(log_.LinesWith(Gc("T_A", " Now it is Found")).empty());
    EXPECT_TRUE(Subclasses(*nameSpace).empty());

    const auto found = nameSpace->GetClass("T_A", TContext());
    ASSERT_TRUE(found) << "asked again";
    EXPECT_TRUE(found->GetPropertyDecl("Id", TContext()));
}

TEST_F(ClassLookupTest, ClassWhoseOwnFetchTimesOutIsNotCachedAndSaysSo) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = ConnectedOverHttp(machine);
    machine.Server().inject(Passes(machine.Host(0), "T_A"));
    cimom::Fault silence;
    silence.kind = cimom::Fault::Kind::NoAnswer;
    machine.Server().inject(silence);
    shortened_ = 200;
    EXPECT_FALSE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_EQ(log_.Lines().back(),
              RecordingLogger::Line(3,
                                    "TCimHTTPNamespace::GetClass after AllocateClass from Pegasus for: T_A "
                                    "returned exception: connection timed out"));
    shortened_.reset();
    machine.Server().clearFaults();
    const auto found = nameSpace->GetClass("T_A", TContext());
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->GetPropertyDecl("Id", TContext()));
}

TEST_F(ClassLookupTest, FailedQuestionForTheSuperclassDoesNotFlattenTheChain) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    // Its definition, its own members, and then the question where to attach it.
    machine.Server().inject(Passes(machine.Host(0), "T_B"));
    machine.Server().inject(Passes(machine.Host(0), "T_B"));
    machine.Server().inject(RefusesOnce(machine.Host(0), "T_B"));
    const auto found = nameSpace->GetClass("T_B", TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(log_.LinesWith("CIMException in PegClient::GetClass(): ").size(), 1U);
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_A", "T_B"}));
    EXPECT_TRUE(found->IsSubclassOf(nameSpace->GetClass("T_A", TContext()), TContext()));
    EXPECT_EQ(found->GetSuperClass(TContext()), nameSpace->GetClass("T_A", TContext()));
    Names below;
    nameSpace->GetClass("<root>", TContext())
        ->EnumerateSubclasses(
            [&](boost::shared_ptr<ICIMClass> cimClass) {
                below.push_back(cimClass->GetName(TContext()));
                return true;
            },
            false, TContext());
    EXPECT_EQ(below, Names{"T_A"});
}

TEST_F(ClassLookupTest, BrokenChainGivesNothingButKeepsTheAncestorsBuilt) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    // Its definition can be had, its own members cannot: by then the classes above it are there.
    machine.Server().inject(Passes(machine.Host(0), "T_C"));
    machine.Server().inject(RefusesOnce(machine.Host(0), "T_C"));
    EXPECT_FALSE(nameSpace->GetClass("T_D", TContext()));
    EXPECT_EQ(machine.Requests().back(), "0 GetClass T_C");
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_A", "T_B"}));

    machine.ClearRequests();
    EXPECT_TRUE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_TRUE(nameSpace->GetClass("T_B", TContext()));
    EXPECT_EQ(machine.Requests(), Names{}) << "the ancestors are cached";
    EXPECT_TRUE(nameSpace->GetClass("T_D", TContext()));
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass T_D", "0 GetClass T_C", "0 GetClass T_C",
                                         "0 GetClass T_C", "0 GetClass T_D", "0 GetClass T_D"}));
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_A", "T_B", "T_C", "T_D"}));
}

TEST_F(ClassLookupTest, ClassThatDerivesFromItselfIsAskedForOnceAndGivesNothing) {
    TestMachine machine(Bare());
    const auto nameSpace = Connected(machine);
    AnswerGetClassWith(machine, *nameSpace->getPegClient(), {ClassXml("T_Loop", "T_Loop")});
    EXPECT_FALSE(nameSpace->GetClass("T_Loop", TContext()));
    EXPECT_EQ(machine.Requests(), Names{"0 GetClass T_Loop"});
    EXPECT_TRUE(log_.LinesWith("Exception in PegClient").empty()) << "an answer that the client understood";
    EXPECT_TRUE(Subclasses(*nameSpace).empty());
}

TEST_F(ClassLookupTest, ClassesThatDeriveFromEachOtherAreAskedForOnceAndGiveNothing) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    AnswerGetClassWith(machine, *nameSpace->getPegClient(),
                       {ClassXml("T_A", "T_B"), ClassXml("T_B", "t_a")});  // names have no letter case
    EXPECT_FALSE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass T_A", "0 GetClass T_B"}));
    EXPECT_TRUE(log_.LinesWith("Exception in PegClient").empty());

    EXPECT_TRUE(nameSpace->GetClass("T_B", TContext())) << "once the server has put that right";
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_A", "T_B"}));
}

/// Declares T_1 and below it T_2 and so on, each below the one before.
void DeclareLevels(TestMachine& machine, std::size_t count) {
    std::string superclass;
    for (std::size_t level = 1; level <= count; ++level) {
        const std::string name = "T_" + std::to_string(level);
        machine.Repository(0).addDeclarations("root/cimv2", Declarations({ClassXml(name, superclass)}),
                                              "levels");
        superclass = name;
    }
}

TEST_F(ClassLookupTest, ChainOfTwoHundredLevelsIsFound) {
    TestMachine machine(Bare());
    DeclareLevels(machine, 200);
    const auto nameSpace = Connected(machine);
    EXPECT_TRUE(nameSpace->GetClass("T_200", TContext()));
    EXPECT_EQ(Subclasses(*nameSpace).size(), 200U);
}

TEST_F(ClassLookupTest, ChainOfMoreThanTwoHundredLevelsGivesNothing) {
    TestMachine machine(Bare());
    DeclareLevels(machine, 201);
    const auto nameSpace = Connected(machine);
    EXPECT_FALSE(nameSpace->GetClass("T_201", TContext()));
    EXPECT_EQ(machine.Requests().size(), 200U);
    EXPECT_EQ(machine.Requests().back(), "0 GetClass T_2");
    EXPECT_TRUE(Subclasses(*nameSpace).empty());
    EXPECT_TRUE(nameSpace->GetClass("T_1", TContext())) << "a lookup that failed leaves no mark";
}

TEST_F(ClassLookupTest, ContextTimeoutsOnlyRaiseTheDefaults) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    // Without nodes' own fetches: the last time-out set is that of GetClass itself, the class being unknown.
    const auto timeoutWith = [&](const TContext& context) {
        nameSpace->GetClass("T_None", context);
        return nameSpace->getPegClient()->GetCIMClient()->getTimeout();
    };
    EXPECT_EQ(timeoutWith(TContext()), 15000U);
    EXPECT_EQ(timeoutWith({{"GCTimeout", TCIMValue(5000U)}}), 15000U);
    EXPECT_EQ(timeoutWith({{"GCTimeout", TCIMValue(15000U)}}), 15000U);
    EXPECT_EQ(timeoutWith({{"GCTimeout", TCIMValue(30000U)}}), 30000U);
    EXPECT_EQ(timeoutWith({{"GCTimeout", TCIMValue("40000")}}), 40000U);
}

TEST_F(ClassLookupTest, InstanceTimeoutOnlyRaisesItsDefault) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto timeoutWith = [&](const TContext& context) {
        const auto nameSpace = Connected(machine);
        const auto cimClass = nameSpace->GetClass("T_A", context);
        cimClass->EnumerateInstances([](boost::shared_ptr<ICIMInstance>) { return true; }, false, TContext());
        return nameSpace->getPegClient()->GetCIMClient()->getTimeout();
    };
    EXPECT_EQ(timeoutWith(TContext()), 60000U);
    EXPECT_EQ(timeoutWith({{"EITimeout", TCIMValue(5000U)}}), 60000U);
    EXPECT_EQ(timeoutWith({{"EITimeout", TCIMValue(90000U)}}), 90000U);
}

TEST_F(ClassLookupTest, SecondClassOfANameIsRefusedWithoutTheFlag) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    const auto first = nameSpace->GetClass("T_A", TContext());
    const auto second =
        boost::dynamic_pointer_cast<TCimHTTPClass>(nameSpace->AllocateClass("t_a", {}, TContext()));
    log_.Clear();
    try {
        Access::AddClass(*nameSpace, second);
        FAIL() << "no exception";
    } catch (const TVSKException& error) {
        EXPECT_EQ(error.GetStatusCode(), 16);
    }
    EXPECT_EQ(log_.Lines(), (Lines{{3, "TCimHTTPNamespace: class t_a already defined"}}));
    EXPECT_EQ(nameSpace->GetClass("T_A", TContext()), first);
}

TEST_F(ClassLookupTest, SecondClassOfANameReplacesTheFirstWithTheFlagAndKeepsItsSubclasses) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine, "root/cimv2", true);
    ASSERT_TRUE(nameSpace->GetClass("T_B", TContext()));
    const auto second =
        boost::dynamic_pointer_cast<TCimHTTPClass>(nameSpace->AllocateClass("T_A", {}, TContext()));
    second->Commit(TContext());
    EXPECT_EQ(nameSpace->GetClass("T_A", TContext()), second);
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_A", "T_B"}));
}

TEST_F(ClassLookupTest, ClassOfAnotherNameThanAskedIsReturnedAfterALevelZeroLine) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    AnswerGetClassWith(machine, *nameSpace->getPegClient(), {ClassXml("T_A", "")});
    const auto found = nameSpace->GetClass("T_Alias", TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->GetName(TContext()), "T_A");
    EXPECT_EQ(log_.Lines(), (Lines{{3, From("T_Alias")},
                                   {3, Gc("", " : return <root>")},
                                   {3, Gc("", " : return <root>")},
                                   {0, Gc("T_Alias", " Not Found - Something Wrong")}}));
    EXPECT_EQ(nameSpace->GetClass("T_A", TContext()), found) << "cached by the name that it has";
}

TEST_F(ClassLookupTest, ClassThatTheServerStampsForGoodCannotBeStampedAndGivesNothing) {
    TestMachine machine(Bare());
    machine.Repository(0).addDeclarations(
        "root/cimv2",
        Declarations({ClassXml("T_Theirs", "",
                               "<QUALIFIER NAME=\"PLUGINNAME\" TYPE=\"string\" OVERRIDABLE=\"false\">"
                               "<VALUE>other.nsp</VALUE></QUALIFIER>" +
                                   KeyXml("Id", "string"))}),
        "theirs");
    const auto nameSpace = Connected(machine);
    const Names requests{"0 GetClass T_Theirs", "0 GetClass T_Theirs"};
    const Lines lines{{3, From("T_Theirs")}, {3, Gc("", " : return <root>")}};
    EXPECT_FALSE(nameSpace->GetClass("T_Theirs", TContext()));
    EXPECT_EQ(machine.Requests(), requests);
    EXPECT_EQ(log_.Lines(), lines);
    EXPECT_TRUE(Subclasses(*nameSpace).empty());

    machine.ClearRequests();
    EXPECT_FALSE(nameSpace->GetClass("T_Theirs", TContext()));
    EXPECT_EQ(machine.Requests(), requests) << "asked again";
}

TEST_F(ClassLookupTest, RemovingAClassLeavesTheCacheUnchanged) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    const auto cimClass = boost::dynamic_pointer_cast<TCimHTTPClass>(nameSpace->GetClass("T_A", TContext()));
    Access::RemoveClass(*nameSpace, cimClass);
    machine.ClearRequests();
    EXPECT_EQ(nameSpace->GetClass("T_A", TContext()), cimClass);
    EXPECT_TRUE(machine.Requests().empty());
}

TEST_F(ClassLookupTest, ClassOfTheUnionNamespaceIsCopiedStampedAndMarked) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    DeclareInUnion("T_A");
    const auto nameSpace = Connected(machine);
    const auto copied = nameSpace->GetClass("T_A", TContext());
    ASSERT_TRUE(copied);
    EXPECT_TRUE(copied->GetPropertyDecl("FromUnion", TContext()));
    EXPECT_TRUE(copied->GetPropertyDecl("NODEID", TContext()));
    EXPECT_EQ(QualifierOf(*copied, "PLUGINNAME"), "cimhttp.nsp");
    EXPECT_EQ(QualifierOf(*copied, "PLUGINVERSION"), "1.0");
    EXPECT_EQ(
        log_.Lines().back(),
        RecordingLogger::Line(3, Gc("T_A", " Now it is Found in TCimHTTPNamespace from union namespace")));
    EXPECT_EQ(nameSpace->GetClass("T_A", TContext()), copied);
}

TEST_F(ClassLookupTest, ClassThatOnlyTheUnionNamespaceKnowsIsFoundAtOnce) {
    TestMachine machine(Bare());
    DeclareInUnion("T_OnlyThere");
    const auto nameSpace = Connected(machine);
    const auto copied = nameSpace->GetClass("T_OnlyThere", TContext());
    ASSERT_TRUE(copied);
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_OnlyThere"}));
}

TEST_F(ClassLookupTest, ChainThatOnlyTheUnionNamespaceKnowsKeepsItsLevels) {
    TestMachine machine(Bare());
    DeclareInUnion("T_Top");
    DeclareInUnion("T_Middle", "T_Top");
    DeclareInUnion("T_Bottom", "T_Middle");
    const auto nameSpace = Connected(machine);
    const auto bottom = nameSpace->GetClass("T_Bottom", TContext());
    ASSERT_TRUE(bottom);
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_Top", "T_Middle", "T_Bottom"}));
    EXPECT_TRUE(bottom->IsSubclassOf(nameSpace->GetClass("T_Top", TContext()), TContext()));
    EXPECT_EQ(bottom->GetSuperClass(TContext()), nameSpace->GetClass("T_Middle", TContext()));
}

TEST_F(ClassLookupTest, ClassThatAnotherPluginStampedIsMarkedAllTheSameAndDeliversItsInstances) {
    TestMachine machine(Bare());
    machine.Repository(0).addDeclarations(
        "root/cimv2",
        Declarations({ClassXml("T_Theirs", "", KeyXml("Id", "string")),
                      InstanceXml("T_Theirs", PropertyXml("Id", "string", "a"))}),
        "theirs");
    union_
        ->AllocateQualifierDecl("PLUGINNAME", TCIMValue(""), ICIMQualifierDecl::eScopeNone,
                                ICIMQualifierDecl::eFlavorNone, TContext())
        ->Commit(TContext());
    const auto theirs = union_->AllocateClass("T_Theirs", boost::shared_ptr<ICIMClass>(), TContext());
    auto& element = dynamic_cast<ICIMNamedElement&>(*theirs);
    element.AddQualifier(element.AllocateQualifier("PLUGINNAME", TCIMValue("other.nsp"), TContext()),
                         TContext());
    theirs->AllocatePropertyDecl("Id", TCIMValue(""), TContext())->Commit(TContext());
    theirs->Commit(TContext());

    const auto nameSpace = Connected(machine);
    const auto copied = nameSpace->GetClass("T_Theirs", TContext());
    ASSERT_TRUE(copied);
    EXPECT_EQ(QualifierOf(*copied, "PLUGINNAME"), "other.nsp");
    EXPECT_TRUE(copied->GetPropertyDecl("NodeID", TContext()));
    EXPECT_EQ(log_.LinesWith("Catch exception for construct plugin name and version").size(), 1U);
    Names nodes;
    copied->EnumerateInstances(
        [&](boost::shared_ptr<ICIMInstance> instance) {
            nodes.push_back(instance->GetProperty("NodeID", TContext())->GetValue(TContext()).ToString(10));
            return true;
        },
        false, TContext());
    EXPECT_EQ(nodes, Names{"1"});
}

TEST_F(ClassLookupTest, StampingThatFailsIsLoggedAndTheClassIsStillReturned) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto cimClass = union_->AllocateClass("T_A", boost::shared_ptr<ICIMClass>(), TContext());
    cimClass->AllocatePropertyDecl("NodeID", TCIMValue(""), TContext())->Commit(TContext());
    cimClass->Commit(TContext());
    const auto nameSpace = Connected(machine);
    EXPECT_TRUE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_EQ(log_.Lines().back(),
              RecordingLogger::Line(3, "Catch exception for construct plugin name and version"));
}

/// A union namespace that fails whenever it is asked.
class FailingUnion : public TInmemUnion {
public:
    using TInmemUnion::operator=;

    boost::shared_ptr<ICIMClass> GetClass(const std::string&, TContext) override {
        throw TVSKException(eVSKNotFound);
    }
};

TEST_F(ClassLookupTest, UnionNamespaceThatThrowsIsLoggedAndTheServerIsAsked) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    common_->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(new FailingUnion), TContext());
    const auto nameSpace = Connected(machine);
    EXPECT_TRUE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_EQ(log_.Lines().at(1),
              RecordingLogger::Line(
                  3, Gc("T_A", " Catch an exception while trying to get this class in union namespace")));
    EXPECT_EQ(log_.Lines().back(),
              RecordingLogger::Line(3, Gc("T_A", " Now it is Found in TCimHTTPNamespace")));
}

/// A union namespace that counts how it is asked.
class CountingUnion : public TInmemUnion {
public:
    using TInmemUnion::operator=;

    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) override {
        asked_.push_back(name + "/" + std::to_string(context.size()));
        return TInmemUnion::GetClass(name, context);
    }

    Names asked_;
};

/// A class whose members cannot be enumerated to their end.
class UnreadableClass : public TInmemClass {
public:
    using TInmemClass::operator=;
    using TInmemClass::TInmemClass;

    void EnumerateMethodDecls(const MethodDeclCallback&, TContext) const override {
        throw TVSKException(eVSKNotFound);
    }
};

/// A union namespace whose classes can be copied half-way only.
class UnreadableUnion : public TInmemUnion {
public:
    using TInmemUnion::operator=;

    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext) override {
        return boost::shared_ptr<ICIMClass>(new UnreadableClass(shared_from_this(), name, {}));
    }
};

TEST_F(ClassLookupTest, CopyThatFailsHalfWayIsReplacedByTheNodesDefinition) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    common_->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(new UnreadableUnion), TContext());
    const auto nameSpace = Connected(machine);
    const auto found = nameSpace->GetClass("T_A", TContext());
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->GetPropertyDecl("Id", TContext())) << "as the node defines it";
    EXPECT_TRUE(found->GetPropertyDecl("NodeID", TContext()));
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, From("T_A")},
                     {3, Gc("T_A", " Catch an exception while trying to get this class in union namespace")},
                     {3, Gc("", " : return <root>")},
                     {3, Gc("", " : return <root>")},
                     {3, Gc("T_A", " Now it is Found in TCimHTTPNamespace")}}));
    // That held for the lookup alone: what the host allocates later is a class that the union knows.
    const auto allocated = nameSpace->AllocateClass("T_A", {}, TContext());
    EXPECT_THROW(allocated->GetPropertyDecl("Id", TContext()), TVSKException);
}

TEST_F(ClassLookupTest, CopyThatFailsHalfWayOfAClassThatNoNodeKnowsGivesNothing) {
    TestMachine machine(Bare());
    common_->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(new UnreadableUnion), TContext());
    const auto nameSpace = Connected(machine);
    EXPECT_FALSE(nameSpace->GetClass("T_None", TContext()));
    EXPECT_FALSE(nameSpace->GetClass("T_None", TContext()));
    EXPECT_TRUE(Subclasses(*nameSpace).empty());
}

TEST_F(ClassLookupTest, UnionNamespaceIsAskedTwiceFirstWithTheCallersContext) {
    TestMachine machine(Bare());
    const boost::shared_ptr<CountingUnion> counting(new CountingUnion);
    common_->SetUpcallNamespace(counting, TContext());
    const auto nameSpace = Connected(machine);
    nameSpace->GetClass("T_None", {{"GCTimeout", TCIMValue(1U)}});
    EXPECT_EQ(counting->asked_, (Names{"T_None/1", "T_None/0"}));
}

TEST_F(ClassLookupTest, HypervisorsClassesNeverComeFromTheUnionNamespace) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    machine.Repository(0).addDeclarations(
        "root/cimv2",
        Declarations(
            {ClassXml("VMware_HypervisorSoftwareIdentity", "", KeyXml("InstanceID", "string")),
             InstanceXml("VMware_HypervisorSoftwareIdentity", PropertyXml("InstanceID", "string", "1"))}),
        "hypervisor");
    const boost::shared_ptr<CountingUnion> counting(new CountingUnion);
    common_->SetUpcallNamespace(counting, TContext());
    Access::SetDetectionDone(false);
    const auto nameSpace = Connected(machine);
    EXPECT_TRUE(nameSpace->getIsServeESXi());
    EXPECT_TRUE(nameSpace->GetClass("T_A", TContext()));
    EXPECT_TRUE(counting->asked_.empty());
}

TEST_F(ClassLookupTest, DetectionRunsOnTheFirstMissWhenConnectingDidNotRunIt) {
    TestMachine machine(Bare(2));
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    Access::SetDetectionDone(false);
    nameSpace->GetClass("T_A", TContext());
    nameSpace->GetClass("T_B", TContext());
    EXPECT_EQ(machine.Requests().front(), "0 EnumerateInstances VMware_HypervisorSoftwareIdentity");
    EXPECT_EQ(machine.Requests()[1], "0 GetClass T_A");
}

#ifdef NDEBUG

TEST_F(ClassLookupTest, WithoutAnUpcallNamespaceTheServerIsAskedAfterALevelZeroLine) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    for (const boost::shared_ptr<ICIMNamespace>& upcall :
         {boost::shared_ptr<ICIMNamespace>(), boost::shared_ptr<ICIMNamespace>(union_),
          boost::shared_ptr<ICIMNamespace>(new TQELCNamespace)}) {
        log_.Clear();
        nameSpace->DeInit();
        nameSpace->Init();
        nameSpace->SetUpcallNamespace(upcall, TContext());
        EXPECT_TRUE(nameSpace->GetClass("T_A", TContext()));
        EXPECT_EQ(log_.Lines().at(1), RecordingLogger::Line(0, Gc("T_A", ": assertion failed: px != 0")));
    }
}

TEST_F(ClassLookupTest, InstanceOfAClassThatCannotBeFoundIsEmptyAfterALevelZeroLine) {
    TestMachine machine(Bare());
    const auto nameSpace = Connected(machine);
    TCIMReference reference{boost::shared_ptr<ICIMNamespace>(), TContext()};
    reference.SetPath("T_None.Id=1");
    EXPECT_FALSE(nameSpace->GetInstance(reference, TContext()));
    EXPECT_EQ(
        log_.Lines().back(),
        RecordingLogger::Line(0, "TCimHTTPNamespace::GetInstance T_None.Id=1: assertion failed: px != 0"));
}

#else

using ClassLookupDeathTest = ClassLookupTest;

TEST_F(ClassLookupDeathTest, MissingUpcallNamespaceStopsABuildWithAssertions) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto lookUp = [this] {
        TestMachine machine(Bare());
        const auto nameSpace = Connected(machine);
        nameSpace->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(), TContext());
        nameSpace->GetClass("T_A", TContext());
    };
    EXPECT_DEATH(lookUp(), "px != 0");
}

TEST_F(ClassLookupDeathTest, InstanceOfAClassThatCannotBeFoundStopsABuildWithAssertions) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto lookUp = [this] {
        TestMachine machine(Bare());
        const auto nameSpace = Connected(machine);
        TCIMReference reference{boost::shared_ptr<ICIMNamespace>(), TContext()};
        reference.SetPath("T_None.Id=1");
        nameSpace->GetInstance(reference, TContext());
    };
    EXPECT_DEATH(lookUp(), "px != 0");
}

#endif

TEST_F(ClassLookupTest, EnumerationOfRootClassesStopsWhenTheCallbackSaysFalse) {
    TestMachine machine(Bare());
    DeclareChain(machine);
    const auto nameSpace = Connected(machine);
    nameSpace->GetClass("T_B", TContext());
    THostSetup::SetNodeCount(2);
    nameSpace->GetClass("QEL_RemoteNode", TContext());
    int calls = 0;
    nameSpace->EnumerateRootClasses(
        [&](boost::shared_ptr<ICIMClass>) {
            ++calls;
            return false;
        },
        TContext());
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(Subclasses(*nameSpace), (Names{"T_A", "T_B", "QEL_RemoteNode"}));
}

}  // namespace
}  // namespace NQELVSK20
