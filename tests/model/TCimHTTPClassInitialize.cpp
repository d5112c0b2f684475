#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include <string>

#include "model/TCimHTTPMethodDecl.h"
#include "qelc/TQELCNamespace.h"
#include "tests/model/ModelTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/ICIMParameterDecl.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

class TCimHTTPClassInitialize : public ModelTest {
protected:
    /// The first node leaves so many requests without an answer; -1: every one.
    void Silence(TestMachine& machine, int times) {
        cimom::Fault silence;
        silence.kind = cimom::Fault::Kind::NoAnswer;
        silence.address = machine.Host(0);
        silence.times = times;
        machine.Server().inject(silence);
        shortened_ = 150;
    }

    /// Nodes to time out on: a handshake takes longer on a busy machine than a test wants to wait.
    static TestMachine::Options WithoutTls(std::size_t count) {
        TestMachine::Options options = Nodes(count);
        options.https = false;
        return options;
    }
};

TEST_F(TCimHTTPClassInitialize, TheRootClassIsNeverFetchedAndHasNoMembers) {
    TestMachine machine(Nodes(1));
    const Namespace nameSpace = Connected(machine);
    const Class root = GetClass(nameSpace, "<root>");
    ASSERT_TRUE(root);
    root->Initialize();
    const Class second = Allocate(nameSpace, "<root>");
    EXPECT_FALSE(root->GetSuperClass(TContext()));
    EXPECT_EQ(machine.Requests(), Names{});
    for (const Class& each : {root, second}) {
        EXPECT_EQ(PropertiesOf(each), Names{});
        EXPECT_EQ(MethodsOf(each), Names{});
        EXPECT_EQ(QualifiersOf(*each), Names{});
    }
}

TEST_F(TCimHTTPClassInitialize, TheSecondTimeFetchesNothing) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "", KeyXml("Id", "string"))});
    const Namespace nameSpace = Connected(machine);
    const Class fan = Allocate(nameSpace, "X_Fan");
    EXPECT_EQ(machine.Requests(), Names{"0 GetClass X_Fan"});
    fan->Initialize();
    EXPECT_EQ(machine.Requests(), Names{"0 GetClass X_Fan"});
    EXPECT_EQ(PropertiesOf(fan), (Names{"Id", "NodeID"}));
}

TEST_F(TCimHTTPClassInitialize, AClassThatTheUnionNamespaceKnowsStaysEmpty) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "", KeyXml("Id", "string"))});
    union_->AllocateClass("X_Fan", boost::shared_ptr<ICIMClass>(), TContext())->Commit(TContext());
    const Namespace nameSpace = Connected(machine);
    const Class fan = Allocate(nameSpace, "X_Fan");
    EXPECT_EQ(machine.Requests(), Names{});
    EXPECT_EQ(PropertiesOf(fan), Names{});
    fan->Initialize();
    EXPECT_EQ(machine.Requests(), Names{});
}

class ThrowingUnion : public TInmemUnion {
public:
    using TInmemUnion::operator=;

    boost::shared_ptr<ICIMClass> GetClass(const std::string&, TContext) override {
        throw TVSKException(eVSKNotSupported);
    }
};

TEST_F(TCimHTTPClassInitialize, AFailingUnionNamespaceIsLoggedAndTheServersAreAsked) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "", KeyXml("Id", "string"))});
    common_->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(new ThrowingUnion), TContext());
    const Namespace nameSpace = Connected(machine);
    const Class fan = Allocate(nameSpace, "X_Fan");
    EXPECT_EQ(log_.Lines(),
              (Lines{{3,
                      "TCimHTTPClass::Initialize X_Fan Catch an exception while trying to get this class in "
                      "union namespace"}}));
    EXPECT_EQ(PropertiesOf(fan), (Names{"Id", "NodeID"}));
}

