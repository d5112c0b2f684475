#include "cimhttp/ClientObserver.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/PluginTest.h"

namespace NQELVSK20 {
namespace {

using ::testing::StartsWith;
using Kind = ClientFailure::Kind;
using Events = std::vector<std::string>;

/// Keeps what it hears.
class RecordingObserver : public ClientObserver {
public:
    bool AttemptFailed(const ClientFailure& failure) override {
        failures_.push_back(failure);
        events_.push_back("failed " + failure.operation);
        return allowed_-- > 0;
    }
    void Recovered(const ClientFailure& failure) override {
        recovered_.push_back(failure);
        events_.push_back("recovered " + failure.operation);
    }
    void Warned(std::size_t node, const std::string& subject, const std::string& text) override {
        events_.push_back("warned " + std::to_string(node) + " " + subject + ": " + text);
    }
    void Connected(std::size_t node, bool isEncrypted) override {
        events_.push_back("connected " + std::to_string(node) + (isEncrypted ? " encrypted" : " plain"));
    }

    void Begun(const ClientRequest& request) override { Follow("begun", request); }
    void Ended(const ClientRequest& request, bool answered) override {
        Follow(answered ? "answered" : "ended", request);
    }
    void Received(const ClientRequest& request,
                  const Pegasus::Array<Pegasus::CIMInstance>& instances) override {
        Follow(std::to_string(instances.size()) + " from", request);
    }
    void Defined(const ClientRequest& request, const Pegasus::CIMClass& definition) override {
        Follow(std::to_string(definition.getPropertyCount()) + " properties from", request);
    }
    void Follow(const std::string& what, const ClientRequest& request) {
        if (follows_) {
            events_.push_back(what + ' ' + request.operation + ' ' + request.subject + " on " +
                              std::to_string(request.node));
        }
    }

    bool follows_ = false;  // what begins and ends
    int allowed_ = 1000;    // after how many failures a further attempt may be made
    std::vector<ClientFailure> failures_;
    std::vector<ClientFailure> recovered_;
    Events events_;
};

/// One of the five requests, and what the observer is told that it is about.
struct ObservedRequest {
    const char* operation;
    const char* subject;
    std::function<void(PegClient&)> send;
};

constexpr unsigned int kTimeoutMs = 15000;

const std::vector<ObservedRequest>& ObservedRequests() {
    static const std::string nameSpace = "root/cimv2";
    static const std::string className = "OMC_NumericSensor";
    static const std::vector<ObservedRequest> requests{
        {"GetClass", "OMC_NumericSensor",
         [](PegClient& client) { client.GetClass(nameSpace, className, kTimeoutMs, true, true, false, {}); }},
        {"EnumerateInstances", "OMC_NumericSensor",
         [](PegClient& client) {
             client.EnumerateInstances(nameSpace, className, kTimeoutMs, true, true, false, false, {});
         }},
        {"InvokeMethod", "RequestStateChange",
         [](PegClient& client) {
             Pegasus::Array<Pegasus::CIMParamValue> outputs;
             const Pegasus::CIMObjectPath path(
                 R"(OMC_UnitaryComputerSystem.CreationClassName="OMC_UnitaryComputerSystem",)"
                 R"(Name="node-0.machine.example")");
             client.InvokeMethod(nameSpace, path, "RequestStateChange", {}, outputs, kTimeoutMs);
         }},
        {"EnumerateClassNames", "OMC_NumericSensor",
         [](PegClient& client) { client.EnumerateClassNames(nameSpace, className, false, kTimeoutMs); }},
        {"EnumerateInstanceNames", "OMC_NumericSensor",
         [](PegClient& client) { client.EnumerateInstanceNames(nameSpace, className, kTimeoutMs); }}};
    return requests;
}

class ClientObserverTest : public PluginTest {
protected:
    static constexpr std::size_t kNode = 2;

    ClientObserverTest() { client_.SetObserver(&observer_); }

    static TestMachine::Options Guarded() {
        TestMachine::Options options;
        options.credentials = cimom::Credentials{"admin", "secret"};
        return options;
    }

    static cimom::Fault Failing(cimom::Fault::Kind kind, int times = -1) {
        cimom::Fault fault;
        fault.kind = kind;
        fault.times = times;
        return fault;
    }

    /// Without TLS, for the same reason as in the other tests of time-outs: a handshake may take too long.
    bool ConnectPlainly(const TestMachine& machine, const std::string& password = {}) {
        const bool isConnected =
            client_.HTTPConnect(machine.Host(0), password.empty() ? "" : "admin", password, 5988);
        observer_.events_.clear();
        return isConnected;
    }

