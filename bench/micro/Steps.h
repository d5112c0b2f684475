#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "bench/micro/Allocations.h"

namespace bench {

/// Registers a benchmark of a step that works on so many items at once; what it returns is not thrown away.
/// The table tells the time of the whole step, and of each item how many blocks of memory it asks for.
template <class TStep>
void AddStep(const std::string& name, const TStep& step, std::size_t items = 1) {
    benchmark::RegisterBenchmark(name.c_str(), [step, items](benchmark::State& state) {
        const std::size_t before = Allocations();
        for (auto _ : state) {
            benchmark::DoNotOptimize(step());
        }
        const double done = static_cast<double>(state.iterations()) * static_cast<double>(items);
        state.counters["allocations/item"] = static_cast<double>(Allocations() - before) / done;
        state.SetItemsProcessed(static_cast<std::int64_t>(done));
    });
}

// Each registers its own.

void AddNames();        ///< What is done to names of classes and members.
void AddConversions();  ///< Values of each type, to the host's form and back.
void AddPaths();        ///< Object paths and their text.
void AddInstances();    ///< What an answer has, into a host's instance.
void AddWire();         ///< Requests into text and answers out of it; nothing where OpenPegasus does that.

}  // namespace bench