TEST_F(TCimHTTPClassInitialize, AHypervisorsClassesAreNotSoughtInTheUnionNamespace) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("VMware_HypervisorSoftwareIdentity", "",
                               KeyXml("InstanceID", "string") + PropertyXml("VersionString", "string") +
                                   PropertyXml("ElementName", "string")),
                      InstanceXml("VMware_HypervisorSoftwareIdentity",
                                  PropertyXml("InstanceID", "string", "1") +
                                      PropertyXml("VersionString", "string", "5.0.0") +
                                      PropertyXml("ElementName", "string", "VMware ESXi 5.0.0")),
                      ClassXml("X_Fan", "", KeyXml("Id", "string"))});
    union_->AllocateClass("X_Fan", boost::shared_ptr<ICIMClass>(), TContext())->Commit(TContext());
    const Namespace nameSpace = Connected(machine);
    TCimHTTPNamespaceTestAccess::SetDetectionDone(false);
    TCimHTTPNamespaceTestAccess::CheckIsESXi5(*nameSpace);
    ASSERT_TRUE(nameSpace->getIsServeESXi());
    EXPECT_EQ(PropertiesOf(Allocate(nameSpace, "X_Fan")), (Names{"Id", "NodeID"}));
}

TEST_F(TCimHTTPClassInitialize, NodesThatDifferGiveTheUnionAndTheFirstNodeWins) {
    TestMachine machine(Nodes(3));
    DeclareOn(machine, 0,
              {ClassXml("X_Fan", "", PropertyXml("Speed", "uint16") + MethodXml("Stop", "uint32"))});
    DeclareOn(machine, 1,
              {ClassXml("X_Fan", "",
                        PropertyXml("SPEED", "string") + PropertyXml("Alarm", "boolean") +
                            MethodXml("STOP", "string") + MethodXml("Start", "uint8"))});
    DeclareOn(machine, 2,
              {ClassXml("X_Fan", "", PropertyXml("alarm", "uint8") + PropertyXml("Zone", "sint8"))});
    const Class fan = Allocate(Connected(machine), "X_Fan");
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass X_Fan", "1 GetClass X_Fan", "2 GetClass X_Fan"}));
    EXPECT_EQ(PropertiesOf(fan), (Names{"Alarm", "NodeID", "Speed", "Zone"}));
    EXPECT_EQ(fan->GetPropertyDecl("speed", TContext())->GetType(TContext()), Type::eUint16);
    EXPECT_EQ(fan->GetPropertyDecl("alarm", TContext())->GetType(TContext()), Type::eBoolean);
    EXPECT_EQ(MethodsOf(fan), (Names{"Start", "Stop"}));
    EXPECT_EQ(fan->GetMethodDecl("stop", TContext())->GetType(TContext()), Type::eUint32);
}

TEST_F(TCimHTTPClassInitialize, ANodeWithoutTheClassOrDeadContributesNothingAndStopsNothing) {
    TestMachine machine(Nodes(4));
    DeclareOn(machine, 0, {ClassXml("X_Fan", "", PropertyXml("Speed", "uint16"))});
    DeclareOn(machine, 1, {ClassXml("X_Other", "", PropertyXml("Id", "uint16"))});
    DeclareOn(machine, 2, {ClassXml("X_Fan", "", PropertyXml("Lost", "uint16"))});
    DeclareOn(machine, 3, {ClassXml("X_Fan", "", PropertyXml("Alarm", "boolean"))});
    const Namespace nameSpace = Connected(machine);
    machine.Kill(2);
    const Class fan = GetClass(nameSpace, "X_Fan");
    ASSERT_TRUE(fan);
    EXPECT_EQ(PropertiesOf(fan), (Names{"Alarm", "NodeID", "Speed"}));
    EXPECT_EQ(log_.LinesWith("CIMException in PegClient::GetClass(): ").size(), 1U);
    // The dead node is asked once; its client reconnects before the second attempt and after it.
    EXPECT_EQ(log_.LinesWith("CannotConnectException in PegClient::HTTPSConnect(): ").size(), 2U);
    EXPECT_EQ(log_.LinesWith("CannotConnectException in PegClient::HTTPConnect(): ").size(), 2U);
}

