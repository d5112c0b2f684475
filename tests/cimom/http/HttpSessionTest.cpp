#include "cimom/http/HttpSession.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <thread>

#include "tests/cimom/support/ServerFixture.h"

namespace cimom {
namespace {

using test::RawAnswer;
using test::RawConnection;

/// Everything that holds for both HTTP and HTTPS.
class HttpSessionTest : public test::ServerFixture, public testing::WithParamInterface<bool> {
protected:
    std::uint16_t listenHere(Endpoint endpoint = Endpoint()) {
        endpoint.tls = GetParam();
        return listen(endpoint);
    }

    RawConnection connectHere(std::uint16_t port) { return connect(port, tls()); }

    RawAnswer askHere(std::uint16_t port, const std::string& request) { return ask(port, request, tls()); }

    static RawConnection::Tls tls() {
        return GetParam() ? RawConnection::Tls::Any : RawConnection::Tls::None;
    }

    /// EnumerateClassNames in two chunks, the first of ten bytes.
    static std::string chunkedRequest(const std::string& body) {
        char size[20];
        std::snprintf(size, sizeof size, "%zx", body.size() - 10);
        return "POST /cimom HTTP/1.1\r\nHost: h\r\nCIMOperation: MethodCall\r\n"
               "CIMMethod: EnumerateClassNames\r\nCIMObject: root/cimv2\r\n"
               "Transfer-Encoding: chunked\r\n\r\na\r\n" +
               body.substr(0, 10) + "\r\n" + size + "\r\n" + body.substr(10) + "\r\n0\r\n\r\n";
    }
};

INSTANTIATE_TEST_SUITE_P(Transport, HttpSessionTest, testing::Bool(),
                         [](const auto& tls) { return tls.param ? "Https" : "Http"; });

TEST_P(HttpSessionTest, AnswersSeveralRequestsOverOneConnection) {
    RawConnection connection = connectHere(listenHere());
    for (int i = 0; i < 5; ++i) {
        connection.send(instancesRequest());
        const RawAnswer answer = connection.readAnswer();
        EXPECT_EQ(answer.status, 200);
        EXPECT_TRUE(answer.complete);
        EXPECT_EQ(answer.fields.at("cimoperation"), "MethodResponse");
        EXPECT_NE(answer.body.find("<INSTANCENAME CLASSNAME=\"Middle\">"), std::string::npos);
    }
    EXPECT_EQ(server_.connectionsAccepted(), 1U);
}

TEST_P(HttpSessionTest, AnswersRequestsSentInOneGo) {
    RawConnection connection = connectHere(listenHere());
    connection.send(instancesRequest() + instancesRequest() + instancesRequest("Connection: close\r\n"));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(connection.readAnswer().status, 200);
    }
    EXPECT_EQ(connection.readToEnd(), "");
}

TEST_P(HttpSessionTest, AnswersARequestThatComesByteByByte) {
    RawConnection connection = connectHere(listenHere());
    for (const char c : instancesRequest()) {
        ASSERT_TRUE(connection.send(std::string_view(&c, 1)));
    }
    EXPECT_EQ(connection.readAnswer().status, 200);
}

TEST_P(HttpSessionTest, ClosesWhenTheClientSaysSo) {
    RawConnection connection = connectHere(listenHere());
    connection.send(instancesRequest("Connection: close\r\n"));
    const RawAnswer answer = connection.readAnswer();
    EXPECT_TRUE(answer.complete);
    EXPECT_EQ(answer.fields.at("connection"), "close");
    EXPECT_EQ(connection.readToEnd(), "");
}

TEST_P(HttpSessionTest, ReadsAChunkedRequest) {
    const std::string body = test::intrinsicMessage("EnumerateClassNames", {});
    RawConnection connection = connectHere(listenHere());
    connection.send(chunkedRequest(body));
    EXPECT_EQ(connection.readAnswer().status, 200);
    EXPECT_EQ(server_.requests().at(0).body, body);
}

TEST_P(HttpSessionTest, ReadsAChunkedRequestThatComesByteByByte) {
    const std::string body = test::intrinsicMessage("EnumerateClassNames", {});
    RawConnection connection = connectHere(listenHere());
    for (const char byte : chunkedRequest(body)) {
        connection.send(std::string(1, byte));
    }
    EXPECT_EQ(connection.readAnswer().status, 200);
    EXPECT_EQ(server_.requests().at(0).body, body);
}

TEST_P(HttpSessionTest, InvitesABodyThatIsHeldBack) {
    RawConnection connection = connectHere(listenHere());
    const std::string request = instancesRequest("Expect: 100-continue\r\n");
    const auto body = request.find("\r\n\r\n") + 4;
    connection.send(request.substr(0, body));
    EXPECT_EQ(connection.readAnswer().status, 100);
    connection.send(request.substr(body));
    EXPECT_EQ(connection.readAnswer().status, 200);
}

TEST_P(HttpSessionTest, ChunksOnlyWhenTheEndpointAndTheClientAgree) {
    Endpoint endpoint;
    endpoint.chunkBytes = 7;
    const std::uint16_t chunking = listenHere(endpoint);
    const RawAnswer chunked = askHere(chunking, instancesRequest("TE: trailers\r\n"));
    EXPECT_TRUE(chunked.complete);
    EXPECT_EQ(chunked.trailers.at("cimstatuscode"), "0");
    const RawAnswer whole = askHere(chunking, instancesRequest());
    EXPECT_EQ(whole.fields.count("transfer-encoding"), 0U);
    EXPECT_EQ(chunked.body, whole.body);
    EXPECT_EQ(askHere(listenHere(), instancesRequest("TE: trailers\r\n")).fields.count("transfer-encoding"),
              0U);
}

TEST_P(HttpSessionTest, SendsLongAnswersWhole) {
    repository_->multiplyInstances("root/cimv2", "Leaf", 20000);
    Endpoint chunking;
    chunking.chunkBytes = 50000;
    for (const std::uint16_t port : {listenHere(), listenHere(chunking)}) {
        const RawAnswer answer = askHere(port, instancesRequest("TE: trailers\r\n"));
        EXPECT_TRUE(answer.complete);
        EXPECT_GT(answer.body.size(), 2000000U);
        EXPECT_EQ(answer.body.substr(answer.body.size() - 7), "</CIM>\n");
    }
}

TEST_P(HttpSessionTest, ClosesUnannouncedAfterItsNumberOfAnswers) {
    Endpoint endpoint;
    endpoint.requestsPerConnection = 2;
    RawConnection connection = connectHere(listenHere(endpoint));
    for (int i = 0; i < 2; ++i) {
        connection.send(instancesRequest());
        const RawAnswer answer = connection.readAnswer();
        EXPECT_TRUE(answer.complete);
        EXPECT_EQ(answer.fields.count("connection"), 0U);
    }
    EXPECT_EQ(connection.readToEnd(), "");
}

TEST_P(HttpSessionTest, ClosesAConnectionOnWhichNothingComes) {
    Endpoint endpoint;
    endpoint.idleLimit = std::chrono::milliseconds(200);
    const std::uint16_t port = listenHere(endpoint);
    const std::string request = instancesRequest();
    const std::size_t headEnd = request.find("\r\n\r\n") + 4;
    for (const std::size_t sent : {std::size_t{0}, std::size_t{10}, headEnd, request.size() - 1}) {
        RawConnection connection = connectHere(port);
        connection.send(request.substr(0, sent));
        EXPECT_EQ(connection.readToEnd(), "") << "after " << sent << " bytes";
    }
    RawConnection used = connectHere(port);
    used.send(request);
    EXPECT_TRUE(used.readAnswer().complete);
    EXPECT_EQ(used.readToEnd(), "") << "between requests";
}

TEST_P(HttpSessionTest, ClosesAConnectionThatSpeaksNoTlsWhereTlsIsSpoken) {
    Endpoint endpoint;
    endpoint.idleLimit = std::chrono::milliseconds(200);
    RawConnection connection = connect(listenHere(endpoint));
    EXPECT_EQ(connection.readToEnd(), "");
}

TEST_P(HttpSessionTest, GoesOnReadingARequestThatComesSlowlyButDoesCome) {
    Endpoint endpoint;
    endpoint.idleLimit = std::chrono::milliseconds(800);
    RawConnection connection = connectHere(listenHere(endpoint));
    const std::string request = instancesRequest();
    const std::size_t piece = request.size() / 8 + 1;
    for (std::size_t at = 0; at < request.size(); at += piece) {
        std::this_thread::sleep_for(std::chrono::milliseconds(120));
        connection.send(request.substr(at, piece));
    }
    EXPECT_TRUE(connection.readAnswer().complete);
}

TEST_P(HttpSessionTest, ClosesAConnectionTooManyAndTakesTheNextWhenThereIsRoom) {
    Endpoint endpoint;
    endpoint.maxConnections = 2;
    const std::uint16_t port = listenHere(endpoint);
    RawConnection kept = connectHere(port);
    kept.send(instancesRequest());
    EXPECT_TRUE(kept.readAnswer().complete);
    {
        RawConnection second = connectHere(port);
        second.send(instancesRequest());
        EXPECT_TRUE(second.readAnswer().complete);
        RawConnection tooMany = connect(port);
        EXPECT_EQ(tooMany.readToEnd(), "");
    }
    // The server hears of the second's end when it does.
    RawAnswer third;
    while (!third.complete) {
        try {
            third = askHere(port, instancesRequest());
        } catch (const std::runtime_error&) {
            std::this_thread::yield();  // no handshake either: still one too many
        }
    }
    kept.send(instancesRequest());
    EXPECT_TRUE(kept.readAnswer().complete);
}

TEST_P(HttpSessionTest, AsksForAPasswordAndTakesTheRightOne) {
    Endpoint endpoint;
    endpoint.credentials = Credentials{"user", "secret"};
    RawConnection connection = connectHere(listenHere(endpoint));
    connection.send(instancesRequest());
    const RawAnswer refused = connection.readAnswer();
    EXPECT_EQ(refused.status, 401);
    EXPECT_EQ(refused.fields.at("www-authenticate"), "Basic realm=\"cimom\"");
    connection.send(instancesRequest("Authorization: Basic dXNlcjpzZWNyZXQ=\r\n"));
    EXPECT_EQ(connection.readAnswer().status, 200);
}

TEST_P(HttpSessionTest, RefusesABodyThatIsTooLarge) {
    Endpoint endpoint;
    endpoint.maxBodyBytes = 1000;
    const std::uint16_t port = listenHere(endpoint);
    EXPECT_EQ(askHere(port, test::httpRequest("M", "root/cimv2", std::string(1001, 'x'))).status, 413);
    EXPECT_EQ(askHere(port, "POST /cimom HTTP/1.1\r\nHost: h\r\nTransfer-Encoding: chunked\r\n\r\n7d0\r\n" +
                                std::string(2000, 'x') + "\r\n0\r\n\r\n")
                  .status,
              413);
    EXPECT_EQ(askHere(port, instancesRequest()).status, 200);
}

TEST_P(HttpSessionTest, RefusesAHeadThatIsTooLarge) {
    const std::uint16_t port = listenHere();
    EXPECT_EQ(askHere(port, instancesRequest("X: " + std::string(70000, 'x') + "\r\n")).status, 431);
    EXPECT_EQ(askHere(port, std::string(70000, 'x')).status, 431);
}

TEST_P(HttpSessionTest, RefusesALineBetweenChunksThatDoesNotEnd) {
    EXPECT_EQ(
        askHere(listenHere(), "POST /cimom HTTP/1.1\r\nHost: h\r\nTransfer-Encoding: chunked\r\n\r\n5;" +
                                  std::string(70000, 'x'))
            .status,
        400);
}

TEST_P(HttpSessionTest, RefusesWhatIsNoHttp) {
    const std::uint16_t port = listenHere();
    for (const char* text :
         {"\r\n\r\n", "GARBAGE\r\n\r\n", "POST\r\n\r\n", "POST /cimom HTTP/9.9\r\n\r\n",
          "POST /cimom HTTP/1.1\r\nno colon\r\n\r\n", "POST /cimom HTTP/1.1\r\nContent-Length: many\r\n\r\n",
          "POST /cimom HTTP/1.1\r\nContent-Length: -1\r\n\r\n",
          "POST /cimom HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n"}) {
        EXPECT_EQ(askHere(port, text).status, 400) << text;
    }
    EXPECT_EQ(askHere(port, instancesRequest()).status, 200);
}

TEST_P(HttpSessionTest, AnswersOtherVerbsWith405) {
    const std::uint16_t port = listenHere();
    EXPECT_EQ(askHere(port, "GET /cimom HTTP/1.1\r\nHost: h\r\n\r\n").status, 405);
    EXPECT_EQ(askHere(port, "DELETE /cimom HTTP/1.1\r\nHost: h\r\n\r\n").fields.at("allow"), "POST");
    EXPECT_EQ(askHere(port, "M-POST /cimom HTTP/1.1\r\nHost: h\r\nContent-Length: 0\r\n\r\n").status, 501);
}

TEST_P(HttpSessionTest, TellsBrokenXmlFromBrokenMessages) {
    const std::uint16_t port = listenHere();
    EXPECT_EQ(askHere(port, test::httpRequest("GetClass", "root/cimv2", "<CIM")).fields.at("cimerror"),
              "request-not-well-formed");
    EXPECT_EQ(askHere(port, test::httpRequest("GetClass", "root/cimv2", "<CIM/>")).fields.at("cimerror"),
              "request-not-valid");
    EXPECT_EQ(askHere(port, test::httpRequest("GetClass", "root/cimv2", "")).status, 400);
}

TEST_P(HttpSessionTest, SurvivesRequestsThatEndAtAnyByte) {
    const std::uint16_t port = listenHere();
    const std::string request = instancesRequest();
    // Over TLS each connection costs a handshake.
    const std::size_t step = GetParam() ? 37 : 1;
    for (std::size_t size = 0; size < request.size(); size += step) {
        RawConnection connection = connectHere(port);
        connection.send(request.substr(0, size));
        connection.finishSending();
        EXPECT_EQ(connection.readAnswer().status, 0) << size;
    }
    EXPECT_EQ(askHere(port, request).status, 200);
}

TEST_P(HttpSessionTest, SurvivesMessagesCutOffAtAnyByte) {
    const std::uint16_t port = listenHere();
    RawConnection connection = connectHere(port);
    const std::string message =
        test::intrinsicMessage("EnumerateInstanceNames", {{"ClassName", test::classNameXml("Base")}});
    for (std::size_t size = 0; size < message.size(); ++size) {
        connection.send(test::httpRequest("EnumerateInstanceNames", "root/cimv2", message.substr(0, size)));
        EXPECT_EQ(connection.readAnswer().status, 400) << size;
    }
}

TEST_P(HttpSessionTest, SurvivesMessagesWithAnyByteChanged) {
    const std::uint16_t port = listenHere();
    RawConnection connection = connectHere(port);
    const std::string message = test::extrinsicMessage(
        "Touch", test::instanceNameXml("Leaf", test::keyXml("Id", "a")), {{"Count", test::valueXml("1")}});
    for (std::size_t at = 0; at < message.size(); ++at) {
        for (const char wrong : {'\0', '<', '"', 'Z', '\xFF'}) {
            std::string changed = message;
            changed[at] = wrong;
            connection.send(test::httpRequest("Touch", "root/cimv2:Leaf.Id=\"a\"", changed));
            const int status = connection.readAnswer().status;
            EXPECT_TRUE(status == 200 || status == 400 || status == 501) << at << ' ' << status;
        }
    }
}

TEST_P(HttpSessionTest, SurvivesPathsNestedTooDeep) {
    std::string path = test::classNameXml("X");
    for (int i = 0; i < 1000; ++i) {
        path = test::instanceNameXml(
            "X", "<KEYBINDING NAME=\"r\"><VALUE.REFERENCE>" + path + "</VALUE.REFERENCE></KEYBINDING>");
    }
    const RawAnswer answer =
        askHere(listenHere(), test::httpRequest("M", "root/cimv2:X", test::extrinsicMessage("M", path, {})));
    EXPECT_EQ(answer.status, 400);
}

// Faults

class FaultTest : public HttpSessionTest {
protected:
    void inject(Fault::Kind kind, std::size_t bytes = 0, int code = 0, const std::string& text = "") {
        Fault fault;
        fault.kind = kind;
        fault.bytes = bytes;
        fault.code = code;
        fault.text = text;
        fault.times = 1;
        server_.inject(fault);
    }
};

INSTANTIATE_TEST_SUITE_P(Transport, FaultTest, testing::Bool(),
                         [](const auto& tls) { return tls.param ? "Https" : "Http"; });

TEST_P(FaultTest, ClosesAtAnyByteAndIsWellAfterwards) {
    const std::uint16_t port = listenHere();
    RawConnection whole = connectHere(port);
    whole.send(instancesRequest("Connection: close\r\n"));
    const std::string all = whole.readToEnd();
    const std::size_t step = GetParam() ? 41 : 1;
    for (std::size_t bytes = 0; bytes < all.size(); bytes += step) {
        inject(Fault::Kind::CloseAtByte, bytes);
        RawConnection connection = connectHere(port);
        connection.send(instancesRequest("Connection: close\r\n"));
        EXPECT_EQ(connection.readToEnd(), all.substr(0, bytes));
    }
    EXPECT_EQ(askHere(port, instancesRequest()).status, 200);
}

TEST_P(FaultTest, ClosesBeforeTheAnswer) {
    const std::uint16_t port = listenHere();
    inject(Fault::Kind::CloseBeforeAnswer);
    RawConnection connection = connectHere(port);
    connection.send(instancesRequest());
    EXPECT_EQ(connection.readToEnd(), "");
    ASSERT_EQ(server_.requests().size(), 1U);
    EXPECT_EQ(server_.requests()[0].status, 0);
}

TEST_P(FaultTest, AnnouncesAWrongLength) {
    const std::uint16_t port = listenHere();
    const std::string right = askHere(port, instancesRequest()).body;
    inject(Fault::Kind::WrongLength, 100);
    const RawAnswer answer = askHere(port, instancesRequest());
    EXPECT_EQ(answer.fields.at("content-length"), std::to_string(right.size() + 100));
    EXPECT_EQ(answer.body, right);
    EXPECT_FALSE(answer.complete);
}

TEST_P(FaultTest, AnswersWithAnHttpStatus) {
    const std::uint16_t port = listenHere();
    inject(Fault::Kind::HttpStatus, 0, 503, "Too Busy");
    RawConnection connection = connectHere(port);
    connection.send(instancesRequest());
    const RawAnswer answer = connection.readAnswer();
    EXPECT_EQ(answer.status, 503);
    EXPECT_EQ(answer.reason, "Too Busy");
    EXPECT_EQ(answer.body, "");
    connection.send(instancesRequest());
    EXPECT_EQ(connection.readAnswer().status, 200);
    EXPECT_EQ(server_.requests().at(0).status, 503);
}

TEST_P(FaultTest, SpoilsTheXml) {
    const std::uint16_t port = listenHere();
    inject(Fault::Kind::MalformedXml);
    const RawAnswer answer = askHere(port, instancesRequest());
    EXPECT_TRUE(answer.complete);
    EXPECT_EQ(answer.body.find("</CIM>"), std::string::npos);
}

TEST_P(FaultTest, AnswersWithACimError) {
    const std::uint16_t port = listenHere();
    inject(Fault::Kind::CimError, 0, 1, "out of order");
    EXPECT_NE(askHere(port, instancesRequest()).body.find("<ERROR CODE=\"1\" DESCRIPTION=\"out of order\">"),
              std::string::npos);
}

TEST_P(FaultTest, ReportsAnErrorInTheTrailers) {
    const std::uint16_t port = listenHere();
    inject(Fault::Kind::TrailerError, 0, 7, "half-way");
    const RawAnswer answer = askHere(port, instancesRequest());
    EXPECT_TRUE(answer.complete);
    EXPECT_EQ(answer.trailers.at("cimstatuscode"), "7");
    EXPECT_EQ(answer.trailers.at("cimstatuscodedescription"), "half-way");
}

TEST_P(FaultTest, NeverAnswersButKeepsTheConnection) {
    const std::uint16_t port = listenHere();
    RawConnection silent = connectHere(port);
    silent.send(instancesRequest());
    EXPECT_EQ(silent.readAnswer().status, 200) << "and what TLS sends after its handshake has been read";
    inject(Fault::Kind::NoAnswer);
    silent.send(instancesRequest());
    while (server_.requests().size() < 2) {
        std::this_thread::yield();
    }
    EXPECT_EQ(askHere(port, instancesRequest()).status, 200);
    EXPECT_FALSE(silent.readableWithin(20));
    server_.stop();
    EXPECT_EQ(silent.readToEnd(), "");
}

TEST_P(FaultTest, SendsARawAnswerAndReadsTheNextRequest) {
    const std::uint16_t port = listenHere();
    inject(Fault::Kind::RawAnswer, 0, 0, "HTTP/1.1 299 Odd\r\nContent-Length: 2\r\n\r\nhi");
    RawConnection connection = connectHere(port);
    connection.send(instancesRequest());
    const RawAnswer answer = connection.readAnswer();
    EXPECT_EQ(answer.status, 299);
    EXPECT_EQ(answer.body, "hi");
    connection.send(instancesRequest());
    EXPECT_EQ(connection.readAnswer().status, 200);
}

TEST_P(FaultTest, DelaysOneAnswerWithoutHoldingUpOthers) {
    const std::uint16_t port = listenHere();
    Fault fault;
    fault.delay = std::chrono::milliseconds(300);
    fault.times = 1;
    server_.inject(fault);
    RawConnection slow = connectHere(port);
    slow.send(instancesRequest());
    while (server_.requests().empty()) {
        std::this_thread::yield();
    }
    EXPECT_EQ(askHere(port, instancesRequest()).status, 200);
    EXPECT_EQ(slow.readAnswer().status, 200);
}

TEST_P(FaultTest, TouchesOnlyTheOperationClassAndAddressNamed) {
    const std::uint16_t port = listenHere();
    Fault fault;
    fault.kind = Fault::Kind::HttpStatus;
    fault.code = 500;
    fault.operation = "EnumerateInstanceNames";
    fault.className = "Middle";
    server_.inject(fault);
    EXPECT_EQ(askHere(port, instancesRequest()).status, 200);
    EXPECT_EQ(askHere(port, test::intrinsicRequest("EnumerateInstanceNames",
                                                   {{"ClassName", test::classNameXml("middle")}}))
                  .status,
              500);
    server_.clearFaults();
    EXPECT_EQ(askHere(port, test::intrinsicRequest("EnumerateInstanceNames",
                                                   {{"ClassName", test::classNameXml("middle")}}))
                  .status,
              200);
}

}  // namespace
}  // namespace cimom