    void GetClass() { ObservedRequests()[0].send(client_); }

    static std::size_t LoginsSeen(TestMachine& machine) {
        const auto requests = machine.Server().requests();
        return static_cast<std::size_t>(
            std::count_if(requests.begin(), requests.end(), [](const cimom::SeenRequest& request) {
                return request.head.find("\r\nAuthorization: ") != std::string::npos;
            }));
    }

    /// Waits for a busy server, which may read a request after its client has given up.
    static std::size_t RequestsSeen(TestMachine& machine, std::size_t expected) {
        for (int i = 0; i < 500 && machine.Server().requests().size() < expected; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return machine.Server().requests().size();
    }

    RecordingObserver observer_;
    PegClient client_{kNode};
};

TEST_F(ClientObserverTest, HearsWhatEachRequestIsAndThatItWasAnswered) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    observer_.follows_ = true;
    for (const ObservedRequest& request : ObservedRequests()) {
        observer_.events_.clear();
        request.send(client_);
        const std::string what = std::string(request.operation) + ' ' + request.subject + " on 2";
        Events expected{"begun " + what, "answered " + what};
        if (request.operation == std::string("EnumerateInstances")) {
            expected.push_back("13 from " + what);
        }
        if (request.operation == std::string("GetClass")) {
            expected.push_back("7 properties from " + what);
        }
        EXPECT_EQ(observer_.events_, expected);
    }
}

TEST_F(ClientObserverTest, HearsOfAReconnectionWithinARequestAndOfItsEnd) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer, 1));
    observer_.follows_ = true;
    ObservedRequests()[1].send(client_);
    EXPECT_EQ(observer_.events_,
              (Events{"begun EnumerateInstances OMC_NumericSensor on 2", "failed EnumerateInstances",
                      "begun Reconnect  on 2", "begun HTTPSConnect  on 2", "connected 2 encrypted",
                      "answered HTTPSConnect  on 2", "answered Reconnect  on 2",
                      "recovered EnumerateInstances", "answered EnumerateInstances OMC_NumericSensor on 2",
                      "13 from EnumerateInstances OMC_NumericSensor on 2"}));
}

TEST_F(ClientObserverTest, HearsThatWhatHadNoAnswerEndedAllTheSame) {
    observer_.follows_ = true;
    EXPECT_FALSE(client_.HTTPConnect("127.0.0.99", "", "", 5988));
    EXPECT_EQ(observer_.events_,
              (Events{"begun HTTPConnect  on 2", "failed HTTPConnect", "ended HTTPConnect  on 2"}));
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::CimError));
    ObservedRequests()[1].send(client_);
    EXPECT_EQ(observer_.events_,
              (Events{"begun EnumerateInstances OMC_NumericSensor on 2", "failed EnumerateInstances",
                      "ended EnumerateInstances OMC_NumericSensor on 2"}))
        << "and nothing is received of an answer that is none";
}

TEST_F(ClientObserverTest, HearsOfNoRequestOfAClientThatIsNotConnected) {
    observer_.follows_ = true;
    ObservedRequests()[1].send(client_);
    EXPECT_EQ(observer_.events_, Events());
}

TEST_F(ClientObserverTest, HearsOfACimErrorWithItsCodeAndWhatWasAsked) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    cimom::Fault fault = Failing(cimom::Fault::Kind::CimError);
    fault.code = 6;
    fault.text = "the fan is on fire";
    machine.Server().inject(fault);
    for (const ObservedRequest& request : ObservedRequests()) {
        observer_.failures_.clear();
        request.send(client_);
        ASSERT_EQ(observer_.failures_.size(), 1U) << request.operation;
        const ClientFailure& failure = observer_.failures_[0];
        EXPECT_EQ(failure.node, kNode);
        EXPECT_EQ(failure.operation, request.operation);
        EXPECT_EQ(failure.subject, request.subject);
        EXPECT_EQ(failure.kind, Kind::kCimError);
        EXPECT_EQ(failure.code, 6);
        EXPECT_EQ(failure.text, "the fan is on fire");
    }
    EXPECT_TRUE(pauses_.empty());
}

TEST_F(ClientObserverTest, HearsOfRefusedCredentials) {
    TestMachine machine(Guarded());
    ASSERT_TRUE(ConnectPlainly(machine, "wrong"));
    GetClass();
    ASSERT_EQ(observer_.failures_.size(), 2U);
    for (const ClientFailure& failure : observer_.failures_) {
        EXPECT_EQ(failure.kind, Kind::kRefusedCredentials);
        EXPECT_EQ(failure.node, kNode);
        EXPECT_EQ(failure.operation, "GetClass");
        EXPECT_EQ(failure.subject, "OMC_NumericSensor");
        EXPECT_EQ(failure.code, 0);
        EXPECT_THAT(failure.text, StartsWith("HTTP Error (401 "));
    }
}

