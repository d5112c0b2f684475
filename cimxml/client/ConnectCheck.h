#pragma once

#include <Pegasus/Common/String.h>

#include <string>

namespace Pegasus {

/// Throws InvalidLocatorException for what cannot be a host's name or address: it would go into the Host
/// field as it stands. The message shows the characters in percent-encoding.
void requireHost(const std::string& host, Uint32 portNumber);

/// Throws CannotConnectException for a user or a password that Basic authentication (RFC 7617) cannot carry.
/// The message shows neither.
void requireCredentials(const String& locator, const String& userName, const String& password);

}  // namespace Pegasus
