#pragma once

#include <string>

namespace Pegasus {

/// Whether the text is the host part of an object path: a host name (RFC
/// 1123), an IPv4 address, or an IPv6 address in brackets (RFC 4291), each
/// with an optional port after a colon. A link-local IPv6 address needs a zone
/// (RFC 4007).
bool isValidHost(const std::string& text);

}  // namespace Pegasus
