#pragma once

#include <cstddef>

#include "bench/ReplayServer.h"

namespace bench {

/// The namespace of the sample machine, and the class of which there are many instances.
constexpr const char* kNamespace = "root/cimv2";
constexpr const char* kManyClass = "OMC_NumericSensor";

/// The sample machine's node of that number on ReplayServer::Address(address), with so many instances of
/// kManyClass; zero: as it is.
ReplayServer::Endpoint SampleNode(unsigned node, unsigned address, std::size_t instances = 0);

}  // namespace bench
