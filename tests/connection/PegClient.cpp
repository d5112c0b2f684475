#include "cimhttp/PegClient.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <gtest/gtest.h>

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
#include <sys/resource.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <chrono>
#include <exception>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "provider/contract/PegText.h"
#include "tests/support/PluginTest.h"

namespace NQELVSK20 {
namespace {

using Lines = std::vector<RecordingLogger::Line>;
using Names = std::vector<std::string>;

/// One of the five requests, by the name that its log lines carry; true when its result is not empty.
struct Request {
    const char* name;
    std::function<bool(PegClient&, unsigned int timeout)> send;
};

void PrintTo(const Request& request, std::ostream* out) {
    *out << request.name;
}

bool SendGetClass(PegClient& client, unsigned int timeout) {
    return !client
                .GetClass("root/cimv2", "OMC_NumericSensor", timeout, true, true, false,
                          Pegasus::CIMPropertyList())
                .isUninitialized();
}

bool SendEnumerateInstances(PegClient& client, unsigned int timeout) {
    return client
               .EnumerateInstances("root/cimv2", "OMC_NumericSensor", timeout, true, true, false, false,
                                   Pegasus::CIMPropertyList())
               .size() > 0;
}

bool SendInvokeMethod(PegClient& client, unsigned int timeout) {
    const Pegasus::CIMObjectPath path(
        R"(OMC_UnitaryComputerSystem.CreationClassName="OMC_UnitaryComputerSystem",)"
        R"(Name="node-0.machine.example")");
    Pegasus::Array<Pegasus::CIMParamValue> outputs;
    return !client.InvokeMethod("root/cimv2", path, "RequestStateChange", {}, outputs, timeout).isNull();
}

bool SendEnumerateClassNames(PegClient& client, unsigned int timeout) {
    return !client.EnumerateClassNames("root/cimv2", "CIM_ManagedElement", false, timeout).empty();
}

bool SendEnumerateInstanceNames(PegClient& client, unsigned int timeout) {
    return !client.EnumerateInstanceNames("root/cimv2", "OMC_NumericSensor", timeout).empty();
}

const std::vector<Request>& Requests() {
    static const std::vector<Request> requests{{"GetClass", SendGetClass},
                                               {"EnumerateInstances", SendEnumerateInstances},
                                               {"InvokeMethod", SendInvokeMethod},
                                               {"EnumerateClassNames", SendEnumerateClassNames},
                                               {"EnumerateInstanceNames", SendEnumerateInstanceNames}};
    return requests;
}

class PegClientTest : public PluginTest {
protected:
    static TestMachine::Options Only(bool https) {
        TestMachine::Options options;
        options.https = https;
        options.http = !https;
        return options;
    }

    static cimom::Fault FaultOf(cimom::Fault::Kind kind, const std::string& operation, int times = -1) {
        cimom::Fault fault;
        fault.kind = kind;
        fault.operation = operation;
        fault.times = times;
        return fault;
    }

    /// Without TLS: an attempt after a time-out connects anew, and a handshake on a busy machine would take
    /// the short time that it has.
    bool ConnectPlainly(const TestMachine& machine) {
        return client_.HTTPConnect(machine.Host(0), "", "", 5988);
    }

    /// Waits until a busy server, which reads on its own thread, has seen so many requests.
    bool SeesRequests(TestMachine& machine, const std::string& operation, std::size_t count) {
        for (int i = 0; i < 500 && RequestsSeen(machine, operation) < count; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return RequestsSeen(machine, operation) == count;
    }

    std::size_t RequestsSeen(TestMachine& machine, const std::string& operation) {
        std::size_t count = 0;
        for (const auto& request : machine.Server().requests()) {
            count += request.operation == operation ? 1U : 0U;
        }
        return count;
    }

    PegClient client_;
};

/// One of the two ways to open a connection, by the name that its log lines carry.
struct Connecting {
    const char* name;
    int port;
    std::function<bool(PegClient&, const std::string& host, const std::string& user)> connect;
};

void PrintTo(const Connecting& connecting, std::ostream* out) {
    *out << connecting.name;
}

const std::vector<Connecting>& WaysToConnect() {
    static const std::vector<Connecting> ways{
        {"HTTPConnect", 5988,
         [](PegClient& client, const std::string& host, const std::string& user) {
             return client.HTTPConnect(host, user, "", 5988);
         }},
        {"HTTPSConnect", 5989, [](PegClient& client, const std::string& host, const std::string& user) {
             return client.HTTPSConnect(host, user, "", 5989);
         }}};
    return ways;
}

class PegClientConnectTest : public PegClientTest, public ::testing::WithParamInterface<Connecting> {
protected:
    std::string Failure(const char* kind) const {
        return std::string(kind) + " in PegClient::" + GetParam().name + "(): ";
    }
};

TEST_P(PegClientConnectTest, HostThatDoesNotResolveIsNamed) {
    EXPECT_FALSE(GetParam().connect(client_, "no-such-host.invalid", ""));
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, Failure("InvalidLocatorException") +
                             "Invalid locator: no-such-host.invalid:" + std::to_string(GetParam().port)}}));
}

