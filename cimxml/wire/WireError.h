#pragma once

#include <stdexcept>
#include <string>

namespace cimxml {

/// Why an exchange with a server failed, below the API's own exceptions. The client translates each kind in
/// one place (ErrorTranslation); the text is for people.
class WireError : public std::runtime_error {
public:
    enum class Kind {
        UnknownHost,    ///< The host name does not resolve.
        NoSocket,       ///< The system gives no socket.
        CannotConnect,  ///< TCP connection or TLS handshake failed.
        Silent,         ///< The peer said nothing for too long while a connection was being made.
        TlsSetup,       ///< The TLS settings cannot be used: a bad trust store, certificate or key.
        TimedOut,       ///< The deadline passed.
        Closed,         ///< The server closed the connection while it owed an answer.
        BadHttp,        ///< The answer is not HTTP as CIM-XML uses it, or exceeds a limit on it.
        BadXml,         ///< The answer's XML is broken, or not CIM-XML, or exceeds a limit on it.
        BadResponse     ///< Well-formed CIM-XML, but no answer to the request.
    };

    WireError(Kind kind, const std::string& text) : std::runtime_error(text), kind_(kind) {}

    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

}  // namespace cimxml
