// The program cimom, run as a person runs it.

#include <gtest/gtest.h>
#include <unistd.h>

#include <boost/asio/error.hpp>
#include <csignal>
#include <cstdio>
#include <fstream>

#include "tests/cimom/support/Gzipped.h"
#include "tests/cimom/support/RawConnection.h"
#include "tests/cimom/support/Requests.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/support/Process.h"

namespace cimom {
namespace {

using support::Process;
using support::ProcessOptions;
using support::ProcessResult;
using support::runProcess;
using test::RawConnection;

const char* const kProgram = CIMOM_PROGRAM;

/// A file for the time of a test.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& content)
        : name_(testing::TempDir() + "cimom-" + std::to_string(::getpid())) {
        std::ofstream(name_, std::ios::binary) << content;
    }
    ~TemporaryFile() { std::remove(name_.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& name() const { return name_; }

private:
    std::string name_;
};

std::uint16_t portOf(const std::string& line) {
    return static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':') + 1)));
}

test::RawAnswer ask(const std::string& address, std::uint16_t port, const std::string& request,
                    RawConnection::Tls tls = RawConnection::Tls::None) {
    RawConnection connection(address, port, tls);
    connection.send(request);
    return connection.readAnswer();
}

std::size_t countOf(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        ++count;
    }
    return count;
}

std::string sensorNames() {
    return test::intrinsicRequest("EnumerateInstanceNames",
                                  {{"ClassName", test::classNameXml("OMC_NumericSensor")}});
}

TEST(Program, ServesANodePerAddressOverHttpAndHttps) {
    Process program({kProgram, "--address", "127.0.0.1", "--address", "127.0.0.2", "--http-port", "0",
                     "--https-port", "0"});
    const std::string lines[] = {program.readLine(), program.readLine(), program.readLine(),
                                 program.readLine()};
    EXPECT_EQ(lines[0].substr(0, 32), "Node 0 ready at http://127.0.0.1");
    EXPECT_EQ(lines[1].substr(0, 33), "Node 0 ready at https://127.0.0.1");
    EXPECT_EQ(lines[2].substr(0, 32), "Node 1 ready at http://127.0.0.2");
    EXPECT_EQ(lines[3].substr(0, 33), "Node 1 ready at https://127.0.0.2");
    EXPECT_EQ(countOf(ask("127.0.0.1", portOf(lines[0]), sensorNames()).body, "<INSTANCENAME"), 13U);
    EXPECT_EQ(countOf(ask("127.0.0.2", portOf(lines[3]), sensorNames(), RawConnection::Tls::Any).body,
                      "<INSTANCENAME"),
              9U);
    program.signal(SIGTERM);
    const ProcessResult result = program.wait();
#ifndef _WIN32  // which knows no such request
    EXPECT_EQ(result.status, 0);
#endif
    EXPECT_EQ(result.err, "");
}

TEST(Program, EndsWellOnInterrupt) {
    ProcessOptions options;
    options.terminal = true;
    Process program({kProgram, "--http-port", "0", "--no-https"}, options);
    ASSERT_TRUE(program.readUntil("Node 0 ready at "));
    program.type("\x03");
    const ProcessResult result = program.wait();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
}

TEST(Program, MultipliesInstancesAndLoadsDeclarations) {
    const TemporaryFile file(test::kSmallDeclarations);
    Process program({kProgram, "--http-port", "0", "--no-https", "--instances", "OMC_NumericSensor=250",
                     "--load", "root/small=" + file.name()});
    const std::uint16_t port = portOf(program.readLine());
    EXPECT_EQ(countOf(ask("127.0.0.1", port, sensorNames()).body, "<INSTANCENAME"), 250U);
    const std::string message = test::intrinsicMessage("EnumerateClassNames", {}, "root/small");
    EXPECT_EQ(
        countOf(ask("127.0.0.1", port, test::httpRequest("EnumerateClassNames", "root/small", message)).body,
                "<CLASSNAME"),
        2U);
}

/// The class Leaf and its first instance as the program sends them when it is run with these options.
std::string leafAndInstance(const std::vector<std::string>& options) {
    const TemporaryFile file(test::kSmallDeclarations);
    std::vector<std::string> command{kProgram,     "--http-port", "0",
                                     "--no-https", "--load",      "root/small=" + file.name()};
    command.insert(command.end(), options.begin(), options.end());
    Process program(command);
    const std::uint16_t port = portOf(program.readLine());
    std::string bodies;
    for (const char* operation : {"GetClass", "EnumerateInstances"}) {
        const std::string message =
            test::intrinsicMessage(operation, {{"ClassName", test::classNameXml("Leaf")}}, "root/small");
        bodies += ask("127.0.0.1", port, test::httpRequest(operation, "root/small", message)).body;
    }
    return bodies;
}