TEST_F(TCimHTTPClassInitialize, WhetherAClassExistsIsTheDefaultNodesDecision) {
    TestMachine machine(Nodes(2));
    DeclareOn(machine, 0, {ClassXml("X_Other", "", PropertyXml("Id", "uint16"))});
    DeclareOn(machine, 1, {ClassXml("X_Fan", "", PropertyXml("Alarm", "boolean"))});
    const Namespace nameSpace = Connected(machine);
    EXPECT_FALSE(GetClass(nameSpace, "X_Fan"));
    EXPECT_EQ(machine.Requests(), Names{"0 GetClass X_Fan"});
    EXPECT_EQ(PropertiesOf(Allocate(nameSpace, "X_Fan")), (Names{"Alarm", "NodeID"}));
}

TEST_F(TCimHTTPClassInitialize, EveryClassHasANodeIDUnderAnySpelling) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "")});
    const Namespace nameSpace = Connected(machine);
    for (const Class& fan :
         {Allocate(nameSpace, "X_Fan"), Allocate(MakeUninitNamespace(), "X_WithoutANode")}) {
        for (const char* spelling : {"NodeID", "NODEID", "nodeid"}) {
            const auto node = fan->GetPropertyDecl(spelling, TContext());
            EXPECT_EQ(node->GetName(TContext()), "NodeID");
            EXPECT_EQ(node->GetType(TContext()), Type::eString);
            EXPECT_FALSE(node->GetValue(TContext()).IsNull());
            EXPECT_EQ(node->GetValue(TContext()).ToString(10), "");
        }
    }
}

TEST_F(TCimHTTPClassInitialize, AServersOwnNodeIDStays) {
    TestMachine machine(Nodes(2));
    DeclareOn(machine, 0, {ClassXml("X_Fan", "", PropertyXml("NODEID", "uint8"))});
    DeclareOn(machine, 1, {ClassXml("X_Fan", "", PropertyXml("NodeId", "uint16"))});
    const Class fan = Allocate(Connected(machine), "X_Fan");
    EXPECT_EQ(PropertiesOf(fan), Names{"NODEID"});
    EXPECT_EQ(fan->GetPropertyDecl("NodeID", TContext())->GetType(TContext()), Type::eUint8);
}

TEST_F(TCimHTTPClassInitialize, ALaterNodesOwnNodeIDComesTooLate) {
    TestMachine machine(Nodes(2));
    DeclareOn(machine, 0, {ClassXml("X_Fan", "", PropertyXml("Speed", "uint8"))});
    DeclareOn(machine, 1, {ClassXml("X_Fan", "", PropertyXml("NODEID", "uint16"))});
    const Class fan = Allocate(Connected(machine), "X_Fan");
    EXPECT_EQ(PropertiesOf(fan), (Names{"NodeID", "Speed"}));
    EXPECT_EQ(fan->GetPropertyDecl("NodeID", TContext())->GetType(TContext()), Type::eString);
}

