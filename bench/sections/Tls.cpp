// A small request and its answer over TLS, on a connection that is open: the client library, beside the same
// bytes through OpenSSL alone.

#include "bench/TlsSocket.h"

#include <memory>

#include "bench/HttpMessage.h"
#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/SampleServer.h"
#include "bench/SmallRequest.h"
#include "bench/sections/Sections.h"

namespace bench {

namespace {

constexpr std::size_t kTlsRequests = 500;
constexpr std::uint16_t kTlsPort = 5989;

std::string RecordSmallRequest() {
    const SampleServer server;
    AskForSlot(*ConnectedClient(SampleServer::Address(), false));
    return server.Requests().back();
}

Contestant::Work PrepareBareTls() {
    const std::string request = RecordSmallRequest();
    const auto connection =
        std::make_shared<TlsSocket>(TlsSocket::Connect(Socket::Connect(ReplayServer::Address(), kTlsPort)));
    return [request, connection] {
        std::size_t count = 0;
        HttpMessage answer;
        for (std::size_t i = 0; i < kTlsRequests; ++i) {
            connection->Send(request);
            ReceiveMessage(*connection, answer);
            count += answer.body.find("<INSTANCE ") != std::string::npos ? 1U : 0U;
        }
        return count;
    };
}

}  // namespace

Comparison CompareTls(const Settings& settings) {
    ReplayServer::Endpoint endpoint = SampleNode(0, 0);
    endpoint.port = kTlsPort;
    endpoint.tls = true;
    const ReplayServer server({endpoint});
    Comparison comparison("a small request and its answer over TLS");
    comparison.ShowPerItem();
    comparison.Enter("OpenSSL alone", kTlsRequests, PrepareBareTls);
    comparison.Enter(
        "the client library", kTlsRequests,
        [] { return AskRepeatedly(ConnectedClient(ReplayServer::Address(), true), kTlsRequests); }, {1.2});
    comparison.Run(settings.rounds);
    return comparison;
}

}  // namespace bench