TEST_P(PegClientConnectTest, AnyOtherRefusalOfTheLibraryIsLoggedAsAnException) {
    EXPECT_FALSE(GetParam().connect(client_, TestMachine::AddressOf(0), "not UTF-8: \xff"));
    ASSERT_EQ(log_.Lines().size(), 1U);
    EXPECT_EQ(log_.Lines()[0].first, 3);
    EXPECT_EQ(log_.LinesWith(Failure("Exception")).size(), 1U) << log_.Lines()[0].second;
    EXPECT_GT(log_.Lines()[0].second.size(), Failure("Exception").size()) << "with what the library says";
}

TEST_P(PegClientConnectTest, LongTimeoutIsSetBeforeTheConnectionIsOpened) {
    EXPECT_FALSE(GetParam().connect(client_, TestMachine::AddressOf(0), ""));
    EXPECT_EQ(timeouts_, std::vector<unsigned int>{65535000});
    EXPECT_EQ(client_.GetCIMClient()->getTimeout(), 65535000U);
}

TEST_P(PegClientConnectTest, RefusalLeavesTheConnectionThatIsThere) {
    TestMachine machine;
    ASSERT_TRUE(client_.HTTPConnect(machine.Host(0), "", "", 5988));
    EXPECT_FALSE(GetParam().connect(client_, machine.Host(0), ""));
    EXPECT_EQ(log_.Lines(), (Lines{{3, Failure("AlreadyConnectedException") + "already connected"}}));
    EXPECT_TRUE(SendGetClass(client_, 5000));
}

// Not with the sanitizers: they open a pipe to look at memory, and take a failure to do so for a fault.
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)

/// As long as this lives, the process gets only so many more file descriptors.
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t more) {
        getrlimit(RLIMIT_NOFILE, &before_);
        const int next = dup(STDERR_FILENO);  // the lowest that is free
        close(next);
        rlimit lowered = before_;
        lowered.rlim_cur = static_cast<rlim_t>(next) + more;
        setrlimit(RLIMIT_NOFILE, &lowered);
    }
    ~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &before_); }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    rlimit before_{};
};

TEST_P(PegClientConnectTest, SocketThatCannotBeMadeIsLogged) {
    const DescriptorLimit limit(0);
    EXPECT_FALSE(GetParam().connect(client_, TestMachine::AddressOf(0), ""));
    EXPECT_EQ(log_.Lines(), (Lines{{3, Failure("CannotCreateSocketException") + "Cannot create socket"}}));
}

// The bundled library's event loop takes some before it comes to the socket, OpenPegasus' client none:
// whichever step fails for want of one, it is logged and leaves no exception.
TEST_P(PegClientConnectTest, LackOfDescriptorsIsLoggedWhereverItIsMet) {
    for (rlim_t left = 1; left < 4; ++left) {
        log_.Clear();
        {
            const DescriptorLimit limit(left);
            EXPECT_FALSE(GetParam().connect(client_, TestMachine::AddressOf(0), ""));
        }
        EXPECT_EQ(log_.Lines().size(), 1U) << left << " left";
    }
}

#endif

INSTANTIATE_TEST_SUITE_P(EachWay, PegClientConnectTest, ::testing::ValuesIn(WaysToConnect()),
                         [](const auto& way) { return std::string(way.param.name); });

class PegClientRequestTest : public PegClientTest, public ::testing::WithParamInterface<Request> {
protected:
    std::string Name() const { return GetParam().name; }

    std::string TimedOut() const {
        return "ConnectionTimeoutException in PegClient::" + Name() + "(): connection timed out";
    }

    /// The time-outs that were set last, in order.
    std::vector<unsigned int> LastTimeouts(std::ptrdiff_t count) const {
        return {timeouts_.end() -
                    std::min<std::ptrdiff_t>(count, std::distance(timeouts_.begin(), timeouts_.end())),
                timeouts_.end()};
    }

    /// The operation as the server sees it: extrinsic methods go by their own names.
    std::string WireName() const { return Name() == "InvokeMethod" ? "RequestStateChange" : Name(); }
};

TEST_F(PegClientTest, ConnectPrefersHttps) {
    TestMachine machine;
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    EXPECT_TRUE(SendGetClass(client_, 5000));
    EXPECT_EQ(machine.Server().requests().front().port, 5989);
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(PegClientTest, ConnectToAServerThatSpeaksOnlyHttpLogsOneHttpsFailure) {
    TestMachine machine(Only(false));
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, "CannotConnectException in PegClient::HTTPSConnect(): Cannot connect to " +
                             machine.Host(0) + ":5989. Connection failed."}}));
    EXPECT_TRUE(SendGetClass(client_, 5000));
    EXPECT_EQ(machine.Server().requests().front().port, 5988);
}