TEST_F(TCimHTTPClassInitialize, MembersKeepTheServersSpellingTypeAndArrayFlagAndHaveNoDefault) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {ClassXml("X_Fan", "",
                      PropertyXml("SpEEd", "real32", "1.5") + ArrayPropertyXml("Names", "string") +
                          ReferenceKeyXml("Owner", "X_Fan") +
                          MethodXml("SetSpeed", "uint32",
                                    "<PARAMETER NAME=\"Zone\" TYPE=\"uint8\"/>"
                                    "<PARAMETER.ARRAY NAME=\"Curve\" TYPE=\"sint16\"/>"
                                    "<PARAMETER.REFERENCE NAME=\"By\" REFERENCECLASS=\"X_Fan\"/>"))});
    const Class fan = Allocate(Connected(machine), "X_Fan");
    EXPECT_EQ(PropertiesOf(fan), (Names{"Names", "NodeID", "Owner", "SpEEd"}));
    const auto speed = fan->GetPropertyDecl("speed", TContext());
    EXPECT_EQ(speed->GetType(TContext()), Type::eReal32);
    EXPECT_FALSE(speed->IsArray(TContext()));
    EXPECT_TRUE(speed->GetValue(TContext()).IsNull());
    EXPECT_EQ(fan->GetPropertyDecl("names", TContext())->GetType(TContext()), Type::eStringArray);
    EXPECT_TRUE(fan->GetPropertyDecl("names", TContext())->IsArray(TContext()));
    EXPECT_EQ(fan->GetPropertyDecl("owner", TContext())->GetType(TContext()), Type::eReference);

    const auto method = fan->GetMethodDecl("setspeed", TContext());
    ASSERT_TRUE(method);
    EXPECT_EQ(method->GetName(TContext()), "SetSpeed");
    EXPECT_EQ(method->GetType(TContext()), Type::eUint32);
    EXPECT_EQ(method->GetClass(TContext()), fan);
    const auto parameterType = [&](const char* name) {
        return method->GetParameterDecl(name, TContext())->GetType(TContext());
    };
    EXPECT_EQ(parameterType("ZONE"), Type::eUint8);
    EXPECT_EQ(parameterType("curve"), Type::eSint16Array);
    EXPECT_EQ(parameterType("by"), Type::eReference);
}

TEST_F(TCimHTTPClassInitialize, QualifiersAreTakenOverAndTheirDeclarationsRegistered) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {ClassXml("X_Fan", "",
                      QualifierXml("Rating", "uint16", "7") +
                          QualifiedPropertyXml("Speed", "uint16", QualifierXml("Unit", "string", "rpm")))});
    const Namespace nameSpace = Connected(machine);
    const Class fan = Allocate(nameSpace, "X_Fan");
    EXPECT_EQ(QualifiersOf(*fan), Names{"Rating"});
    EXPECT_EQ(fan->GetQualifier("RATING", TContext())->GetType(TContext()), Type::eUint16);
    EXPECT_EQ(fan->GetQualifier("RATING", TContext())->GetValue(TContext()).ToString(10), "7");
    const auto unit = fan->GetPropertyDecl("Speed", TContext())->GetQualifier("Unit", TContext());
    EXPECT_EQ(unit->GetValue(TContext()).ToString(10), "rpm");

    const auto rating = nameSpace->GetQualifierDecl("rating", TContext());
    ASSERT_TRUE(rating);
    EXPECT_EQ(rating->GetName(TContext()), "Rating");
    EXPECT_EQ(rating->GetType(TContext()), Type::eUint16);
    EXPECT_TRUE(rating->GetValue(TContext()).IsNull());
    EXPECT_EQ(rating->GetScope(TContext()), ICIMQualifierDecl::eScopeClass);
    // Overridable and to-subclass, as servers say by leaving it out, is a combination without a host flavor.
    EXPECT_EQ(rating->GetFlavor(TContext()), ICIMQualifierDecl::eFlavorNone);
    EXPECT_EQ(nameSpace->GetQualifierDecl("unit", TContext())->GetScope(TContext()),
              ICIMQualifierDecl::eScopeProperty);
}

TEST_F(TCimHTTPClassInitialize, AQualifierDeclarationThatIsThereServesEveryElement) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {ClassXml("X_Fan", "",
                      QualifierXml("Note", "string", "a") +
                          QualifiedPropertyXml("Speed", "uint16", QualifierXml("NOTE", "string", "b")))});
    const Namespace nameSpace = Connected(machine);
    const Class fan = Allocate(nameSpace, "X_Fan");
    const auto note = nameSpace->GetQualifierDecl("Note", TContext());
    EXPECT_EQ(note->GetScope(TContext()), ICIMQualifierDecl::eScopeClass);
    EXPECT_EQ(fan->GetPropertyDecl("Speed", TContext())
                  ->GetQualifier("Note", TContext())
                  ->GetQualifierDecl(TContext()),
              note);
}

