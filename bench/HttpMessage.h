#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "bench/Stream.h"

namespace bench {

/// An HTTP message as it came: its head, and a body as long as Content-Length says. No more of HTTP is needed
/// between programs that know each other.
struct HttpMessage {
    std::string head;
    std::string body;
};

/// Receives one message into `message`; false when the connection ended before its first byte. Memory that
/// the message holds already is used again. Throws std::runtime_error.
bool ReceiveMessage(const Stream& connection, HttpMessage& message);

/// An EnumerateInstances request for a class of root/cimv2, head and body.
std::string EnumerationRequest(const std::string& host, const std::string& className);

}  // namespace bench