TEST_F(ClientObserverTest, AnyOtherHttpErrorIsNoRefusalOfCredentials) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    cimom::Fault fault = Failing(cimom::Fault::Kind::HttpStatus);
    fault.code = 500;
    fault.text = "HTTP Error (401";
    machine.Server().inject(fault);
    GetClass();
    ASSERT_FALSE(observer_.failures_.empty());
    EXPECT_EQ(observer_.failures_[0].kind, Kind::kBroken);
    EXPECT_THAT(observer_.failures_[0].text, StartsWith("HTTP Error (500 "));
}

TEST_F(ClientObserverTest, HearsOfEveryTimeout) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::NoAnswer));
    shortened_ = 100;
    GetClass();
    ASSERT_EQ(observer_.failures_.size(), 2U);
    for (const ClientFailure& failure : observer_.failures_) {
        EXPECT_EQ(failure.kind, Kind::kTimeout);
        EXPECT_EQ(failure.node, kNode);
        EXPECT_EQ(failure.operation, "GetClass");
        EXPECT_EQ(failure.subject, "OMC_NumericSensor");
        EXPECT_EQ(failure.code, 0);
        EXPECT_EQ(failure.text, "connection timed out");
    }
    EXPECT_TRUE(observer_.recovered_.empty());
}

TEST_F(ClientObserverTest, HearsOfABrokenConnectionAndOfTheOneThatFollows) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer));
    GetClass();
    EXPECT_EQ(observer_.events_, (Events{"failed GetClass", "connected 2 encrypted", "failed GetClass",
                                         "connected 2 encrypted"}));
    ASSERT_EQ(observer_.failures_.size(), 2U);
    for (const ClientFailure& failure : observer_.failures_) {
        EXPECT_EQ(failure.kind, Kind::kBroken);
        EXPECT_EQ(failure.subject, "OMC_NumericSensor");
        EXPECT_EQ(failure.code, 0);
        EXPECT_EQ(failure.text, "Connection closed by CIM Server.");
    }
}

TEST_F(ClientObserverTest, HearsWhyNoConnectionCouldBeOpenedOverHttpsAndOverHttp) {
    const std::string nobody = TestMachine::AddressOf(0);
    EXPECT_FALSE(client_.Connect(nobody, "", ""));
    EXPECT_EQ(observer_.events_, (Events{"failed HTTPSConnect", "failed HTTPConnect"}));
    ASSERT_EQ(observer_.failures_.size(), 2U);
    for (const ClientFailure& failure : observer_.failures_) {
        EXPECT_EQ(failure.kind, Kind::kCannotConnect);
        EXPECT_EQ(failure.node, kNode);
        EXPECT_EQ(failure.subject, "");
        EXPECT_EQ(failure.code, 0);
    }
    EXPECT_EQ(observer_.failures_[0].text, "Cannot connect to " + nobody + ":5989. Connection failed.");
    EXPECT_EQ(observer_.failures_[1].text, "Cannot connect to " + nobody + ":5988. Connection failed.");
}

TEST_F(ClientObserverTest, MayForbidAConnectionOverHttp) {
    TestMachine::Options options;
    options.https = false;
    TestMachine plain(options);
    observer_.allowed_ = 0;
    EXPECT_FALSE(client_.Connect(plain.Host(0), "", ""));
    EXPECT_EQ(observer_.events_, Events{"failed HTTPSConnect"});
    EXPECT_EQ(plain.Server().connectionsAccepted(), 0U);
}

TEST_F(ClientObserverTest, MayForbidAReconnectionOverHttp) {
    TestMachine machine;
    ASSERT_TRUE(client_.Connect(machine.Host(0), "", ""));
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer, 1));
    whilePausing_ = [&] { machine.Server().close(machine.Host(0), 5989); };
    observer_.allowed_ = 1;  // the second attempt, and none over HTTP for it
    GetClass();
    EXPECT_EQ(observer_.events_[2], "failed HTTPSConnect");
    for (const std::string& event : observer_.events_) {
        EXPECT_THAT(
            event, ::testing::AllOf(::testing::Ne("connected 2 plain"), ::testing::Ne("failed HTTPConnect")));
    }
}

