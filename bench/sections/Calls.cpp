// Calls that hosts make without end and that no server is asked for, beside what every one of them has to do
// at least: copy a name.

#include "bench/PluginWork.h"
#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/sections/Sections.h"
#include "namespace/names/Names.h"

namespace bench {

namespace {

constexpr std::size_t kCalls = 200000;
const std::string kName24 = "CIM_EnabledLogicalDevice";

std::string CopyInLowerCase(const std::string& name) {
    std::string copy = name;
    for (char& letter : copy) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter + ('a' - 'A'));
        }
    }
    return copy;
}

/// Calls one after the other; counts those whose result is as it should be.
template <class TCall>
Contestant::Work PrepareCalls(const TCall& isRight) {
    return [isRight] {
        std::size_t count = 0;
        for (std::size_t i = 0; i < kCalls; ++i) {
            count += isRight() ? 1U : 0U;
        }
        return count;
    };
}

Contestant::Work PrepareCopies() {
    return PrepareCalls([] { return CopyInLowerCase(kName24).back() == 'e'; });
}

Contestant::Work PrepareNormalizations() {
    return PrepareCalls([] { return NQELVSK20::NormalizeName(kName24).back() == 'e'; });
}

Contestant::Work PrepareCachedClass() {
    const auto nameSpace = ConnectedNamespace({ReplayServer::Address()});
    const std::string name = kManyClass;
    const NQELVSK20::TContext context;
    const auto cached = nameSpace->GetClass(name, context);
    return PrepareCalls([=] { return nameSpace->GetClass(name, context) == cached; });
}

}  // namespace

Comparison CompareCalls(const Settings& settings) {
    const ReplayServer server({SampleNode(0, 0)});
    Comparison comparison("calls that ask no server");
    comparison.ShowPerItem();
    comparison.Enter("a name of 24 letters, copied lowered", kCalls, PrepareCopies);
    comparison.Enter("NormalizeName of that name", kCalls, PrepareNormalizations, {1.5});
    comparison.Enter("GetClass of a cached class", kCalls, PrepareCachedClass, {0, 0, 1e-6});
    comparison.Run(settings.rounds);
    return comparison;
}

}  // namespace bench
