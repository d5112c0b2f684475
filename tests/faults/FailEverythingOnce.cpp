// The Nth I/O operation of a request fails, for N = 1, 2, 3 and so on until there is no Nth one: what comes
// of the request, what the log says of it, how often the server saw it, and whether the client can be used
// afterwards.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <ostream>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "provider/contract/PegText.h"
#include "tests/faults/FaultyIo.h"
#include "tests/support/PluginTest.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"

namespace NQELVSK20 {
namespace {

using faults::FaultyIo;
using faults::IoFault;

constexpr unsigned int kTimeoutMs = 15000;
constexpr std::size_t kMostOperations = 500;  // a request with more of them is one that does not end

/// One of the five requests: what its log lines call it, what the server does, and its result as text, empty
/// when there is none.
struct Request {
    const char* name;
    const char* wireName;
    std::function<std::string(PegClient&)> send;
};

void PrintTo(const Request& request, std::ostream* out) {
    *out << request.name;
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += name + "\n";
    }
    return text;
}

const std::vector<Request>& Requests() {
    static const std::string nameSpace = "root/cimv2";
    static const std::string name = "OMC_NumericSensor";
    static const std::vector<Request> requests{
        {"GetClass", "GetClass",
         [](PegClient& client) {
             const auto found = client.GetClass(nameSpace, name, kTimeoutMs, true, true, false, {});
             return found.isUninitialized() ? std::string() : ToText(found.getClassName());
         }},
        {"EnumerateInstances", "EnumerateInstances",
         [](PegClient& client) {
             std::string text;
             const auto found =
                 client.EnumerateInstances(nameSpace, name, kTimeoutMs, true, true, false, false, {});
             for (Pegasus::Uint32 i = 0; i < found.size(); ++i) {
                 text += ToText(found[i].getPath().toString()) + "\n";
             }
             return text;
         }},
        {"InvokeMethod", "RequestStateChange",
         [](PegClient& client) {
             Pegasus::Array<Pegasus::CIMParamValue> outputs;
             const Pegasus::CIMObjectPath path(
                 R"(OMC_UnitaryComputerSystem.CreationClassName="OMC_UnitaryComputerSystem",)"
                 R"(Name="node-0.machine.example")");
             const auto found =
                 client.InvokeMethod(nameSpace, path, "RequestStateChange", {}, outputs, kTimeoutMs);
             return found.isNull() ? std::string() : ToText(found.toString());
         }},
        {"EnumerateClassNames", "EnumerateClassNames",
         [](PegClient& client) {
             return Joined(client.EnumerateClassNames(nameSpace, "CIM_ManagedElement", false, kTimeoutMs));
         }},
        {"EnumerateInstanceNames", "EnumerateInstanceNames", [](PegClient& client) {
             return Joined(client.EnumerateInstanceNames(nameSpace, name, kTimeoutMs));
         }}};
    return requests;
}

/// How the client reaches the server.
struct Transport {
    const char* name;
    bool isEncrypted;
    bool hasLogin;
};

void PrintTo(const Transport& transport, std::ostream* out) {
    *out << transport.name;
}

constexpr Transport kTransports[] = {
    {"Http", false, false}, {"Https", true, false}, {"HttpWithLogin", false, true}};

class FailingIoTest : public PluginTest {
protected:
    explicit FailingIoTest(const Transport& transport)
        : transport_(transport), machine_(MachineFor(transport)) {}

    static TestMachine::Options MachineFor(const Transport& transport) {
        TestMachine::Options options;
        options.https = transport.isEncrypted;
        options.http = !transport.isEncrypted;
        if (transport.hasLogin) {
            options.credentials = cimom::Credentials{"admin", "secret"};
        }
        return options;
    }

    bool Connect(PegClient& client) {
        const char* user = transport_.hasLogin ? "admin" : "";
        const char* password = transport_.hasLogin ? "secret" : "";
        return transport_.isEncrypted ? client.HTTPSConnect(machine_.Host(0), user, password, 5989)
                                      : client.HTTPConnect(machine_.Host(0), user, password, 5988);
    }

    void ForgetWhatWas() {
        log_.Clear();
        pauses_.clear();
        machine_.ClearRequests();
    }

    /// How often the server read the request. One that a login was asked for counts once.
    std::size_t Seen(const Request& request) {
        const auto seen = machine_.Server().requests();
        return static_cast<std::size_t>(
            std::count_if(seen.begin(), seen.end(), [&](const cimom::SeenRequest& each) {
                return each.operation == request.wireName &&
                       (!transport_.hasLogin || each.head.find("\r\nAuthorization: ") != std::string::npos);
            }));
    }

    /// The same once the server, which reads on threads of its own, has had time for what is on its way.
    std::size_t SeenInTheEnd(const Request& request, std::size_t expected) {
        for (int i = 0; i < 20 && Seen(request) < expected; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return Seen(request);
    }

    /// Lines about failed attempts at the request.
    std::size_t Failures(const Request& request) const {
        const std::string where = std::string(" in PegClient::") + request.name + "(): ";
        const auto lines = log_.Lines();
        return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(), [&](const auto& line) {
            return line.second.find(where) != std::string::npos;
        }));
    }