TEST_F(ClientObserverTest, HearsWhetherAConnectionIsEncrypted) {
    TestMachine::Options options;
    options.https = false;
    TestMachine plain(options);
    EXPECT_TRUE(client_.Connect(plain.Host(0), "", ""));
    EXPECT_EQ(observer_.events_, (Events{"failed HTTPSConnect", "connected 2 plain"}));
}

TEST_F(ClientObserverTest, HearsThatAReconnectionIsUnencrypted) {
    TestMachine machine;
    ASSERT_TRUE(client_.Connect(machine.Host(0), "", ""));
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer, 1));
    whilePausing_ = [&] { machine.Server().close(machine.Host(0), 5989); };
    GetClass();
    EXPECT_EQ(observer_.events_, (Events{"connected 2 encrypted", "failed GetClass", "failed HTTPSConnect",
                                         "connected 2 plain", "recovered GetClass"}));
}

TEST_F(ClientObserverTest, HearsThatTheSecondAttemptWasAnsweredAndWhatTheFirstSufferedFrom) {
    TestMachine machine;
    for (const ObservedRequest& request : ObservedRequests()) {
        ASSERT_TRUE(ConnectPlainly(machine));
        observer_.recovered_.clear();
        machine.Server().clearFaults();
        machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer, 1));
        request.send(client_);
        ASSERT_EQ(observer_.recovered_.size(), 1U) << request.operation;
        EXPECT_EQ(observer_.recovered_[0].node, kNode);
        EXPECT_EQ(observer_.recovered_[0].operation, request.operation);
        EXPECT_EQ(observer_.recovered_[0].subject, request.subject);
        EXPECT_EQ(observer_.recovered_[0].kind, Kind::kBroken);
        EXPECT_EQ(observer_.recovered_[0].text, "Connection closed by CIM Server.");
        client_.Disconnect();
    }
}

TEST_F(ClientObserverTest, HearsThatALongerAttemptWasAnsweredInTime) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::NoAnswer, 1));
    shortened_ = 100;
    longestShortened_ = kTimeoutMs;
    GetClass();
    EXPECT_EQ(observer_.events_, (Events{"failed GetClass", "recovered GetClass"}));
    ASSERT_EQ(observer_.recovered_.size(), 1U);
    EXPECT_EQ(observer_.recovered_[0].kind, Kind::kTimeout);
}

TEST_F(ClientObserverTest, HearsNothingOfARequestThatIsAnsweredAtOnce) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    GetClass();
    EXPECT_EQ(observer_.events_, Events());
}

TEST_F(ClientObserverTest, ACimErrorIsNoRecovery) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer, 1));
    cimom::Fault refusal = Failing(cimom::Fault::Kind::CimError, 1);
    refusal.code = 6;
    machine.Server().inject(refusal);
    GetClass();
    EXPECT_EQ(observer_.events_, (Events{"failed GetClass", "connected 2 encrypted", "failed GetClass"}));
}

TEST_F(ClientObserverTest, AVetoLeavesATimeoutWithItsOnlyAttempt) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::NoAnswer, 1));
    shortened_ = 100;
    observer_.allowed_ = 0;
    GetClass();
    EXPECT_EQ(RequestsSeen(machine, 1), 1U);
    EXPECT_EQ(observer_.events_, Events{"failed GetClass"});
    EXPECT_TRUE(pauses_.empty());
    EXPECT_TRUE(client_.LastRequestTimedOut());
    shortened_.reset();
    GetClass();
    EXPECT_EQ(observer_.events_, Events{"failed GetClass"}) << "the next request is answered";
    EXPECT_EQ(machine.Server().requests().size(), 2U);
}

TEST_F(ClientObserverTest, AVetoLeavesABrokenConnectionWithItsOnlyAttempt) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer, 1));
    observer_.allowed_ = 0;
    GetClass();
    EXPECT_EQ(observer_.events_, Events{"failed GetClass"});
    EXPECT_EQ(machine.Server().requests().size(), 1U);
    EXPECT_TRUE(pauses_.empty());
}

TEST_F(ClientObserverTest, AVetoLeavesRefusedCredentialsWithOneLogin) {
    TestMachine machine(Guarded());
    ASSERT_TRUE(ConnectPlainly(machine, "wrong"));
    observer_.allowed_ = 0;
    GetClass();
    EXPECT_EQ(LoginsSeen(machine), 1U);
    EXPECT_EQ(observer_.events_, Events{"failed GetClass"});
    EXPECT_TRUE(pauses_.empty());
}

