#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "bench/Contestant.h"
#include "cimhttp/TCimHTTPNamespace.h"

namespace bench {

/// A namespace of the plug-in in a host, connected to the nodes of a machine over plain HTTP.
boost::shared_ptr<NQELVSK20::TCimHTTPNamespace> ConnectedNamespace(const std::vector<std::string>& hosts);

/// Enumerates kManyClass through the plug-in and reads each property once; counts the instances.
Contestant::Work PrepareEnumeration(const std::vector<std::string>& hosts);

}  // namespace bench