    const Transport transport_;
    TestMachine machine_;
    std::size_t faults_ = 0;  // that were injected
};

class FailingRequestTest : public FailingIoTest,
                           public ::testing::WithParamInterface<std::tuple<Transport, Request>> {
protected:
    FailingRequestTest() : FailingIoTest(std::get<0>(GetParam())), request_(std::get<1>(GetParam())) {
        PegClient client;
        EXPECT_TRUE(Connect(client));
        complete_ = request_.send(client);
        EXPECT_NE(complete_, "");
    }

    /// Runs `check` with a client that has just made the request with a fault at the Nth operation, and with
    /// what the request gave: for each N that there is. `isFirst` requests are the client's first one; others
    /// have an open connection that was used before.
    void ForEachOperation(IoFault fault, bool isFirst,
                          const std::function<void(PegClient&, const std::string& result)>& check) {
        for (std::size_t n = 1; n < kMostOperations; ++n) {
            PegClient client;
            ASSERT_TRUE(Connect(client));
            if (!isFirst) {
                ASSERT_EQ(request_.send(client), complete_);
            }
            ForgetWhatWas();
            SCOPED_TRACE("operation " + std::to_string(n) +
                         (isFirst ? " of the first" : " of a later request"));
            std::string result;
            bool hasStruck = false;
            {
                const FaultyIo io(fault, n);
                result = request_.send(client);
                hasStruck = io.hasStruck();
            }
            check(client, result);
            if (!hasStruck) {
                EXPECT_EQ(result, complete_);
                EXPECT_GT(n, 2U) << "there was nothing to fail";
                faults_ += n - 1;
                RecordProperty("faults", std::to_string(faults_));
                return;
            }
            if (HasFailure()) {
                return;
            }
        }
        ADD_FAILURE() << "it did not end";
    }

    /// The request works with this client as if nothing had been.
    void ExpectUsable(PegClient& client) {
        ForgetWhatWas();
        EXPECT_EQ(request_.send(client), complete_);
        EXPECT_TRUE(log_.Lines().empty());
        EXPECT_EQ(Seen(request_), 1U);
    }

    const Request& request_;
    std::string complete_;
};

TEST_P(FailingRequestTest, ABrokenConnectionIsToldAndCostsOnePauseAndOneMoreAttempt) {
    for (const IoFault fault : {IoFault::Reset, IoFault::EndOfFile}) {
        for (const bool isFirst : {true, false}) {
            ForEachOperation(fault, isFirst, [&](PegClient& client, const std::string& result) {
                EXPECT_EQ(result, complete_);
                const std::size_t failures = Failures(request_);
                EXPECT_LE(failures, 1U);
                EXPECT_EQ(log_.LinesWith("CannotConnectException in PegClient::HTTPSConnect").size(),
                          transport_.isEncrypted ? 0U : failures)
                    << "a new connection is tried over HTTPS first";
                EXPECT_EQ(log_.Lines().size(), transport_.isEncrypted ? failures : 2 * failures);
                EXPECT_EQ(pauses_, std::vector<unsigned int>(failures, 5000U));
                EXPECT_LE(SeenInTheEnd(request_, failures + 1), failures + 1);
                EXPECT_GE(Seen(request_), 1U);
                ExpectUsable(client);
            });
        }
    }
}

TEST_P(FailingRequestTest, ASilentServerIsToldAndCostsOneMoreAttempt) {
    for (const bool isFirst : {true, false}) {
        ForEachOperation(IoFault::Silence, isFirst, [&](PegClient& client, const std::string& result) {
            EXPECT_EQ(result, complete_);
            const std::size_t failures = Failures(request_);
            EXPECT_LE(failures, 1U);
            EXPECT_EQ(log_.LinesWith("ConnectionTimeoutException in PegClient::").size(), failures);
            EXPECT_EQ(log_.Lines().size(), failures);
            EXPECT_TRUE(pauses_.empty()) << "a time-out has taken its time";
            EXPECT_LE(SeenInTheEnd(request_, failures + 1), failures + 1);
            EXPECT_GE(Seen(request_), 1U);
            ExpectUsable(client);
        });
    }
}

TEST_P(FailingRequestTest, BytesThatComeOneByOneAndWaitsThatEndEarlyAreNoFailures) {
    for (const IoFault fault : {IoFault::Short, IoFault::WouldBlock}) {
        for (const bool isFirst : {true, false}) {
            ForEachOperation(fault, isFirst, [&](PegClient& client, const std::string& result) {
                EXPECT_EQ(result, complete_);
                EXPECT_TRUE(log_.Lines().empty());
                EXPECT_TRUE(pauses_.empty());
                EXPECT_EQ(Seen(request_), 1U);
                ExpectUsable(client);
            });
        }
    }
}

