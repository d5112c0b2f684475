#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "cimxml/wire/ByteStream.h"
#include "cimxml/wire/Limits.h"
#include "cimxml/wire/TlsContext.h"

struct ssl_st;

namespace cimxml {

/// TLS over another stream. OpenSSL works on buffers in memory only; this class moves their content, so that
/// the stream below alone waits and keeps the deadline.
class TlsStream : public ByteStream {
public:
    /// Takes over `below` and completes the handshake. `host` is sent as the server's name (RFC 6066) unless
    /// it is an address. `context` is kept alive for as long as the stream lives. The server has `silence`
    /// for each of its answers. Throws WireError: TimedOut, Silent, or CannotConnect with OpenSSL's reason.
    TlsStream(std::unique_ptr<ByteStream> below, std::shared_ptr<const TlsContext> context,
              const std::string& host, Deadline deadline,
              std::chrono::milliseconds silence = Limits().connectSilence);
    ~TlsStream() override;

    void write(std::string_view bytes, Deadline deadline) override;
    std::size_t read(char* buffer, std::size_t size, Deadline deadline) override;
    std::optional<std::size_t> readAvailable(char* buffer, std::size_t size) override;

    /// Protocol agreed upon, e.g. "TLSv1.2".
    std::string protocol() const;

private:
    void announce(const std::string& host);
    void handshake(Deadline deadline, std::chrono::milliseconds silence);
    /// One answer of the server further; true once the handshake is complete.
    bool continueHandshake(Deadline deadline);
    /// Decrypts what has been received: bytes, zero at the end, nothing when more must be received first.
    std::optional<std::size_t> decrypt(char* buffer, std::size_t size);
    /// Sends what OpenSSL wants to send.
    void flush(Deadline deadline);
    /// Receives a piece for OpenSSL; false at the end of the stream below.
    bool fill(Deadline deadline);
    void hand(std::string_view received);

    struct Free {
        void operator()(ssl_st* ssl) const;
    };
    std::unique_ptr<ByteStream> below_;
    std::shared_ptr<const TlsContext> context_;
    std::unique_ptr<ssl_st, Free> ssl_;
    std::string piece_;
    bool isDrained_ = false;  ///< OpenSSL has made all it can of what it was handed.
};

}  // namespace cimxml