TEST_F(TCimHTTPClassInitialize, NodesThatContradictEachOtherAboutAQualifierFailTheClass) {
    TestMachine machine(Nodes(2));
    const std::string fixed = " OVERRIDABLE=\"false\"";
    DeclareOn(machine, 0, {ClassXml("X_Fan", "", QualifierXml("Rating", "uint16", "7", fixed))});
    DeclareOn(machine, 1, {ClassXml("X_Fan", "", QualifierXml("Rating", "uint16", "8", fixed))});
    const Namespace nameSpace = Connected(machine);
    EXPECT_EQ(StatusOf([&] { Allocate(nameSpace, "X_Fan"); }), eVSKQualifierConflict);
    EXPECT_FALSE(GetClass(nameSpace, "X_Fan"));
}

// Firmware of two versions in one machine.
TEST_F(TCimHTTPClassInitialize, ALaterNodeReplacesAQualifierThatMayBeOverridden) {
    TestMachine machine(Nodes(2));
    DeclareOn(machine, 0,
              {ClassXml("X_Fan", "", QualifierXml("Version", "string", "2.19.0")),
               ClassXml("X_Rotor", "X_Fan", QualifierXml("Version", "string", "1"))});
    DeclareOn(machine, 1,
              {ClassXml("X_Fan", "", QualifierXml("Version", "string", "2.20.0")),
               ClassXml("X_Rotor", "X_Fan", QualifierXml("Version", "string", "2"))});
    const Namespace nameSpace = Connected(machine);
    const Class rotor = GetClass(nameSpace, "X_Rotor");
    ASSERT_TRUE(rotor);
    EXPECT_EQ(rotor->GetQualifier("Version", TContext())->GetValue(TContext()).ToString(10), "2");
    const Class fan = GetClass(nameSpace, "X_Fan");
    EXPECT_EQ(fan->GetQualifier("Version", TContext())->GetValue(TContext()).ToString(10), "2.20.0");
    EXPECT_EQ(QualifiersOf(*fan), (Names{"PLUGINNAME", "PLUGINVERSION", "Version"}));
}

TEST_F(TCimHTTPClassInitialize, AQualifierHasTheFlavorThatItHasOnItsElement) {
    TestMachine machine(Nodes(1));
    Declare(
        machine,
        {ClassXml("X_Fan", "",
                  QualifierXml("Plain", "string", "a") +
                      QualifierXml("Local", "string", "a", " TOSUBCLASS=\"false\"") +
                      QualifierXml("Handed", "string", "a", " OVERRIDABLE=\"false\"") +
                      QualifiedPropertyXml("Speed", "uint16",
                                           QualifierXml("Plain", "string", "b", " OVERRIDABLE=\"false\"") +
                                               QualifierXml("Handed", "string", "b")))});
    const Namespace nameSpace = Connected(machine);
    const Class fan = Allocate(nameSpace, "X_Fan");
    const auto flavorOf = [](const ICIMNamedElement& element, const char* name) {
        return element.GetQualifier(name, TContext())->GetFlavor(TContext());
    };
    EXPECT_EQ(flavorOf(*fan, "Plain"), 1U);
    EXPECT_EQ(flavorOf(*fan, "Local"), 1U);
    EXPECT_EQ(flavorOf(*fan, "Handed"), 0U);
    const auto speed = fan->GetPropertyDecl("Speed", TContext());
    EXPECT_EQ(flavorOf(*speed, "Plain"), 0U);
    EXPECT_EQ(flavorOf(*speed, "Handed"), 1U);
    EXPECT_EQ(nameSpace->GetQualifierDecl("Plain", TContext())->GetFlavor(TContext()), 0U)
        << "the declaration's flavor is that of the table, which gives a combination none";
    EXPECT_EQ(nameSpace->GetQualifierDecl("Handed", TContext())->GetFlavor(TContext()), 0U);
}

