// A class that the plug-in has never heard of, with its superclasses: what the namespace makes of it, beside
// the same requests sent as they are and their answers received.

#include <memory>

#include "bench/HttpMessage.h"
#include "bench/PluginWork.h"
#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/SampleServer.h"
#include "bench/Socket.h"
#include "bench/sections/Sections.h"

namespace bench {

namespace {

using NameSpacePointer = boost::shared_ptr<NQELVSK20::TCimHTTPNamespace>;

constexpr const char* kClassWithFourAncestors = "OMC_FirmwareIdentity";
constexpr std::size_t kClasses = 10;  // a round; each in a namespace of its own

bool Fetches(const NameSpacePointer& nameSpace) {
    return nameSpace->GetClass(kClassWithFourAncestors, NQELVSK20::TContext()) != nullptr;
}

/// Without those of the process's first namespace alone.
std::vector<std::string> RequestsForAClass() {
    SampleServer server;
    Fetches(ConnectedNamespace({SampleServer::Address()}));
    const auto nameSpace = ConnectedNamespace({SampleServer::Address()});
    server.ForgetRequests();
    Fetches(nameSpace);
    return server.Requests();
}

Contestant::Work PrepareBareRequests() {
    const auto connection = std::make_shared<Socket>(Socket::Connect(ReplayServer::Address(), 5988));
    const std::vector<std::string> requests = RequestsForAClass();
    return [connection, requests] {
        HttpMessage answer;
        std::size_t count = 0;
        for (std::size_t i = 0; i < kClasses; ++i) {
            for (const std::string& request : requests) {
                connection->Send(request);
                ReceiveMessage(*connection, answer);
            }
            count += answer.body.find("<CLASS ") != std::string::npos ? 1U : 0U;
        }
        return count;
    };
}

/// Connecting is no part of the work: each round takes namespaces that are connected already.
Contestant::Work PrepareFetches(int rounds) {
    const auto fresh = std::make_shared<std::vector<NameSpacePointer>>();
    const auto used = std::make_shared<std::vector<NameSpacePointer>>();
    Fetches(ConnectedNamespace({ReplayServer::Address()}));
    for (std::size_t i = 0; i < static_cast<std::size_t>(rounds + 1) * kClasses; ++i) {
        fresh->push_back(ConnectedNamespace({ReplayServer::Address()}));
    }
    return [fresh, used] {
        std::size_t count = 0;
        for (std::size_t i = 0; i < kClasses; ++i) {
            count += Fetches(fresh->back()) ? 1U : 0U;
            used->push_back(fresh->back());
            fresh->pop_back();
        }
        return count;
    };
}

}  // namespace

Comparison CompareDefinitions(const Settings& settings) {
    const ReplayServer server({SampleNode(0, 0)});
    Comparison comparison("a class with four ancestors, none of them cached");
    comparison.ShowPerItem();
    comparison.Enter("its requests, answers received", kClasses, PrepareBareRequests);
    comparison.Enter("GetClass", kClasses, [&] { return PrepareFetches(settings.rounds); }, {1.3});
    comparison.Run(settings.rounds);
    return comparison;
}

}  // namespace bench
