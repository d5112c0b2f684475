#pragma once

#include <cstdint>
#include <string>

namespace bench {

/// Sends an EnumerateInstances request for a class of root/cimv2 over plain HTTP on a connection of its own,
/// and returns the body of the answer: the least that any client has to do. Throws std::runtime_error.
std::string RawEnumerateInstances(const std::string& address, std::uint16_t port,
                                  const std::string& className);

}  // namespace bench
