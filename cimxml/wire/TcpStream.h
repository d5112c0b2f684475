#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "cimxml/wire/ByteStream.h"
#include "cimxml/wire/Limits.h"

namespace cimxml {

/// A TCP connection without delay (RFC 896's algorithm off). The socket never waits: a call tries, waits with
/// the deadline until it is worth to try again, and so on. No thread is started.
class TcpStream : public ByteStream {
public:
    /// Connects to the first of the host's addresses that accepts. `host` is a name or an address literal,
    /// IPv6 with or without brackets. Names are resolved synchronously, so that the deadline does not cover
    /// the resolver. Each address has `silence` to accept. Throws WireError: UnknownHost, NoSocket,
    /// CannotConnect (with the cause), Silent, TimedOut.
    static std::unique_ptr<TcpStream> connect(const std::string& host, std::uint32_t port, Deadline deadline,
                                              std::chrono::milliseconds silence = Limits().connectSilence);

    ~TcpStream() override;

    void write(std::string_view bytes, Deadline deadline) override;
    std::size_t read(char* buffer, std::size_t size, Deadline deadline) override;
    std::optional<std::size_t> readAvailable(char* buffer, std::size_t size) override;

private:
    class Impl;
    explicit TcpStream(std::unique_ptr<Impl> impl);

    std::unique_ptr<Impl> impl_;
};

}  // namespace cimxml
