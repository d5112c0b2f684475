// What becomes of the whole plug-in's time and memory as a machine grows.

#include <fmt/format.h>

#include "bench/PluginWork.h"
#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/sections/Sections.h"

namespace bench {

namespace {

std::string Instances(std::size_t count) {
    return fmt::format("{} instances", count);
}

}  // namespace

Comparison CompareSizes(const Settings& settings) {
    const std::size_t few = settings.instances;
    const std::size_t many = few * 10;
    const ReplayServer server({SampleNode(0, 0, few), SampleNode(0, 1, many)});
    Comparison comparison("the whole plug-in, ten times as many instances");
    comparison.MeasureMemoryByFirst();
    comparison.Enter(Instances(few), few, [] { return PrepareEnumeration({ReplayServer::Address(0)}); });
    comparison.Enter(Instances(many), many, [] { return PrepareEnumeration({ReplayServer::Address(1)}); },
                     {10.5, 10.5});
    comparison.Run(settings.rounds);
    return comparison;
}

Comparison CompareNodes(const Settings& settings) {
    constexpr unsigned nodes = 4;
    std::vector<ReplayServer::Endpoint> endpoints;
    std::vector<std::string> hosts;
    for (unsigned node = 0; node < nodes; ++node) {
        endpoints.push_back(SampleNode(node, node, settings.instances));
        hosts.push_back(ReplayServer::Address(node));
    }
    const ReplayServer server(std::move(endpoints));
    Comparison comparison(
        fmt::format("the whole plug-in, {} and other instances on each node", Instances(settings.instances)));
    comparison.MeasureMemoryByFirst();
    comparison.Enter("one node", settings.instances, [&] { return PrepareEnumeration({hosts.front()}); });
    comparison.Enter("four nodes", nodes * settings.instances,
                     [&] {
                         CheckDelivery(hosts, settings.instances);
                         return PrepareEnumeration(hosts);
                     },
                     {4.2});
    comparison.Run(settings.rounds);
    return comparison;
}

}  // namespace bench