TEST_F(ClientObserverTest, NoLaterRequestLogsInAgainAfterAVeto) {
    TestMachine machine(Guarded());
    ASSERT_TRUE(ConnectPlainly(machine, "wrong"));
    observer_.allowed_ = 0;
    for (const ObservedRequest& request : ObservedRequests()) {
        request.send(client_);
    }
    EXPECT_EQ(LoginsSeen(machine), 1U);
    EXPECT_EQ(observer_.failures_.size(), 1U);
    client_.Disconnect();
    ASSERT_TRUE(ConnectPlainly(machine, "secret"));
    GetClass();
    EXPECT_EQ(observer_.failures_.size(), 1U) << "it can be connected anew";
}

TEST_F(ClientObserverTest, AVetoOfTheSecondAttemptsFailureOpensNoConnection) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer));
    observer_.allowed_ = 1;
    GetClass();
    EXPECT_EQ(observer_.events_, (Events{"failed GetClass", "connected 2 encrypted", "failed GetClass"}));
    EXPECT_EQ(pauses_, std::vector<unsigned int>{5000});
}

TEST_F(ClientObserverTest, WhenNobodyObservesTheSecondAttemptIsMade) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    client_.SetObserver(nullptr);
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer, 1));
    GetClass();
    EXPECT_EQ(machine.Server().requests().size(), 2U);
    EXPECT_EQ(observer_.events_, Events());
}

TEST_F(ClientObserverTest, HearsOfTheNodesThatAreConnectedLater) {
    TestMachine machine(3);
    const auto nameSpace = MakeUninitNamespace();
    nameSpace->ObserveClients(&observer_);
    nameSpace->Init();
    ConnectTo(*nameSpace, machine);
    EXPECT_EQ(observer_.events_,
              (Events{"connected 0 encrypted", "connected 1 encrypted", "connected 2 encrypted"}));
    nameSpace->disconnect();
    observer_.events_.clear();
    ConnectTo(*nameSpace, machine);
    EXPECT_EQ(observer_.events_,
              (Events{"connected 0 encrypted", "connected 1 encrypted", "connected 2 encrypted"}));
}

TEST_F(ClientObserverTest, IsToldTheNodeOfANamespaceThatFailed) {
    TestMachine machine(3);
    const auto nameSpace = Connected(machine);
    nameSpace->ObserveClients(&observer_);
    cimom::Fault fault = Failing(cimom::Fault::Kind::CimError);
    fault.address = machine.Host(1);
    fault.code = 1;
    machine.Server().inject(fault);
    static_cast<ICIMNamespace&>(*nameSpace).GetClass("CIM_ManagedElement", TContext());
    ASSERT_EQ(observer_.failures_.size(), 1U);
    EXPECT_EQ(observer_.failures_[0].node, 1U);
    EXPECT_EQ(observer_.failures_[0].subject, "CIM_ManagedElement");
}

TEST_F(ClientObserverTest, HearsNothingAfterItWasTakenAway) {
    TestMachine machine(2);
    const auto nameSpace = MakeNamespace();
    nameSpace->ObserveClients(&observer_);
    ConnectTo(*nameSpace, machine);
    nameSpace->ObserveClients(nullptr);
    observer_.events_.clear();
    machine.Server().inject(Failing(cimom::Fault::Kind::CloseBeforeAnswer));
    static_cast<ICIMNamespace&>(*nameSpace).GetClass("CIM_ManagedElement", TContext());
    for (const auto& node : nameSpace->getPegClientVec()) {
        ObservedRequests()[0].send(*node.begin()->second);
    }
    EXPECT_EQ(observer_.events_, Events());
}

TEST_F(ClientObserverTest, HearsNothingOfTheFirstNodesClientWhenItsNamespaceHasEnded) {
    auto nameSpace = MakeNamespace();
    nameSpace->ObserveClients(&observer_);
    PegClient* const client = nameSpace->getPegClient();
    nameSpace.reset();
    EXPECT_FALSE(client->HTTPConnect(TestMachine::AddressOf(0), "", "", 5988));
    EXPECT_EQ(observer_.events_, Events());
}

TEST_F(ClientObserverTest, HearsNothingOfAClientThatItsNamespaceGaveUpForAnothers) {
    const auto nameSpace = MakeNamespace();
    const auto other = MakeNamespace();
    nameSpace->ObserveClients(&observer_);
    PegClient* const givenUp = nameSpace->getPegClient();
    *nameSpace = *other;
    nameSpace->ObserveClients(nullptr);
    EXPECT_FALSE(givenUp->HTTPConnect(TestMachine::AddressOf(0), "", "", 5988));
    EXPECT_EQ(observer_.events_, Events());
}

}  // namespace
}  // namespace NQELVSK20
