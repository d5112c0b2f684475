#pragma once

#include <boost/asio/ssl/context.hpp>

namespace cimom {

/// The TLS settings of an endpoint: TLS 1.2 and newer, or TLS 1.0 alone with the ciphers of its time.
/// Throws std::runtime_error when OpenSSL refuses them.
boost::asio::ssl::context makeTlsContext(bool onlyTls10);

}  // namespace cimom