TEST_F(TCimHTTPClassInitialize, AFlavorOfItsOwnMakesAQualifierNoLessPropagated) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "", QualifierXml("Unset", "string", "x"))});
    const Namespace nameSpace = Connected(machine);
    // A declaration whose default is what the server says, so that the qualifier starts as propagated.
    nameSpace
        ->AllocateQualifierDecl("Unset", TCIMValue("x"), ICIMQualifierDecl::eScopeClass,
                                ICIMQualifierDecl::eFlavorNone, TContext())
        ->Commit(TContext());
    const auto unset = Allocate(nameSpace, "X_Fan")->GetQualifier("Unset", TContext());
    EXPECT_EQ(unset->GetFlavor(TContext()), 1U);
    EXPECT_TRUE(unset->IsPropagated(TContext()));
}

// A definition that nobody gave is no definition.

TEST_F(TCimHTTPClassInitialize, AClassThatNoNodeDefinesIsRefused) {
    TestMachine machine(Nodes(2));
    const Namespace nameSpace = Connected(machine);
    EXPECT_THROW(Allocate(nameSpace, "X_Fan"), Pegasus::UninitializedObjectException);
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass X_Fan", "1 GetClass X_Fan"}));
}

TEST_F(TCimHTTPClassInitialize, AClassIsRefusedByATimeoutWhenANodesLastAttemptWasOne) {
    TestMachine machine(WithoutTls(2));
    DeclareOn(machine, 0, {ClassXml("X_Fan", "")});
    const Namespace nameSpace = Connected(machine);
    Silence(machine, -1);
    EXPECT_THROW(Allocate(nameSpace, "X_Fan"), Pegasus::ConnectionTimeoutException);
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass X_Fan", "0 GetClass X_Fan", "1 GetClass X_Fan"}));
}

TEST_F(TCimHTTPClassInitialize, ATimeoutThatTheSecondAttemptMadeGoodIsNone) {
    TestMachine machine(WithoutTls(1));
    const Namespace nameSpace = Connected(machine);
    Silence(machine, 1);
    longestShortened_ = 15000;
    EXPECT_THROW(Allocate(nameSpace, "X_Fan"), Pegasus::UninitializedObjectException) << "it has no X_Fan";
}

TEST_F(TCimHTTPClassInitialize, OneNodesDefinitionIsEnoughWhateverBecameOfTheOthers) {
    TestMachine machine(WithoutTls(3));
    DeclareOn(machine, 2, {ClassXml("X_Fan", "", KeyXml("Id", "string"))});
    const Namespace nameSpace = Connected(machine);
    Silence(machine, -1);
    EXPECT_EQ(PropertiesOf(Allocate(nameSpace, "X_Fan")), (Names{"Id", "NodeID"}));
}

TEST_F(TCimHTTPClassInitialize, NodesThatAreNotConnectedDefineNothing) {
    EXPECT_THROW(Allocate(MakeNamespace(), "X_Fan"), Pegasus::UninitializedObjectException);
    EXPECT_TRUE(log_.Lines().empty());
}

// A namespace whose table of qualifier declarations fails for one name as the remote library does.
class FailingQualifierTable : public TCimHTTPNamespace {
public:
    using TCimHTTPNamespace::operator=;

    FailingQualifierTable() : TCimHTTPNamespace(false, "root/cimv2") {}

    boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                          TContext context) const override {
        if (name == "Broken") {
            throw Pegasus::CIMException(Pegasus::CIM_ERR_FAILED, "no such declaration");
        }
        return TCimHTTPNamespace::GetQualifierDecl(name, context);
    }
};

