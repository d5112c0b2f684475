// What a whole enumeration costs, layer by layer: the answer received into one buffer and parsed in place and
// nothing more (the floor); the client library's array; the plug-in, each property read once. Every layer
// runs in a process of its own and in turn with the others; the server answers from memory.

#include <Pegasus/Client/CIMClient.h>
#include <unistd.h>

#include <boost/pointer_cast.hpp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "bench/Contestant.h"
#include "bench/HttpMessage.h"
#include "bench/ReplayServer.h"
#include "bench/Socket.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "qelc/TQELCNamespace.h"
#include "union/TUnionNamespace.h"
#include "vskcore/ICIMProperty.h"

namespace {

using namespace NQELVSK20;
using bench::Contestant;

constexpr std::uint16_t kPort = 5988;
constexpr const char* kClass = "OMC_NumericSensor";

/// A loopback address that no other run at the same time uses.
const std::string& Address() {
    static const std::string address =
        "127.99." + std::to_string(getpid() / 250 % 250 + 2) + "." + std::to_string(getpid() % 250 + 2);
    return address;
}

/// The length of the answer, which every layer receives.
std::size_t AnswerBytes() {
    const bench::Socket connection = bench::Socket::Connect(Address(), kPort);
    connection.Send(bench::EnumerationRequest(Address(), kClass));
    bench::HttpMessage answer;
    bench::ReceiveMessage(connection, answer);
    return answer.body.size();
}

Contestant::Work PrepareFloor() {
    const auto connection = std::make_shared<bench::Socket>(bench::Socket::Connect(Address(), kPort));
    return [connection] {
        connection->Send(bench::EnumerationRequest(Address(), kClass));
        bench::HttpMessage answer;
        bench::ReceiveMessage(*connection, answer);
        pugi::xml_document document;
        document.load_buffer_inplace(&answer.body[0], answer.body.size());
        const auto values = document.child("CIM")
                                .child("MESSAGE")
                                .child("SIMPLERSP")
                                .child("IMETHODRESPONSE")
                                .child("IRETURNVALUE")
                                .children();
        return static_cast<std::size_t>(std::distance(values.begin(), values.end()));
    };
}

Contestant::Work PrepareClient() {
    const auto client = std::make_shared<Pegasus::CIMClient>();
    client->setTimeout(600000);
    client->connect(Address().c_str(), kPort, Pegasus::String::EMPTY, Pegasus::String::EMPTY);
    return [client] {
        return std::size_t{client
                               ->enumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"),
                                                    Pegasus::CIMName(kClass), true, true, false, false,
                                                    Pegasus::CIMPropertyList())
                               .size()};
    };
}

boost::shared_ptr<TCimHTTPNamespace> ConnectedNamespace() {
    const auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(
        TCimHTTPNamespaceProvider::GetInstance()->AllocateNamespace(
            {{"pluginNameQualDeclValue", TCIMValue("bench")}}, false, "root/cimv2"));
    const boost::shared_ptr<TQELCNamespace> common(new TQELCNamespace);
    common->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(new TUnionNamespace), TContext());
    nameSpace->SetUpcallNamespace(common, TContext());
    nameSpace->Init();
    nameSpace->ConnectViaHttp(Address(), "", "", kPort);
    return nameSpace;
}

std::size_t CountProperties(const ICIMInstance& instance) {
    std::size_t count = 0;
    instance.EnumerateProperties(
        [&](boost::shared_ptr<ICIMProperty> property) {
            count += property->GetValue(TContext()).IsNull() ? 0U : 1U;
            return true;
        },
        TContext());
    return count;
}

Contestant::Work PreparePlugin() {
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace = ConnectedNamespace();
    return [nameSpace] {
        std::size_t count = 0;
        std::size_t properties = 0;
        nameSpace->GetClass(kClass, TContext())
            ->EnumerateInstances(
                [&](boost::shared_ptr<ICIMInstance> instance) {
                    ++count;
                    properties += CountProperties(*instance);
                    return true;
                },
                false, TContext());
        return properties == 0 ? std::size_t{0} : count;
    };
}

struct Target {
    double time = 0;    ///< As a multiple of the floor.
    double memory = 0;  ///< Peak, as a multiple of the answer's bytes; zero: none.
};

void Print(const std::vector<Contestant>& layers, const std::vector<Target>& targets,
           std::size_t answerBytes) {
    const Contestant& floor = layers[0];
    std::printf("  %-22s %9s %8s %8s %12s %8s %8s\n", "", "quickest", "/ floor", "target", "CPU / floor",
                "memory", "target");
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const Contestant& layer = layers[i];
        std::printf("  %-22s %6.1f ms %8.2f %8.1f %12.2f %8.2f %8.1f\n", layer.Name().c_str(),
                    layer.Quickest() * 1e3, layer.Quickest() / floor.Quickest(), targets[i].time,
                    layer.LeastProcessorTime() / floor.LeastProcessorTime(),
                    layer.PeakBytes() / static_cast<double>(answerBytes), targets[i].memory);
    }
}

void WriteJson(const std::string& file, const std::vector<Contestant>& layers, std::size_t answerBytes) {
    std::ofstream out(file);
    out << "{\"answerBytes\": " << answerBytes << ", \"layers\": [";
    for (const Contestant& layer : layers) {
        out << (&layer == &layers[0] ? "" : ", ") << "{\"name\": \"" << layer.Name()
            << "\", \"instances\": " << layer.Count() << ", \"quickestSeconds\": " << layer.Quickest()
            << ", \"overFloor\": " << layer.Quickest() / layers[0].Quickest()
            << ", \"peakBytes\": " << layer.PeakBytes() << "}";
    }
    out << "]}\n";
}

void Run(std::size_t instances, int rounds, const std::string& json) {
    Address();  // of this process, before there are others
    const bench::ReplayServer server({Address()}, kPort, [instances] {
        const auto repository = cimom::Repository::sampleNode(0);
        repository->multiplyInstances("root/cimv2", kClass, instances);
        return repository;
    });
    std::vector<Contestant> layers;
    layers.emplace_back("received and parsed", PrepareFloor);
    layers.emplace_back("the client's array", PrepareClient);
    layers.emplace_back("the whole plug-in", PreparePlugin);
    for (Contestant& layer : layers) {
        layer.RunOnce();
        layer.Forget();
        if (layer.Count() != instances) {
            throw std::runtime_error(layer.Name() + ": " + std::to_string(layer.Count()) + " instances");
        }
    }
    for (int round = 0; round < rounds; ++round) {
        for (Contestant& layer : layers) {
            layer.RunOnce();
        }
    }
    const std::size_t answerBytes = AnswerBytes();
    for (Contestant& layer : layers) {
        layer.Finish();
    }
    std::printf("%zu instances of %s, %.1f MB, the quickest of %d rounds each\n", instances, kClass,
                static_cast<double>(answerBytes) / 1e6, rounds);
    Print(layers, {{1, 0}, {3, 0}, {6, 4}}, answerBytes);
    if (!json.empty()) {
        WriteJson(json, layers, answerBytes);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Run(argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 10000,
            argc > 2 ? static_cast<int>(std::strtol(argv[2], nullptr, 10)) : 15, argc > 3 ? argv[3] : "");
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
