#include "bench/Socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace bench {

namespace {

[[noreturn]] void Fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

sockaddr_in MakeAddress(const std::string& address, std::uint16_t port) {
    sockaddr_in result{};
    result.sin_family = AF_INET;
    result.sin_port = htons(port);
    if (inet_pton(AF_INET, address.c_str(), &result.sin_addr) != 1) {
        throw std::runtime_error(address + " is no IPv4 address");
    }
    return result;
}

Socket Open() {
    const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0) {
        Fail("socket");
    }
    return Socket(descriptor);
}

void Set(int descriptor, int level, int option, int value = 1) {
    setsockopt(descriptor, level, option, &value, sizeof value);
}

}  // namespace

Socket::Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

Socket::~Socket() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

Socket Socket::Connect(const std::string& address, std::uint16_t port) {
    Socket result = Open();
    const sockaddr_in peer = MakeAddress(address, port);
    if (connect(result.descriptor_, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0) {
        Fail("connect to " + address);
    }
    Set(result.descriptor_, IPPROTO_TCP, TCP_NODELAY);
    return result;
}

Socket Socket::Listen(const std::string& address, std::uint16_t port) {
    Socket result = Open();
    const sockaddr_in own = MakeAddress(address, port);
    Set(result.descriptor_, SOL_SOCKET, SO_REUSEADDR);
    if (bind(result.descriptor_, reinterpret_cast<const sockaddr*>(&own), sizeof own) != 0 ||
        listen(result.descriptor_, SOMAXCONN) != 0) {
        Fail("listen on " + address + ":" + std::to_string(port));
    }
    return result;
}

Socket Socket::Accept() const {
    const int descriptor = accept4(descriptor_, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) {
        Fail("accept");
    }
    Set(descriptor, IPPROTO_TCP, TCP_NODELAY);
    return Socket(descriptor);
}

void Socket::Delay() const {
    Set(descriptor_, IPPROTO_TCP, TCP_NODELAY, 0);
}

void Socket::Send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0) {
            Fail("send");
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

std::size_t Socket::Receive(char* buffer, std::size_t size) const {
    const ssize_t received = recv(descriptor_, buffer, size, 0);
    if (received < 0) {
        Fail("receive");
    }
    return static_cast<std::size_t>(received);
}

}  // namespace bench
