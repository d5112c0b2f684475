// A class that the plug-in has never heard of, with its superclasses: what the namespace makes of it, beside
// the same requests made through the client library, and the same sent as they are, their answers received
// only.

#include <Pegasus/Client/CIMClient.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/HttpMessage.h"
#include "bench/PluginWork.h"
#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/SampleServer.h"
#include "bench/SmallRequest.h"
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

/// A GetClass request as the client library is asked for it.
struct DefinitionRequest {
    explicit DefinitionRequest(const std::string& text)
        : className(Between(text, "<CLASSNAME NAME=\"", "\"").c_str()),
          localOnly(IsTrue(text, "LocalOnly")),
          includeQualifiers(IsTrue(text, "IncludeQualifiers")),
          includeClassOrigin(IsTrue(text, "IncludeClassOrigin")) {}

    static std::string Between(const std::string& text, const std::string& start, const std::string& end) {
        const std::size_t begin = text.find(start);
        if (begin == std::string::npos) {
            throw std::runtime_error("a request without " + start);
        }
        return text.substr(begin + start.size(), text.find(end, begin + start.size()) - begin - start.size());
    }

    /// A flag that is not sent has its default (DSP0200, GetClass).
    static bool IsTrue(const std::string& text, const std::string& flag) {
        const std::string start = "<IPARAMVALUE NAME=\"" + flag + "\"><VALUE>";
        return text.find(start) == std::string::npos ? flag != "IncludeClassOrigin"
                                                     : Between(text, start, "<") == "TRUE";
    }

    Pegasus::CIMName className;
    bool localOnly;
    bool includeQualifiers;
    bool includeClassOrigin;
};

Contestant::Work PrepareLibraryRequests() {
    const auto client = ConnectedClient(ReplayServer::Address(), false);
    std::vector<DefinitionRequest> requests;
    for (const std::string& request : RequestsForAClass()) {
        requests.emplace_back(request);
    }
    return [client, requests] {
        std::size_t count = 0;
        for (std::size_t i = 0; i < kClasses; ++i) {
            bool isDefined = true;
            for (const DefinitionRequest& request : requests) {
                isDefined = !client
                                 ->getClass(Pegasus::CIMNamespaceName("root/cimv2"), request.className,
                                            request.localOnly, request.includeQualifiers,
                                            request.includeClassOrigin, Pegasus::CIMPropertyList())
                                 .isUninitialized() &&
                            isDefined;
            }
            count += isDefined ? 1U : 0U;
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
    comparison.Enter("its requests, by the library", kClasses, PrepareLibraryRequests);
    comparison.Enter("GetClass", kClasses, [&] { return PrepareFetches(settings.rounds); }, {1.3});
    comparison.Enter("its requests, answers unread", kClasses, PrepareBareRequests);
    comparison.Run(settings.rounds);
    return comparison;
}

}  // namespace bench
