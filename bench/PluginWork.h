#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "bench/Contestant.h"
#include "cimhttp/TCimHTTPNamespace.h"

namespace bench {

/// A namespace of the plug-in in a host, connected to the nodes of a machine over plain HTTP.
boost::shared_ptr<NQELVSK20::TCimHTTPNamespace> ConnectedNamespace(const std::vector<std::string>& hosts);

/// Throws std::runtime_error unless an enumeration of kManyClass on these sample nodes delivers so many
/// instances of each, every one once, in the order of their paths and marked with its node.
void CheckDelivery(const std::vector<std::string>& hosts, std::size_t ofEach);

/// Enumerates kManyClass through the plug-in and reads each property once; counts the instances.
Contestant::Work PrepareEnumeration(const std::vector<std::string>& hosts);

}  // namespace bench