TEST(Program, PlaysServersThatTakeLocalOnlyOtherwise) {
    const std::string inheritedMethod = "<METHOD NAME=\"Reset\"";
    const std::string inheritedValue = "<VALUE>First &amp; best</VALUE>";
    const std::string usual = leafAndInstance({});
    EXPECT_EQ(countOf(usual, inheritedMethod), 0U);
    EXPECT_EQ(countOf(usual, inheritedValue), 1U);
    const std::string flat = leafAndInstance({"--flat-classes"});
    EXPECT_EQ(countOf(flat, inheritedMethod), 1U);
    EXPECT_EQ(countOf(flat, inheritedValue), 1U);
    const std::string declared = leafAndInstance({"--declared-properties"});
    EXPECT_EQ(countOf(declared, inheritedMethod), 0U);
    EXPECT_EQ(countOf(declared, inheritedValue), 0U);
    EXPECT_EQ(countOf(declared, "<VALUE.NAMEDINSTANCE>"), 2U);
}

/// A snapshot of two nodes: the small data, and nothing.
std::string snapshotOfTwoNodes() {
    std::string text = test::kSmallDeclarations;
    text.insert(
        text.find("<DECLGROUP>") + 11,
        "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>");
    text.insert(text.find("</CIM>"), "<DECLARATION></DECLARATION>");
    return test::gzipped(text);
}

TEST(Program, ServesTheNodesOfASnapshotEachOnAnAddressOfItsOwn) {
    const TemporaryFile file(snapshotOfTwoNodes());
    for (const std::vector<std::string>& addresses :
         {std::vector<std::string>{}, {"--address", "127.0.0.1", "--address", "127.0.0.2"}}) {
        std::vector<std::string> command{kProgram,     "--http-port", "0",
                                         "--no-https", "--snapshot",  file.name()};
        command.insert(command.end(), addresses.begin(), addresses.end());
        Process program(command);
        const std::string first = program.readLine();
        const std::string second = program.readLine();
        EXPECT_EQ(first.substr(0, 33), "Node 0 ready at http://127.0.0.1:");
        EXPECT_EQ(second.substr(0, 33), "Node 1 ready at http://127.0.0.2:");
        const std::string request =
            test::intrinsicRequest("EnumerateInstanceNames", {{"ClassName", test::classNameXml("Base")}});
        EXPECT_EQ(countOf(ask("127.0.0.1", portOf(first), request).body, "<INSTANCENAME"), 3U);
        EXPECT_NE(ask("127.0.0.2", portOf(second), request).body.find("<ERROR CODE=\"3\""),
                  std::string::npos);
    }
}

TEST(Program, ServesTheFirstNodesOfASnapshotWhenThereAreTooFewAddresses) {
    const TemporaryFile file(snapshotOfTwoNodes());
    Process program({kProgram, "--http-port", "0", "--no-https", "--snapshot", file.name(), "--address",
                     "127.0.0.1", "--instances", "Leaf=5"});
    const std::uint16_t port = portOf(program.readLine());
    const std::string request =
        test::intrinsicRequest("EnumerateInstanceNames", {{"ClassName", test::classNameXml("Leaf")}});
    EXPECT_EQ(countOf(ask("127.0.0.1", port, request).body, "<INSTANCENAME"), 5U);
    program.signal(SIGTERM);
    EXPECT_EQ(program.wait().err, "cimom: warning: 1 addresses for the 2 nodes of " + file.name() + "\n");
}

TEST(Program, RefusesASnapshotInOneLine) {
    const auto errorOf = [](const std::string& content, const std::vector<std::string>& more = {}) {
        const TemporaryFile file(content);
        std::vector<std::string> command{kProgram,     "--http-port", "0",
                                         "--no-https", "--snapshot",  file.name()};
        command.insert(command.end(), more.begin(), more.end());
        const ProcessResult result = runProcess(command);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        const auto at = result.err.find(file.name());
        EXPECT_NE(at, std::string::npos) << result.err;
        return result.err.substr(0, at) + "FILE" + result.err.substr(at + file.name().size());
    };
    EXPECT_EQ(errorOf("<CIM>\n</CIM>"), "cimom: FILE:1: no CIM element with a DECLARATION in it\n");
    EXPECT_EQ(errorOf(snapshotOfTwoNodes().substr(0, 100)),
              "cimom: FILE: the compressed data end early, at byte 100\n");
    EXPECT_EQ(errorOf(snapshotOfTwoNodes(),
                      {"--address", "127.0.0.1", "--address", "127.0.0.2", "--address", "127.0.0.3"}),
              "cimom: 3 addresses for the 2 nodes of FILE\n");
}

