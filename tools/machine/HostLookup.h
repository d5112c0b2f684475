#pragma once

#include <boost/asio/ip/address.hpp>
#include <chrono>
#include <future>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// The addresses of a host. A name is looked up on a thread of its own, which is left to itself when it takes
/// too long: the system's look-up cannot be given up.
class HostLookup {
public:
    using Addresses = std::vector<boost::asio::ip::address>;

    /// Begins; an address is its own answer.
    explicit HostLookup(const std::string& host);

    /// Empty for a name that nobody knows; none when nothing is known at that time.
    std::optional<Addresses> resultBy(std::chrono::steady_clock::time_point end);

private:
    std::future<Addresses> result_;
};

}  // namespace tool
