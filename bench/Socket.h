#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace bench {

/// A TCP socket over IPv4 that closes itself; blocking, without delay. Every function throws
/// std::runtime_error.
class Socket {
public:
    /// Takes over a descriptor.
    explicit Socket(int descriptor) : descriptor_(descriptor) {}
    Socket(Socket&& other) noexcept;
    Socket& operator=(Socket&&) = delete;
    ~Socket();

    static Socket Connect(const std::string& address, std::uint16_t port);
    static Socket Listen(const std::string& address, std::uint16_t port);

    /// The next connection; waits for it.
    Socket Accept() const;

    void Send(std::string_view bytes) const;
    /// At least one byte and at most `size`; zero at the end of the stream.
    std::size_t Receive(char* buffer, std::size_t size) const;

private:
    int descriptor_;
};

}  // namespace bench
