#pragma once

#include <memory>
#include <string_view>

#include "cimxml/wire/ByteStream.h"
#include "cimxml/wire/HttpMessage.h"
#include "cimxml/wire/Limits.h"

namespace cimxml {

/// One HTTP/1.1 connection (RFC 9112) that carries one request after the other.
class HttpConnection {
public:
    HttpConnection(std::unique_ptr<ByteStream> stream, const Limits& limits);
    ~HttpConnection();

    /// Whether nothing at all has come from the server since the last answer. A connection that has ended, or
    /// on which something unasked arrived, is of no more use.
    bool isIdle();

    /// Sends a request, header and body as they stand, and waits for the answer. Interim answers (1xx) are
    /// passed over. Throws WireError: TimedOut, Closed when no complete answer came, BadHttp. After an
    /// exception, or an answer without keepAlive, the connection must not be used again.
    HttpResponse exchange(std::string_view request, Deadline deadline);

private:
    class Buffer;
    class Receiver;
    void send(std::string_view request, Deadline deadline);

    std::unique_ptr<ByteStream> stream_;
    Limits limits_;
    std::unique_ptr<Buffer> buffer_;  ///< What answers are received into; kept from one to the next.
};

}  // namespace cimxml
