// What a whole enumeration costs, layer by layer: the answer received into one buffer and parsed in place and
// nothing more; the client library's array; the plug-in, each property read once.

#include <Pegasus/Client/CIMClient.h>
#include <fmt/format.h>

#include <iterator>
#include <memory>
#include <pugixml.hpp>
#include <stdexcept>

#include "bench/HttpMessage.h"
#include "bench/PluginWork.h"
#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/Socket.h"
#include "bench/sections/Sections.h"

namespace bench {

namespace {

constexpr std::uint16_t kPort = 5988;

HttpMessage AskForAll(const Socket& connection) {
    connection.Send(EnumerationRequest(ReplayServer::Address(), kManyClass));
    HttpMessage answer;
    ReceiveMessage(connection, answer);
    return answer;
}

std::size_t CountParsed(std::string& body) {
    pugi::xml_document document;
    document.load_buffer_inplace(&body[0], body.size());
    const auto values = document.child("CIM")
                            .child("MESSAGE")
                            .child("SIMPLERSP")
                            .child("IMETHODRESPONSE")
                            .child("IRETURNVALUE")
                            .children();
    return static_cast<std::size_t>(std::distance(values.begin(), values.end()));
}

Contestant::Work PrepareFloor() {
    const auto connection = std::make_shared<Socket>(Socket::Connect(ReplayServer::Address(), kPort));
    return [connection] {
        HttpMessage answer = AskForAll(*connection);
        return CountParsed(answer.body);
    };
}

Contestant::Work PrepareClient() {
    const auto client = std::make_shared<Pegasus::CIMClient>();
    client->setTimeout(600000);
    client->connect(ReplayServer::Address().c_str(), kPort, Pegasus::String::EMPTY, Pegasus::String::EMPTY);
    return [client] {
        return std::size_t{client
                               ->enumerateInstances(Pegasus::CIMNamespaceName(kNamespace),
                                                    Pegasus::CIMName(kManyClass), true, true, false, false,
                                                    Pegasus::CIMPropertyList())
                               .size()};
    };
}

Contestant::Work PreparePlugin() {
    return PrepareEnumeration({ReplayServer::Address()});
}

struct Layer {
    const char* key;
    const char* name;
    Comparison::Prepare prepare;
    Target target;
};

const std::vector<Layer>& Layers() {
    static const std::vector<Layer> layers{
        {"floor", "received and parsed", PrepareFloor, {}},
        {"client", "the client's array", PrepareClient, {3}},
        {"plugin", "the whole plug-in", PreparePlugin, {6, 4}},
    };
    return layers;
}

}  // namespace

const std::vector<std::string>& LayerKeys() {
    static const std::vector<std::string> keys = [] {
        std::vector<std::string> result;
        for (const Layer& layer : Layers()) {
            result.emplace_back(layer.key);
        }
        return result;
    }();
    return keys;
}

void RunLayer(const std::string& key, const Settings& settings) {
    const ReplayServer server({SampleNode(0, 0, settings.instances)});
    for (const Layer& layer : Layers()) {
        if (layer.key == key) {
            const Contestant::Work work = layer.prepare();
            for (int round = 0; round <= settings.rounds; ++round) {
                work();
            }
        }
    }
}

Comparison CompareLayers(const Settings& settings) {
    const ReplayServer server({SampleNode(0, 0, settings.instances)});
    const std::size_t bytes = AskForAll(Socket::Connect(ReplayServer::Address(), kPort)).body.size();
    Comparison comparison(fmt::format("{} instances of {}, an answer of {:.1f} MB", settings.instances,
                                      kManyClass, static_cast<double>(bytes) / 1e6));
    comparison.MeasureMemoryBy(static_cast<double>(bytes), "the answer's bytes");
    for (const Layer& layer : Layers()) {
        comparison.Enter(layer.name, settings.instances, layer.prepare, layer.target);
    }
    comparison.Run(settings.rounds);
    return comparison;
}

}  // namespace bench
