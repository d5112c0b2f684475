#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "bench/Stream.h"

namespace bench {

/// A TCP socket over IPv4 that closes itself; without delay, unless told otherwise.
class Socket : public Stream {
public:
    /// Takes over a descriptor.
    explicit Socket(int descriptor) : descriptor_(descriptor) {}
    Socket(Socket&& other) noexcept;
    Socket& operator=(Socket&&) = delete;
    ~Socket() override;

    static Socket Connect(const std::string& address, std::uint16_t port);
    static Socket Listen(const std::string& address, std::uint16_t port);

    /// The next connection; waits for it.
    Socket Accept() const;

    /// Turns Nagle's algorithm on: a short segment waits until the one before it is acknowledged.
    void Delay() const;

    int Descriptor() const { return descriptor_; }

    void Send(std::string_view bytes) const override;
    std::size_t Receive(char* buffer, std::size_t size) const override;

private:
    int descriptor_;
};

}  // namespace bench
