#include "cimxml/wire/SocketWait.h"

#include <algorithm>
#include <chrono>
#include <limits>

#if defined(_WIN32)
#include <winsock2.h>
#else
#include <poll.h>
#endif

#include "cimxml/wire/WireError.h"

namespace cimxml {

namespace {

using Descriptor = pollfd;

int pollOnce(Descriptor& descriptor, int milliseconds) {
#if defined(_WIN32)
    return WSAPoll(&descriptor, 1, milliseconds);
#else
    return poll(&descriptor, 1, milliseconds);
#endif
}

/// Rounded up: who waits a little less than is left, waits again for nothing.
int millisecondsLeft(Deadline deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline.remaining()).count();
    return static_cast<int>(std::min<decltype(left)>(left, std::numeric_limits<int>::max()));
}

}  // namespace

void waitFor(boost::asio::ip::tcp::socket& socket, boost::asio::ip::tcp::socket::wait_type wanted,
             Deadline deadline) {
    Descriptor descriptor{};
    descriptor.fd = socket.native_handle();
    descriptor.events = wanted == boost::asio::ip::tcp::socket::wait_read ? POLLIN : POLLOUT;
    // A signal ends it early, without an event.
    do {
        requireTime(deadline);
        pollOnce(descriptor, millisecondsLeft(deadline));
    } while (descriptor.revents == 0);
}

void requireTime(Deadline deadline) {
    if (millisecondsLeft(deadline) == 0) {
        throw WireError(WireError::Kind::TimedOut, "connection timed out");
    }
}

}  // namespace cimxml
