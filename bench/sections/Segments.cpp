// Answers in three segments from a server with Nagle's algorithm on. Such a server waits with the second
// segment until the first is acknowledged; on a connection that it closes afterwards it does not wait.

#include <algorithm>

#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/SmallRequest.h"
#include "bench/sections/Sections.h"

namespace bench {

namespace {

constexpr std::size_t kAnswers = 100;

ReplayServer::Endpoint SegmentingNode(unsigned address, bool closes) {
    ReplayServer::Endpoint endpoint = SampleNode(0, address);
    endpoint.segments = true;
    endpoint.closes = closes;
    return endpoint;
}

Comparison::Prepare AskAt(unsigned address) {
    return
        [address] { return AskRepeatedly(ConnectedClient(ReplayServer::Address(address), false), kAnswers); };
}

}  // namespace

Comparison CompareSegments(const Settings& settings) {
    const ReplayServer server({SegmentingNode(0, true), SegmentingNode(1, false)});
    Comparison comparison(std::to_string(kAnswers) + " answers of three segments, Nagle's algorithm on");
    comparison.Enter("connection closed after each", kAnswers, AskAt(0));
    comparison.Enter("connection kept", kAnswers, AskAt(1), {1});
    // A connection that waits for acknowledgements needs seconds a round.
    comparison.Run(std::min(settings.rounds, 9));
    return comparison;
}

}  // namespace bench
