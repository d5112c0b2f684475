// What a command writes down of its requests.

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFile.h"
#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

using nlohmann::json;
using NQELVSK20::TestMachine;
using ::testing::HasSubstr;
using ::testing::Not;

std::string contentOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The lines of an event about an operation.
std::vector<json> eventsIn(const std::string& trace, const std::string& event, const std::string& operation) {
    std::vector<json> events;
    for (const std::string& line : linesOf(trace)) {
        const json read = json::parse(line);
        if (read.at("event") == event && read.value("operation", "") == operation) {
            events.push_back(read);
        }
    }
    return events;
}

}  // namespace

TEST(Trace, HasEachRequestsBeginningAndEnd) {
    TestMachine machine;
    const TemporaryFile file("of yesterday\n");
    const Outcome outcome =
        run({"--trace", file.path(), "--node", machine.Host(0), "instances", "OMC_NumericSensor"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string trace = contentOfFile(file.path());
    EXPECT_EQ(eventsIn(trace, "begin", "HTTPSConnect").size(), 1U);
    EXPECT_EQ(eventsIn(trace, "end", "HTTPSConnect").size(), 1U);
    const auto answers = eventsIn(trace, "end", "EnumerateInstances");
    ASSERT_FALSE(answers.empty());
    const json& answer = answers.back();
    EXPECT_EQ(answer.at("subject"), "OMC_NumericSensor");
    EXPECT_EQ(answer.at("node"), 1);
    EXPECT_EQ(answer.at("answered"), true);
    EXPECT_GE(answer.at("seconds"), 0.0);
    EXPECT_EQ(answer.at("time").get<std::string>().size(), std::string("2026-01-01T00:00:00.000Z").size());
}

TEST(Trace, TellsBehindEachEndWhatCame) {
    TestMachine machine;
    const TemporaryFile file("");
    EXPECT_EQ(
        run({"--trace", file.path(), "--node", machine.Host(0), "instances", "OMC_NumericSensor"}).status, 0);
    json above;
    std::size_t definitions = 0;
    std::size_t instances = 0;
    for (const std::string& line : linesOf(contentOfFile(file.path()))) {
        const json read = json::parse(line);
        if (read.contains("definition")) {
            EXPECT_EQ(above.at("operation"), "GetClass");
            EXPECT_EQ(above.at("subject"), read.at("definition"));
            ++definitions;
        } else if (read.contains("instances")) {
            EXPECT_EQ(above.at("operation"), "EnumerateInstances");
            EXPECT_EQ(above.at("event"), "end");
            instances += read.at("instances").get<std::size_t>();
        }
        above = read;
    }
    EXPECT_GT(definitions, 0U);
    EXPECT_GT(instances, 0U);
}

TEST(Trace, HasAttemptsThatFailed) {
    TestMachine machine;
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.code = 1;
    fault.text = "no classes today";
    fault.operation = "EnumerateClassNames";
    machine.Server().inject(fault);
    const TemporaryFile file("");
    EXPECT_EQ(run({"--trace", file.path(), "--node", machine.Host(0), "classes"}).status, 4);
    const std::string trace = contentOfFile(file.path());
    const auto failures = eventsIn(trace, "failure", "EnumerateClassNames");
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_THAT(failures[0].at("text").get<std::string>(), HasSubstr("no classes today"));
    const auto ends = eventsIn(trace, "end", "EnumerateClassNames");
    ASSERT_EQ(ends.size(), 1U);
    EXPECT_EQ(ends[0].at("answered"), false);
}

TEST(Trace, HoldsNoCredentials) {
    TestMachine::Options options;
    options.credentials = cimom::Credentials{"anna", "geheim"};
    TestMachine machine(options);
    const TemporaryFile file("");
    const Outcome outcome = Program({"--trace", file.path(), "--node", "anna@" + machine.Host(0), "classes"})
                                .with("CIMHTTP_PASSWORD", "geheim")
                                .run();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string trace = contentOfFile(file.path());
    EXPECT_THAT(trace, HasSubstr("EnumerateClassNames"));
    for (const char* secret : {"geheim", "anna", "YW5uYTpnZWhlaW0"}) {
        EXPECT_THAT(trace, Not(HasSubstr(secret)));
    }
}

TEST(Trace, NeedsAPlaceThatCanBeWritten) {
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "none" / "trace").string();
    TestMachine machine;
    const Outcome outcome = run({"--trace", path, "--node", machine.Host(0), "classes"});
    EXPECT_EQ(outcome.status, 6);
    EXPECT_THAT(outcome.err, HasSubstr("cimhttp: '" + path + "' cannot be written: "));
    EXPECT_EQ(machine.Server().connectionsAccepted(), 0U);
}

}  // namespace tool
