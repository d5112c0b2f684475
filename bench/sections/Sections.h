#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "bench/Comparison.h"

namespace bench {

struct Settings {
    std::size_t instances = 10000;
    int rounds = 15;
};

// Each starts its servers and contestants and runs them. Must be called before the process starts a thread.

/// A whole enumeration: received and parsed, the client's array, the whole plug-in.
Comparison CompareLayers(const Settings& settings);
/// Ten times as many instances.
Comparison CompareSizes(const Settings& settings);
/// Four nodes, each with instances of its own, and one.
Comparison CompareNodes(const Settings& settings);
/// The command-line host and wbemcli, which others wrote.
Comparison ComparePrograms(const Settings& settings);
/// Calls that ask no server, beside a loop that copies a name.
Comparison CompareCalls(const Settings& settings);
/// A class that is not cached, and the requests for it alone.
Comparison CompareDefinitions(const Settings& settings);
/// A small request over TLS, and the same bytes through OpenSSL alone.
Comparison CompareTls(const Settings& settings);
/// Answers that come in several segments, on a connection that is kept or closed.
Comparison CompareSegments(const Settings& settings);

struct Section {
    std::string key;
    std::function<Comparison(const Settings&)> compare;
};

/// All of them, in the order in which they are reported.
const std::vector<Section>& AllSections();

/// The names of the layers of CompareLayers, short; and the rounds of one of them in this process, for
/// profilers.
const std::vector<std::string>& LayerKeys();
void RunLayer(const std::string& key, const Settings& settings);

}  // namespace bench