TEST_P(FailingRequestTest, AServerThatTricklesIsReadToItsEnd) {
    PegClient client;
    ASSERT_TRUE(Connect(client));
    ForgetWhatWas();
    {
        const FaultyIo io(IoFault::Trickle, 1);
        EXPECT_EQ(request_.send(client), complete_);
        EXPECT_GT(io.count(), 1000U) << "a request and an answer have more bytes than that";
    }
    EXPECT_TRUE(log_.Lines().empty());
    EXPECT_EQ(Seen(request_), 1U);
}

TEST_P(FailingRequestTest, AServerThatDiesGivesNothingAfterTwoAttemptsAndCanBeConnectedToAgain) {
    for (const bool isFirst : {true, false}) {
        ForEachOperation(IoFault::Dead, isFirst, [&](PegClient& client, const std::string& result) {
            if (log_.Lines().empty()) {
                EXPECT_EQ(result, complete_) << "it had been answered";
                return;
            }
            EXPECT_EQ(result, "");
            EXPECT_EQ(Failures(request_), 2U) << "of the request";
            EXPECT_EQ(pauses_, (std::vector<unsigned int>{5000, 5000}))
                << "the second failure reconnects too";
            EXPECT_LE(SeenInTheEnd(request_, 1), 1U);
            client.Disconnect();
            ASSERT_TRUE(Connect(client));
            ExpectUsable(client);
        });
    }
}

INSTANTIATE_TEST_SUITE_P(EachWay, FailingRequestTest,
                         ::testing::Combine(::testing::ValuesIn(kTransports),
                                            ::testing::ValuesIn(Requests())),
                         [](const auto& tested) {
                             return std::string(std::get<0>(tested.param).name) +
                                    std::get<1>(tested.param).name;
                         });

class FailingConnectTest : public FailingIoTest, public ::testing::WithParamInterface<Transport> {
protected:
    FailingConnectTest() : FailingIoTest(GetParam()) {}

    /// Runs `check` with a client whose connecting had a fault at the Nth operation, and whether it
    /// connected: for each N that there is.
    void ForEachOperation(IoFault fault, const std::function<void(PegClient&, bool connected)>& check) {
        for (std::size_t n = 1; n < kMostOperations; ++n) {
            SCOPED_TRACE("operation " + std::to_string(n));
            ForgetWhatWas();
            PegClient client;
            bool connected = false;
            bool hasStruck = false;
            {
                const FaultyIo io(fault, n);
                connected = Connect(client);
                hasStruck = io.hasStruck();
            }
            check(client, connected);
            if (!hasStruck) {
                EXPECT_TRUE(connected);
                EXPECT_GT(n, 1U) << "there was nothing to fail";
                faults_ += n - 1;
                RecordProperty("faults", std::to_string(faults_));
                return;
            }
            if (HasFailure()) {
                return;
            }
        }
        ADD_FAILURE() << "it did not end";
    }

    void ExpectUsable(PegClient& client, bool connected) {
        ForgetWhatWas();
        if (!connected) {
            EXPECT_TRUE(Connect(client));
        }
        EXPECT_NE(Requests()[0].send(client), "");
        EXPECT_TRUE(log_.Lines().empty());
    }
};

TEST_P(FailingConnectTest, AConnectionThatBreaksOrFallsSilentIsToldOnceAndCanBeMadeAgain) {
    for (const IoFault fault : {IoFault::Reset, IoFault::EndOfFile, IoFault::Silence, IoFault::Dead}) {
        ForEachOperation(fault, [&](PegClient& client, bool connected) {
            EXPECT_EQ(log_.Lines().size(), connected ? 0U : 1U);
            EXPECT_EQ(log_.LinesWith("CannotConnectException in PegClient::HTTP").size(),
                      log_.Lines().size());
            EXPECT_TRUE(pauses_.empty());
            EXPECT_TRUE(machine_.Server().requests().empty());
            ExpectUsable(client, connected);
        });
    }
}

TEST_P(FailingConnectTest, BytesThatComeOneByOneAndWaitsThatEndEarlyAreNoFailures) {
    for (const IoFault fault : {IoFault::Short, IoFault::Trickle, IoFault::WouldBlock}) {
        ForEachOperation(fault, [&](PegClient& client, bool connected) {
            EXPECT_TRUE(connected);
            EXPECT_TRUE(log_.Lines().empty());
            ExpectUsable(client, connected);
        });
    }
}

TEST_P(FailingConnectTest, DisconnectingAsksNothingOfTheNetwork) {
    PegClient client;
    ASSERT_TRUE(Connect(client));
    ASSERT_NE(Requests()[0].send(client), "");
    log_.Clear();
    const FaultyIo io(IoFault::Dead, 1);
    client.Disconnect();
    EXPECT_EQ(io.count(), 0U) << "nothing that could fail";
    EXPECT_TRUE(log_.Lines().empty());
}

INSTANTIATE_TEST_SUITE_P(EachWay, FailingConnectTest, ::testing::ValuesIn(kTransports),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace NQELVSK20
