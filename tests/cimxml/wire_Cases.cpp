// Every file of cases/, run through the whole client over connections in memory: as it comes, byte by byte,
// and with its answers cut in two at every byte; with Content-Length and chunked.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cimxml/client/CIMClientRep.h"
#include "cimxml/wire/HttpConnection.h"
#include "cimxml/wire/WireError.h"
#include "tests/cimxml/wire_Outcome.h"
#include "tests/cimxml/wire_ScriptedServer.h"
#include "tests/cimxml/wire_WireCase.h"

namespace cimxml_test {
namespace {

using Framing = WireCase::Framing;

constexpr std::size_t whole = std::size_t(-1);

std::vector<Exchange> scriptOf(const WireCase& wireCase, Framing framing) {
    std::vector<Exchange> script;
    for (const WireCase::Round& round : wireCase.rounds) {
        Exchange exchange;
        exchange.answer = [round, framing](const std::string& id) { return round.format(framing, id); };
        exchange.close = round.end == "close" || round.end.rfind("cut ", 0) == 0;
        exchange.closeWhenIdle = round.end == "close-when-idle";
        exchange.stray = round.end.rfind("stray ", 0) == 0 ? round.end.substr(6) : "";
        script.push_back(exchange);
    }
    return script;
}

void checkRequest(const WireCase::Round& round, const std::string& request) {
    const std::string header = request.substr(0, request.find("\r\n\r\n") + 2);
    for (const std::string& field : round.requestFields) {
        EXPECT_NE(header.find("\r\n" + field + "\r\n"), std::string::npos) << field << "\nnot in\n" << header;
    }
    for (const std::string& text : round.requestContains) {
        EXPECT_NE(request.find(text), std::string::npos) << text << "\nnot in\n" << request;
    }
    for (const std::string& text : round.requestLacks) {
        EXPECT_EQ(request.find(text), std::string::npos) << text << "\nin\n" << request;
    }
}

/// Runs the case as far as its rounds go: the call is repeated until each round has been asked for, so that a
/// case shows what a second call meets. The outcome is that of the last call.
std::string run(const WireCase& wireCase, ScriptedServer& server) {
    Pegasus::CIMClientRep client;
    client.connect(server.connector(), "server.example", 5988, "user", "pass:word");
    std::string outcome = outcomeOf(client, wireCase.call);
    for (std::size_t again = 1; !server.scriptDone() && again < wireCase.rounds.size(); ++again) {
        outcome = outcomeOf(client, wireCase.call);
    }
    return outcome;
}

void expectOutcome(const WireCase& wireCase, Framing framing, ScriptedServer::Pieces pieces) {
    ScriptedServer server(scriptOf(wireCase, framing), std::move(pieces));
    const std::string outcome = run(wireCase, server);
    // "..." at the end of an expected message stands for anything.
    const std::size_t open = wireCase.outcome.find("...\n");
    if (open != std::string::npos) {
        EXPECT_EQ(outcome.substr(0, open), wireCase.outcome.substr(0, open)) << outcome;
    } else {
        EXPECT_EQ(outcome, wireCase.outcome);
    }
    ASSERT_EQ(server.requests().size(), wireCase.rounds.size());
    for (std::size_t i = 0; i < wireCase.rounds.size(); ++i) {
        checkRequest(wireCase.rounds[i], server.requests()[i]);
    }
}

/// What the HTTP layer makes of an answer, in text.
std::string receive(const Exchange& exchange, ScriptedServer::Pieces pieces) {
    ScriptedServer server({exchange}, std::move(pieces));
    const auto deadline = cimxml::Deadline::after(std::chrono::seconds(1));
    cimxml::HttpConnection connection(server.connector()(deadline), cimxml::Limits());
    try {
        const auto answer = connection.exchange("POST / HTTP/1.1\r\nContent-Length: 0\r\n\r\n", deadline);
        std::string text = std::to_string(answer.status) + answer.reason + (answer.keepAlive ? "+" : "-");
        for (const auto& [name, value] : answer.fields) {
            text += name + ":" + value + ";";
        }
        return text + answer.body;
    } catch (const cimxml::WireError& error) {
        return error.what();
    }
}

void expectNoDifferenceWhereverItIsCut(const Exchange& exchange) {
    const std::string uncut = receive(exchange, {whole});
    const std::size_t size = exchange.answer("").size();
    for (std::size_t cut = 1; cut < size; ++cut) {
        ASSERT_EQ(receive(exchange, {cut, whole}), uncut) << "cut at byte " << cut;
    }
}

class WireCases : public testing::TestWithParam<std::string> {
protected:
    WireCase wireCase = WireCase::load(casePath(GetParam()));
};

TEST_P(WireCases, WithContentLength) {
    expectOutcome(wireCase, Framing::Length, {whole});
    expectOutcome(wireCase, Framing::Length, {1});
}

TEST_P(WireCases, Chunked) {
    if (wireCase.hasFraming()) {
        expectOutcome(wireCase, Framing::Chunked, {whole});
        expectOutcome(wireCase, Framing::Chunked, {1});
    }
}

TEST_P(WireCases, CutAtEveryByte) {
    for (const Framing framing : {Framing::Length, Framing::Chunked}) {
        for (const Exchange& exchange : scriptOf(wireCase, framing)) {
            expectNoDifferenceWhereverItIsCut(exchange);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, WireCases, testing::ValuesIn(caseNames()), [](const auto& parameter) {
    std::string name = parameter.param;
    for (char& c : name) {
        c = c == '-' ? '_' : c;
    }
    return name;
});

TEST(WireCaseFiles, AreAtLeastSixty) {
    EXPECT_GE(caseNames().size(), 60U);
}

}  // namespace
}  // namespace cimxml_test
