#include "tools/machine/HostLookup.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <thread>
#include <utility>

namespace tool {

namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

HostLookup::Addresses lookUp(const std::string& host) {
    asio::io_context context;
    tcp::resolver resolver(context);
    boost::system::error_code error;
    HostLookup::Addresses addresses;
    for (const auto& entry : resolver.resolve(host, "", error)) {
        addresses.push_back(entry.endpoint().address());
    }
    return addresses;
}

}  // namespace

HostLookup::HostLookup(const std::string& host) {
    std::promise<Addresses> promise;
    result_ = promise.get_future();
    boost::system::error_code error;
    const auto literal = asio::ip::make_address(host, error);
    if (!error) {
        promise.set_value({literal});
        return;
    }
    std::thread([host, promise = std::move(promise)]() mutable { promise.set_value(lookUp(host)); }).detach();
}

std::optional<HostLookup::Addresses> HostLookup::resultBy(std::chrono::steady_clock::time_point end) {
    if (result_.wait_until(end) != std::future_status::ready) {
        return std::nullopt;
    }
    return result_.get();
}

}  // namespace tool