TEST_F(TCimHTTPClassInitialize, AQualifierThatCannotBeRetrievedIsMissingFromAUsableClass) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "",
                               QualifierXml("Broken") + QualifierXml("Whole") +
                                   QualifiedPropertyXml("Speed", "uint16",
                                                        QualifierXml("Broken") + QualifierXml("Whole")))});
    const Namespace nameSpace(new FailingQualifierTable);
    nameSpace->Initialize({{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}});
    nameSpace->SetUpcallNamespace(common_, TContext());
    nameSpace->Init();
    ConnectTo(*nameSpace, machine);
    log_.Clear();
    const Class fan = Allocate(nameSpace, "X_Fan");
    EXPECT_EQ(QualifiersOf(*fan), Names{"Whole"});
    EXPECT_EQ(QualifiersOf(*fan->GetPropertyDecl("Speed", TContext())), Names{"Whole"});
    const RecordingLogger::Line line(3, "TCimHTTPClass::Initialize - Unable to retrieve qualifier: Broken");
    EXPECT_EQ(log_.Lines(), (Lines{line, line}));
}

TEST_F(TCimHTTPClassInitialize, WithoutANamespaceItIsABrokenPrecondition) {
    Class fan;
    {
        const Namespace nameSpace = MakeNamespace();
        fan.reset(new TCimHTTPClass(nameSpace, 60000, "X_Fan", Class()));
    }
#ifdef NDEBUG
    log_.Clear();
    fan->Initialize();
    EXPECT_EQ(log_.Lines(), (Lines{{0, "TCimHTTPClass::Initialize X_Fan: assertion failed: px != 0"}}));
    EXPECT_EQ(PropertiesOf(fan), Names{});
#else
    EXPECT_DEATH(fan->Initialize(), "px != 0");
#endif
}

TEST_F(TCimHTTPClassInitialize, CommittingWithoutANamespaceIsABrokenPrecondition) {
    Class fan;
    {
        const Namespace nameSpace = MakeUninitNamespace();
        fan = Allocate(nameSpace, "X_Fan");
    }
#ifdef NDEBUG
    log_.Clear();
    fan->Commit(TContext());
    EXPECT_EQ(log_.Lines(), (Lines{{0, "TCimHTTPClass::Commit X_Fan: assertion failed: px != 0"}}));
#else
    EXPECT_DEATH(fan->Commit(TContext()), "px != 0");
#endif
}

TEST_F(TCimHTTPClassInitialize, EnumeratingWithoutARemoteNameIsABrokenPreconditionForEachNode) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    TestMachine machine(Nodes(2));
    Declare(machine, {ClassXml("X_Fan", "", KeyXml("Id", "string")),
                      InstanceXml("X_Fan", PropertyXml("Id", "string", "a"))});
    const Namespace nameSpace = Connected(machine);
    const Class fan = GetClass(nameSpace, "X_Fan");
    nameSpace->DeInit();
    machine.ClearRequests();
#ifdef NDEBUG
    log_.Clear();
    EXPECT_TRUE(InstancesOf(fan).empty());
    const RecordingLogger::Line line(0, "TCimHTTPClass::EnumerateInstances X_Fan: assertion failed: px != 0");
    EXPECT_EQ(log_.Lines(), (Lines{{3, "DEBUG: TCimHTTPClass:EI Total Clients 2\n"}, line, line}));
#else
    EXPECT_DEATH(InstancesOf(fan), "px != 0");
#endif
    EXPECT_EQ(machine.Requests(), Names{});
}

TEST_F(TCimHTTPClassInitialize, AskingForTheSuperclassWithoutARemoteNameIsABrokenPrecondition) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "")});
    const Namespace nameSpace = Connected(machine);
    const Class fan = GetClass(nameSpace, "X_Fan");
    nameSpace->DeInit();
    machine.ClearRequests();
