#pragma once

namespace NQELVSK20 {

class PegClient;

/// Makes a client that is never freed: the client of node 0 outlives its namespace. All of them stay
/// reachable from here, so that a leak checker tells them from a loss. May be called from any thread.
PegClient* CreateNodeZeroClient();

}  // namespace NQELVSK20
