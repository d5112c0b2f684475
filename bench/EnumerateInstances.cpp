// How much the layers cost: the instances of one class, received and parsed and nothing more; decoded by the
// client library; delivered by the plug-in. Printed as multiples of the first, measured in one run.

#include <Pegasus/Client/CIMClient.h>

#include <algorithm>
#include <boost/pointer_cast.hpp>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "bench/RawExchange.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "cimom/Server.h"
#include "qelc/TQELCNamespace.h"
#include "union/TUnionNamespace.h"

namespace {

using namespace NQELVSK20;

constexpr const char* kAddress = "127.99.88.77";
constexpr std::uint16_t kPort = 5988;
constexpr const char* kClass = "OMC_NumericSensor";
constexpr int kRounds = 5;

struct Layer {
    const char* name;
    std::function<std::size_t()> run;  // the number of instances seen
    std::vector<double> seconds;
};

void Measure(Layer& layer, std::size_t expected) {
    const auto start = std::chrono::steady_clock::now();
    const std::size_t count = layer.run();
    layer.seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    if (count != expected) {
        std::fprintf(stderr, "%s: %zu instances instead of %zu\n", layer.name, count, expected);
        std::exit(1);
    }
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

std::size_t ReceiveAndParse() {
    std::string body = bench::RawEnumerateInstances(kAddress, kPort, kClass);
    pugi::xml_document document;
    document.load_buffer_inplace(body.data(), body.size());
    const auto values =
        document.first_child().first_child().first_child().first_child().first_child().children();
    return static_cast<std::size_t>(std::distance(values.begin(), values.end()));
}

std::size_t Decode(Pegasus::CIMClient& client) {
    return client
        .enumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"), Pegasus::CIMName(kClass), true, true,
                            false, false, Pegasus::CIMPropertyList())
        .size();
}

std::size_t Deliver(TCimHTTPNamespace& nameSpace) {
    std::size_t count = 0;
    nameSpace.GetClass(kClass, TContext())
        ->EnumerateInstances(
            [&](boost::shared_ptr<ICIMInstance>) {
                ++count;
                return true;
            },
            false, TContext());
    return count;
}

boost::shared_ptr<TCimHTTPNamespace> ConnectedNamespace() {
    const auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(
        TCimHTTPNamespaceProvider::GetInstance()->AllocateNamespace(
            {{"pluginNameQualDeclValue", TCIMValue("bench")}}, false, "root/cimv2"));
    const boost::shared_ptr<TQELCNamespace> common(new TQELCNamespace);
    common->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(new TUnionNamespace), TContext());
    nameSpace->SetUpcallNamespace(common, TContext());
    nameSpace->Init();
    nameSpace->ConnectViaHttp(kAddress, "", "", kPort);
    return nameSpace;
}

}  // namespace

int main(int argc, char** argv) {
    const std::size_t instances = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 10000;
    cimom::Endpoint endpoint;
    endpoint.address = kAddress;
    endpoint.port = kPort;
    endpoint.repository = cimom::Repository::sampleNode(0);
    endpoint.repository->multiplyInstances("root/cimv2", kClass, instances);
    cimom::Server server;
    server.keepRequests(false);
    server.listen(endpoint);
    server.start();

    Pegasus::CIMClient client;
    client.setTimeout(600000);
    client.connect(kAddress, kPort, Pegasus::String::EMPTY, Pegasus::String::EMPTY);
    const auto nameSpace = ConnectedNamespace();
    Deliver(*nameSpace);  // the class itself is fetched once

    std::vector<Layer> layers{{"received and parsed", ReceiveAndParse, {}},
                              {"decoded by the client", [&] { return Decode(client); }, {}},
                              {"delivered by the plug-in", [&] { return Deliver(*nameSpace); }, {}}};
    for (int round = 0; round < kRounds; ++round) {
        for (Layer& layer : layers) {
            Measure(layer, instances);
        }
    }
    const double floor = Median(layers[0].seconds);
    std::printf("%zu instances of %s, median of %d rounds\n", instances, kClass, kRounds);
    for (const Layer& layer : layers) {
        std::printf("  %-26s %6.2f x  (%.3f s)\n", layer.name, Median(layer.seconds) / floor,
                    Median(layer.seconds));
    }
    return 0;
}