TEST_F(PegClientTest, ConnectFailsWhenNobodyListens) {
    const std::string nobody = TestMachine::AddressOf(0);
    EXPECT_FALSE(client_.Connect(nobody, "", ""));
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, "CannotConnectException in PegClient::HTTPSConnect(): Cannot connect to " + nobody +
                             ":5989. Connection failed."},
                     {3, "CannotConnectException in PegClient::HTTPConnect(): Cannot connect to " + nobody +
                             ":5988. Connection failed."}}));
}

TEST_F(PegClientTest, DisconnectWhenNotConnectedDoesNothing) {
    client_.Disconnect();
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(PegClientTest, RequestsAfterDisconnectAreEmptyAndSilent) {
    TestMachine machine;
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    client_.Disconnect();
    EXPECT_FALSE(SendGetClass(client_, 5000));
    EXPECT_TRUE(log_.Lines().empty());
    EXPECT_TRUE(machine.Requests().empty());
}

TEST_F(PegClientTest, ReconnectPausesFiveSecondsAndUsesTheCredentialsOfBefore) {
    TestMachine::Options options;
    options.credentials = cimom::Credentials{"admin", "secret"};
    TestMachine machine(options);
    EXPECT_TRUE(client_.HTTPConnect(machine.Host(0), "admin", "secret", 5988));
    client_.Reconnect();
    EXPECT_EQ(pauses_, std::vector<unsigned int>{5000});
    EXPECT_TRUE(SendGetClass(client_, 5000));
    EXPECT_EQ(machine.Server().requests().back().port, 5989);
}

TEST_F(PegClientTest, WrongPasswordIsAnHttpErrorAndReconnects) {
    TestMachine::Options options = Only(false);
    options.credentials = cimom::Credentials{"admin", "secret"};
    TestMachine machine(options);
    EXPECT_TRUE(client_.HTTPConnect(machine.Host(0), "admin", "wrong", 5988));
    EXPECT_FALSE(SendGetClass(client_, 5000));
    const auto failures = log_.LinesWith("Exception in PegClient::GetClass(): HTTP Error (401 ");
    EXPECT_EQ(failures.size(), 2U);
    EXPECT_EQ(pauses_.size(), 2U);
    for (const auto& line : log_.Lines()) {
        EXPECT_EQ(line.second.find("wrong"), std::string::npos);
    }
}

TEST_F(PegClientTest, LogLinesAreCutAtTheBuffersSize) {
    TestMachine machine;
    cimom::Fault fault = FaultOf(cimom::Fault::Kind::CimError, "GetClass");
    fault.code = 1;
    fault.text = std::string(5000, 'x');
    machine.Server().inject(fault);
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    EXPECT_FALSE(SendGetClass(client_, 5000));
    ASSERT_EQ(log_.Lines().size(), 1U);
    EXPECT_EQ(log_.Lines()[0].second.size(), 4095U);
}

TEST_F(PegClientTest, NamesComeInTheServersOrder) {
    TestMachine machine;
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    const auto paths = client_.EnumerateInstanceNames("root/cimv2", "OMC_NumericSensor", 5000);
    const auto instances = client_.EnumerateInstances("root/cimv2", "OMC_NumericSensor", 5000, true, true,
                                                      false, false, Pegasus::CIMPropertyList());
    ASSERT_EQ(paths.size(), instances.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        EXPECT_EQ(paths[i], ToText(instances[static_cast<Pegasus::Uint32>(i)].getPath().toString()));
    }
}

TEST_P(PegClientRequestTest, SucceedsWithoutALogLine) {
    TestMachine machine;
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    EXPECT_TRUE(GetParam().send(client_, 5000));
    EXPECT_TRUE(log_.Lines().empty());
    EXPECT_FALSE(client_.LastRequestTimedOut());
}

TEST_P(PegClientRequestTest, IsEmptyAndSilentOnAClientThatNeverConnected) {
    EXPECT_FALSE(GetParam().send(client_, 5000));
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_P(PegClientRequestTest, TimesOutTwiceWithTwiceTheTimeInTheSecondAttempt) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(FaultOf(cimom::Fault::Kind::NoAnswer, WireName()));
    shortened_ = 100;
    EXPECT_FALSE(GetParam().send(client_, 15000));
    EXPECT_EQ(log_.Lines(), (Lines{{3, TimedOut()}, {3, TimedOut()}}));
    EXPECT_TRUE(SeesRequests(machine, WireName(), 2));
    EXPECT_EQ(LastTimeouts(3), (std::vector<unsigned int>{15000, 30000, 30000})) << "not doubled again";
    EXPECT_TRUE(client_.LastRequestTimedOut());
    EXPECT_TRUE(pauses_.empty());
}

TEST_P(PegClientRequestTest, SecondAttemptWaitsLongerThanTheFirst) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    cimom::Fault slowness = FaultOf(cimom::Fault::Kind::Delay, WireName());
    slowness.delay = std::chrono::milliseconds(200);  // too slow for the first attempt alone
    machine.Server().inject(slowness);
    shortened_ = 50;
    longestShortened_ = 15000;
    EXPECT_TRUE(GetParam().send(client_, 15000));
    EXPECT_EQ(log_.Lines(), (Lines{{3, TimedOut()}}));
    EXPECT_EQ(RequestsSeen(machine, WireName()), 2U);
    EXPECT_FALSE(client_.LastRequestTimedOut());
}