#ifdef NDEBUG
    log_.Clear();
    EXPECT_FALSE(fan->GetSuperClass(TContext()));
    EXPECT_EQ(log_.Lines(), (Lines{{0, "TCimHTTPClass::GetSuperClass X_Fan: assertion failed: px != 0"}}));
#else
    EXPECT_DEATH(fan->GetSuperClass(TContext()), "px != 0");
#endif
    EXPECT_EQ(machine.Requests(), Names{});
}

// What the servers are asked for a class with three ancestors: its definition and each ancestor's from the
// default node, then from the top down every node's local definition and, to attach the class, its
// superclass.
class RequestsOfOneGetClass : public ModelTest {
protected:
    static void DeclareChain(TestMachine& machine) {
        Declare(machine, {ClassXml("X_Top", "", KeyXml("Id", "string")), ClassXml("X_Upper", "X_Top"),
                          ClassXml("X_Lower", "X_Upper"), ClassXml("X_Leaf", "X_Lower")});
    }
};

TEST_F(RequestsOfOneGetClass, OnOneNode) {
    TestMachine machine(Nodes(1));
    DeclareChain(machine);
    const Namespace nameSpace = Connected(machine);
    ASSERT_TRUE(GetClass(nameSpace, "X_Leaf"));
    EXPECT_EQ(machine.Requests(),
              (Names{"0 GetClass X_Leaf", "0 GetClass X_Lower", "0 GetClass X_Upper", "0 GetClass X_Top",  //
                     "0 GetClass X_Top", "0 GetClass X_Top",                                               //
                     "0 GetClass X_Upper", "0 GetClass X_Upper",                                           //
                     "0 GetClass X_Lower", "0 GetClass X_Lower",                                           //
                     "0 GetClass X_Leaf", "0 GetClass X_Leaf"}));
    machine.ClearRequests();
    EXPECT_TRUE(GetClass(nameSpace, "x_leaf"));
    EXPECT_TRUE(GetClass(nameSpace, "X_TOP"));
    EXPECT_EQ(machine.Requests(), Names{});
}

TEST_F(RequestsOfOneGetClass, OnThreeNodes) {
    TestMachine machine(Nodes(3));
    DeclareChain(machine);
    const Namespace nameSpace = Connected(machine);
    ASSERT_TRUE(GetClass(nameSpace, "X_Leaf"));
    EXPECT_EQ(
        machine.Requests(),
        (Names{"0 GetClass X_Leaf",  "0 GetClass X_Lower", "0 GetClass X_Upper", "0 GetClass X_Top",    //
               "0 GetClass X_Top",   "1 GetClass X_Top",   "2 GetClass X_Top",   "0 GetClass X_Top",    //
               "0 GetClass X_Upper", "1 GetClass X_Upper", "2 GetClass X_Upper", "0 GetClass X_Upper",  //
               "0 GetClass X_Lower", "1 GetClass X_Lower", "2 GetClass X_Lower", "0 GetClass X_Lower",  //
               "0 GetClass X_Leaf",  "1 GetClass X_Leaf",  "2 GetClass X_Leaf",  "0 GetClass X_Leaf"}));
}

TEST_F(RequestsOfOneGetClass, TheLocalDefinitionAsksForQualifiersAndNoOrigin) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "")});
    Allocate(Connected(machine), "X_Fan");
    const auto seen = machine.Server().requests();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(ArgumentOf(seen[0], "LocalOnly", "TRUE"), "TRUE");
    EXPECT_EQ(ArgumentOf(seen[0], "IncludeQualifiers", "TRUE"), "TRUE");
    EXPECT_EQ(ArgumentOf(seen[0], "IncludeClassOrigin", "FALSE"), "FALSE");
    EXPECT_EQ(ArgumentOf(seen[0], "PropertyList", "none"), "none");
}

}  // namespace
}  // namespace NQELVSK20
