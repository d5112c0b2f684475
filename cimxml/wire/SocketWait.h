#pragma once

#include <boost/asio/ip/tcp.hpp>

#include "cimxml/wire/Deadline.h"

namespace cimxml {

/// Waits until a try to read from a socket, or to write to it, does not have to wait: there are bytes or
/// room, or the connection has ended or failed. Throws WireError TimedOut once the deadline has passed.
void waitFor(boost::asio::ip::tcp::socket& socket, boost::asio::ip::tcp::socket::wait_type wanted,
             Deadline deadline);

/// Throws WireError TimedOut once the deadline has passed.
void requireTime(Deadline deadline);

}  // namespace cimxml
