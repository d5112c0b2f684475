// A password is nowhere in what the program prints, however it fails; and what is no name or holds more than
// one is refused before anything is sent.

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <vector>

#include "tests/support/ServerWithoutTls.h"
#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFile.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::HasSubstr;
using ::testing::Not;
using FaultKind = cimom::Fault::Kind;
using Arguments = std::vector<std::string>;

constexpr const char* kDistinctive = "D1stinctive-W0rt";
// As it goes over the network: with the user "anna", and alone.
constexpr const char* kSentWithUser = "YW5uYTpEMXN0aW5jdGl2ZS1XMHJ0";
constexpr const char* kSentAlone = "RDFzdGluY3RpdmUtVzBydA";

TestMachine::Options letting(const char* password) {
    TestMachine::Options options;
    options.credentials = cimom::Credentials{"anna", password};
    return options;
}

cimom::Fault failing(FaultKind kind, int code = 0, const char* text = "") {
    cimom::Fault fault;
    fault.kind = kind;
    fault.code = code;
    fault.text = text;
    fault.operation = "EnumerateClassNames";
    return fault;
}

void expectNothingShown(const Outcome& outcome, int status) {
    EXPECT_EQ(outcome.status, status) << outcome.err;
    EXPECT_NE(outcome.err, "");
    for (const char* secret : {kDistinctive, kSentWithUser, kSentAlone, "Authorization"}) {
        EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr(secret)));
    }
}

/// Runs it with all that it can tell, the password in a variable.
Outcome runTelling(Arguments arguments) {
    arguments.insert(arguments.begin(), {"--verbose", "--user", "anna"});
    return Program(arguments).with("CIMHTTP_PASSWORD", kDistinctive).run();
}

}  // namespace

TEST(Secrets, AreNotShownWhenAServerRefusesThem) {
    TestMachine machine(letting("another"));
    expectNothingShown(runTelling({"--node", machine.Host(0), "names", "CIM_Fan"}), 4);
    EXPECT_EQ(machine.AuthorizationsOf(0), Arguments{std::string("Basic ") + kSentWithUser})
        << "they were sent";
    const TemporaryFile file(std::string(kDistinctive) + "\n");
    expectNothingShown(
        run({"-v", "--node", "anna@" + machine.Host(0), "--password-file", file.path(), "names", "CIM_Fan"}),
        4);
}

TEST(Secrets, AreNotShownWhenAServerGivesNoGoodAnswer) {
    TestMachine machine(letting(kDistinctive));
    machine.Server().inject(failing(FaultKind::CimError, 1, "no classes today"));
    expectNothingShown(runTelling({"--node", machine.Host(0), "classes"}), 4);
    machine.Server().clearFaults();
    cimom::Fault once = failing(FaultKind::RawAnswer, 0, "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi");
    once.times = 1;
    machine.Server().inject(once);
    expectNothingShown(runTelling({"--node", machine.Host(0), "classes"}), 0);
    EXPECT_EQ(machine.AuthorizationsOf(0), Arguments{std::string("Basic ") + kSentWithUser});
}

TEST(Secrets, AreNotShownWhenAServerDoesNotAnswerInTime) {
    TestMachine machine(letting(kDistinctive));
    cimom::Fault fault = failing(FaultKind::Delay);
    fault.delay = std::chrono::milliseconds(3300);  // class names have three seconds, then six
    fault.times = 1;
    machine.Server().inject(fault);
    expectNothingShown(runTelling({"--node", machine.Host(0), "classes"}), 0);
}

TEST(Secrets, AreNotShownWhenNoConnectionCanBeOpened) {
    expectNothingShown(runTelling({"--node", TestMachine::AddressOf(0), "names", "CIM_Fan"}), 4);
    expectNothingShown(runTelling({"--node", "no.such.host.invalid", "names", "CIM_Fan"}), 4);
    const std::string address = TestMachine::AddressOf(1);
    const ServerWithoutTls plain(address);
    expectNothingShown(runTelling({"--node", address, "--transport", "https", "names", "CIM_Fan"}), 4);
}

TEST(Secrets, AreNotShownWhenTheArgumentsAreWrong) {
    const std::string password = kDistinctive;
    const TemporaryFile twoLines(password + "\n" + password + "\n");
    for (const Arguments& arguments : std::vector<Arguments>{
             {"--password", password, "names", "CIM_Fan"},
             {"--password=" + password, "names", "CIM_Fan"},
             {"-p", password, "names", "CIM_Fan"},
             {"-p" + password, "names", "CIM_Fan"},
             {"names", "CIM_Fan", password},
             {"--node", "anna:" + password + "@127.0.0.1", "names", "CIM_Fan"},
             {"--node", "anna:" + password + "@127.0.0.1:5989", "names", "CIM_Fan"},
             {"--node", "anna:" + password + "@", "names", "CIM_Fan"},
             {"--node", "anna:" + password, "names", "CIM_Fan"},
             {"--node", "127.0.0.1", "--user", "anna:" + password, "names", "CIM_Fan"},
             {"--node", "anna@127.0.0.1", "--password-file", twoLines.path(), "names", "CIM_Fan"}}) {
        expectNothingShown(run(arguments), 2);
    }
    EXPECT_THAT(run({"--password=" + password, "names", "CIM_Fan"}).err, HasSubstr("--password"));
    EXPECT_THAT(run({"--node", "anna:" + password + "@127.0.0.1", "names", "CIM_Fan"}).err,
                HasSubstr("--password-file"));
}

TEST(Injection, IsRefusedBeforeAnythingIsSent) {
    TestMachine machine;
    const std::string& host = machine.Host(0);
    const std::string more = "\r\nX-Other: 1";
    const std::string sensor = "OMC_NumericSensor.DeviceID=\"1\"";
    for (const auto& [arguments, status] : std::vector<std::pair<Arguments, int>>{
             {{"--node", host + more, "names", "CIM_Fan"}, 2},
             {{"--node", host + "\r\nX-Other", "names", "CIM_Fan"}, 2},
             {{"--node", host + " ", "names", "CIM_Fan"}, 2},
             {{"--node", "anna" + more + "@" + host, "names", "CIM_Fan"}, 2},
             {{"--node", "an\x01na@" + host, "names", "CIM_Fan"}, 2},
             {{"--node", host, "--namespace", "root/cimv2" + more, "names", "CIM_Fan"}, 2},
             {{"--node", host, "--namespace", "root/cim v2", "names", "CIM_Fan"}, 2}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, status) << outcome.err;
        EXPECT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    }
    EXPECT_EQ(machine.Server().connectionsAccepted(), 0U);
    const Outcome password = Program({"--node", "anna@" + host, "names", "CIM_Fan"})
                                 .with("CIMHTTP_PASSWORD", "one\nX-Other: 1")
                                 .run();
    EXPECT_EQ(password.status, 4);
    EXPECT_THAT(password.err, HasSubstr("The password holds a control character"));
    EXPECT_TRUE(machine.Server().requests().empty());
    for (const Arguments& arguments :
         std::vector<Arguments>{{"--node", host, "names", "CIM_Fan" + more},
                                {"--node", host, "classes", "CIM_Fan" + more},
                                {"--node", host, "walk", "CIM Fan"},
                                {"--node", host, "get", "CIM_Fan" + more + ".Id=1"},
                                {"--node", host, "invoke", sensor, "Reset" + more}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
    }
    for (const cimom::SeenRequest& request : machine.Server().requests()) {
        EXPECT_THAT(request.head + request.body, Not(HasSubstr("X-Other")));
    }
}

}  // namespace tool
