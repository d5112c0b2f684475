// A password is nowhere in what the plug-in tells: neither in a log line nor in what an observer hears.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cimhttp/ClientObserver.h"
#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/PluginTest.h"
#include "tests/support/ServerWithoutTls.h"

namespace NQELVSK20 {
namespace {

using FaultKind = cimom::Fault::Kind;

constexpr const char* kUser = "anna";
constexpr const char* kPassword = "D1stinctive-W0rt";
// The same as it goes over the network, with the user and alone.
constexpr const char* kSent = "YW5uYTpEMXN0aW5jdGl2ZS1XMHJ0";
constexpr const char* kEncoded = "RDFzdGluY3RpdmUtVzBydA";

class Listener : public ClientObserver {
public:
    bool AttemptFailed(const ClientFailure& failure) override {
        told_ += failure.operation + " " + failure.subject + " " + failure.text + "\n";
        return true;
    }
    void Recovered(const ClientFailure& failure) override { AttemptFailed(failure); }
    void Connected(std::size_t, bool) override {}

    std::string told_;
};

class SecretsTest : public PluginTest {
protected:
    static TestMachine::Options Guarded(const char* password) {
        TestMachine::Options options;
        options.credentials = cimom::Credentials{kUser, password};
        return options;
    }

    static cimom::Fault Failing(FaultKind kind, int code = 0, const char* text = "") {
        cimom::Fault fault;
        fault.kind = kind;
        fault.code = code;
        fault.text = text;
        return fault;
    }

    /// A whole session: connects, asks for a class and its instances, disconnects.
    void Use(const std::string& host) {
        const auto nameSpace = MakeNamespace();
        nameSpace->ObserveClients(&listener_);
        nameSpace->connect(host, kUser, kPassword);
        nameSpace->GetClass("OMC_NumericSensor", TContext());
        std::vector<std::string> names;
        nameSpace->EnumerateInstanceNames("root/cimv2", "OMC_NumericSensor", names);
        nameSpace->disconnect();
    }

    void ExpectNothingIsTold(const std::string& about) {
        std::string told = listener_.told_;
        for (const RecordingLogger::Line& line : log_.Lines()) {
            told += line.second + "\n";
        }
        EXPECT_NE(listener_.told_, "") << about << ": nothing failed";
        for (const char* secret : {kPassword, kSent, kEncoded, "Authorization"}) {
            EXPECT_EQ(told.find(secret), std::string::npos) << about << ": " << told;
        }
        log_.Clear();
        listener_.told_.clear();
    }

    Listener listener_;
};

TEST_F(SecretsTest, AreNotToldWhenAServerRefusesThem) {
    TestMachine machine(Guarded("another"));
    Use(machine.Host(0));
    EXPECT_EQ(machine.AuthorizationsOf(0), std::vector<std::string>{std::string("Basic ") + kSent})
        << "they were sent";
    ExpectNothingIsTold("refused");
}

TEST_F(SecretsTest, AreNotToldWhenAServerFailsThatHasSeenThem) {
    TestMachine machine(Guarded(kPassword));
    shortened_ = 300;
    for (const cimom::Fault& fault :
         {Failing(FaultKind::HttpStatus, 501, "Not Implemented"), Failing(FaultKind::MalformedXml),
          Failing(FaultKind::CimError, 1, "no sensors today"), Failing(FaultKind::CloseBeforeAnswer),
          Failing(FaultKind::RawAnswer, 0, "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi"),
          Failing(FaultKind::RawAnswer, 0, "no HTTP\r\n\r\n"), Failing(FaultKind::NoAnswer)}) {
        machine.Server().inject(fault);
        Use(machine.Host(0));
        ExpectNothingIsTold("fault " + std::to_string(static_cast<int>(fault.kind)));
        machine.Server().clearFaults();
    }
    EXPECT_EQ(machine.AuthorizationsOf(0), std::vector<std::string>{std::string("Basic ") + kSent});
}

TEST_F(SecretsTest, AreNotToldWhenNoConnectionCanBeOpened) {
    Use(TestMachine::AddressOf(0));
    ExpectNothingIsTold("nobody listens");
    Use("no.such.host.invalid");
    ExpectNothingIsTold("no such host");
    const std::string address = TestMachine::AddressOf(1);
    const ServerWithoutTls plain(address);
    Use(address);
    ExpectNothingIsTold("no TLS");
}

TEST_F(SecretsTest, AreNotToldWhenTheHostGivesWrongArguments) {
    const auto nameSpace = MakeNamespace();
    EXPECT_ANY_THROW(nameSpace->connect(std::vector<std::string>{"a", "b"}, {kUser}, {kPassword}));
    nameSpace->ObserveClients(&listener_);
    nameSpace->connect("no host\r\n", kUser, kPassword);
    nameSpace->disconnect();
    nameSpace->connect("127.0.0.1", std::string(kUser) + ":" + kPassword, kPassword);
    ExpectNothingIsTold("wrong arguments");
}

}  // namespace
}  // namespace NQELVSK20