TEST_P(PegClientRequestTest, TimeoutThatCannotBeDoubledStaysAsLongAsCanBe) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(FaultOf(cimom::Fault::Kind::NoAnswer, WireName(), 1));
    shortened_ = 100;
    GetParam().send(client_, 0x80000000U);
    EXPECT_EQ(LastTimeouts(2), (std::vector<unsigned int>{0x80000000U, 0xffffffffU}));
    machine.Server().clearFaults();
    machine.Server().inject(FaultOf(cimom::Fault::Kind::NoAnswer, WireName(), 1));
    GetParam().send(client_, 0x7fffffffU);
    EXPECT_EQ(LastTimeouts(2), (std::vector<unsigned int>{0x7fffffffU, 0xfffffffeU}));
}

TEST_P(PegClientRequestTest, AttemptAfterAReconnectionHasTheTimeOfTheCaller) {
    TestMachine machine;
    ASSERT_TRUE(ConnectPlainly(machine));
    machine.Server().inject(FaultOf(cimom::Fault::Kind::CloseBeforeAnswer, WireName(), 1));
    machine.Server().inject(FaultOf(cimom::Fault::Kind::NoAnswer, WireName(), 1));
    shortened_ = 1000;  // enough for a busy server to close and to connect anew
    EXPECT_FALSE(GetParam().send(client_, 15000));
    // The request, connecting anew over HTTPS, the second attempt, and what its time-out sets for a third.
    EXPECT_EQ(LastTimeouts(4), (std::vector<unsigned int>{15000, 65535000, 15000, 30000}));
    EXPECT_TRUE(client_.LastRequestTimedOut());
}

TEST_P(PegClientRequestTest, IsNotRepeatedWhenTheServerAnswersWithACimError) {
    TestMachine machine;
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    cimom::Fault fault = FaultOf(cimom::Fault::Kind::CimError, WireName());
    fault.code = 1;
    fault.text = "the fan is on fire";
    machine.Server().inject(fault);
    EXPECT_FALSE(GetParam().send(client_, 5000));
    EXPECT_EQ(log_.Lines(), (Lines{{3, "CIMException in PegClient::" + Name() + "(): the fan is on fire"}}));
    EXPECT_EQ(RequestsSeen(machine, WireName()), 1U);
    EXPECT_TRUE(pauses_.empty());
}

TEST_P(PegClientRequestTest, ReconnectsAfterFiveSecondsWhenTheConnectionBreaks) {
    TestMachine machine;
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    machine.Server().inject(FaultOf(cimom::Fault::Kind::CloseBeforeAnswer, WireName(), 1));
    EXPECT_TRUE(GetParam().send(client_, 5000));
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, "Exception in PegClient::" + Name() + "(): Connection closed by CIM Server."}}));
    EXPECT_EQ(pauses_, std::vector<unsigned int>{5000});
    EXPECT_EQ(RequestsSeen(machine, WireName()), 2U);
}

TEST_P(PegClientRequestTest, GivesUpWhenTheConnectionBreaksTwice) {
    TestMachine machine;
    EXPECT_TRUE(client_.Connect(machine.Host(0), "", ""));
    machine.Server().inject(FaultOf(cimom::Fault::Kind::CloseBeforeAnswer, WireName()));
    EXPECT_FALSE(GetParam().send(client_, 5000));
    EXPECT_EQ(log_.Lines().size(), 2U);
    EXPECT_EQ(pauses_, (std::vector<unsigned int>{5000, 5000}));
    EXPECT_EQ(RequestsSeen(machine, WireName()), 2U);
}

INSTANTIATE_TEST_SUITE_P(EachRequest, PegClientRequestTest, ::testing::ValuesIn(Requests()),
                         [](const auto& request) { return std::string(request.param.name); });

}  // namespace
}  // namespace NQELVSK20