TEST(Program, AsksForThePasswordInTheFile) {
    const TemporaryFile file("secret\nnot this\n");
    Process program({kProgram, "--http-port", "0", "--no-https", "--user", "user", "--password-file",
                     file.name(), "--log"});
    const std::uint16_t port = portOf(program.readLine());
    EXPECT_EQ(ask("127.0.0.1", port, sensorNames()).status, 401);
    EXPECT_EQ(program.readLine(), "127.0.0.1:" + std::to_string(port) + " EnumerateInstanceNames - 401");
    const std::string request = test::intrinsicRequest(
        "EnumerateInstanceNames", {{"ClassName", test::classNameXml("OMC_NumericSensor")}},
        "Authorization: Basic dXNlcjpzZWNyZXQ=\r\n");
    EXPECT_EQ(ask("127.0.0.1", port, request).status, 200);
    EXPECT_EQ(program.readLine(),
              "127.0.0.1:" + std::to_string(port) + " EnumerateInstanceNames OMC_NumericSensor 200");
}

TEST(Program, ClosesASilentConnectionAfterItsIdleLimit) {
    Process program({kProgram, "--http-port", "0", "--no-https", "--idle-limit", "1"});
    RawConnection connection("127.0.0.1", portOf(program.readLine()));
    connection.send("POST /cimom HTTP/1.1\r\n");
    EXPECT_EQ(connection.readToEnd(), "");
}

TEST(Program, SaysInOneLineThatAPortIsInUse) {
    Process first({kProgram, "--http-port", "0", "--no-https"});
    const std::string port = std::to_string(portOf(first.readLine()));
    const ProcessResult result = runProcess({kProgram, "--http-port", port, "--no-https"});
    EXPECT_EQ(result.status, 1);
    const boost::system::error_code inUse = boost::asio::error::address_in_use;
    EXPECT_EQ(result.err, "cimom: cannot listen on 127.0.0.1 port " + port + ": " + inUse.message() + "\n");
}

TEST(Program, SaysInOneLineWhatElseIsWrong) {
    const auto errorOf = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {kProgram, "--http-port", "0", "--no-https"});
        const ProcessResult result = runProcess(arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(countOf(result.err, "\n"), 1U);
        return result.err;
    };
    EXPECT_EQ(errorOf({"--load", "root/x=/nowhere/x.xml"}), "cimom: cannot read /nowhere/x.xml\n");
    EXPECT_EQ(errorOf({"--snapshot", "/nowhere/s"}), "cimom: cannot read /nowhere/s\n");
    EXPECT_EQ(errorOf({"--instances", "Nothing=5"}), "cimom: there is no class 'Nothing' in 'root/cimv2'\n");
    EXPECT_EQ(errorOf({"--user", "u", "--password-file", "/nowhere/p"}), "cimom: cannot read /nowhere/p\n");
    EXPECT_EQ(errorOf({"--address", "machine"}),
              "cimom: cannot listen on machine port 0: not an IP address\n");
}

TEST(Program, RefusesWrongUsageWithStatus2) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--odd"},
                                                      {"extra"},
                                                      {"--http-port", "many"},
                                                      {"--http-port", "70000"},
                                                      {"--instances", "OMC_NumericSensor"},
                                                      {"--instances", "=5"},
                                                      {"--instances", "C=5x"},
                                                      {"--instances", "C=-1"},
                                                      {"--load", "root/x"},
                                                      {"--idle-limit", "0"},
                                                      {"--idle-limit", "-1"},
                                                      {"--user", "u"},
                                                      {"--password-file", "f"},
                                                      {"--no-http", "--no-https"},
                                                      {"--address"}}) {
        std::vector<std::string> command = arguments;
        command.insert(command.begin(), kProgram);
        const ProcessResult result = runProcess(command);
        EXPECT_EQ(result.status, 2) << arguments[0];
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(countOf(result.err, "\n"), 1U) << result.err;
    }
}

TEST(Program, PrintsHelpAndVersion) {
    const ProcessResult help = runProcess({kProgram, "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option :
         {"--address", "--http-port", "--https-port", "--no-http", "--no-https", "--user", "--password-file",
          "--snapshot", "--instances", "--load", "--flat-classes", "--declared-properties", "--idle-limit",
          "--log", "--version"}) {
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
    }
    EXPECT_EQ(help.out.find_first_of("{}"), std::string::npos) << "a flag shows the value behind it";
    EXPECT_NE(help.out.find("--idle-limit N  "), std::string::npos) << help.out;
    const ProcessResult version = runProcess({kProgram, "--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out.substr(0, 6), "cimom ");
}

TEST(Program, WarnsWhenOtherMachinesCanReachIt) {
    Process program({kProgram, "--http-port", "0", "--no-https", "--address", "0.0.0.0"});
    EXPECT_EQ(program.readLine().substr(0, 16), "Node 0 ready at ");
    program.signal(SIGTERM);
    EXPECT_EQ(program.wait().err, "cimom: warning: 0.0.0.0 can be reached from other machines\n");
}

}  // namespace
}  // namespace cimom
