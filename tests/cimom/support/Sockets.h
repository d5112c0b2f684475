#pragma once

// The system's sockets, with the few differences of Windows taken out.

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#endif

#include <string>
#include <string_view>
#include <system_error>

namespace cimom::test {

#ifdef _WIN32

using Socket = SOCKET;
constexpr int kSendingSide = SD_SEND;

/// Has the system's sockets ready, for the rest of the process.
inline void startSockets() {
    static const int started = [] {
        WSADATA data{};
        return WSAStartup(MAKEWORD(2, 2), &data);
    }();
    static_cast<void>(started);
}

inline int lastSocketError() {
    return WSAGetLastError();
}

inline bool isTimeout(int error) {
    return error == WSAETIMEDOUT || error == WSAEWOULDBLOCK;
}

inline void closeSocket(Socket handle) {
    closesocket(handle);
}

inline int sendSome(Socket handle, std::string_view bytes) {
    return ::send(handle, bytes.data(), static_cast<int>(bytes.size()), 0);
}

inline bool isReadable(Socket handle, int milliseconds) {
    WSAPOLLFD entry{handle, POLLIN, 0};
    return WSAPoll(&entry, 1, milliseconds) > 0;
}

/// No sending or receiving takes longer than so many seconds.
inline void limitWaiting(Socket handle, int seconds) {
    const DWORD wait = static_cast<DWORD>(seconds) * 1000;
    for (const int option : {SO_RCVTIMEO, SO_SNDTIMEO}) {
        setsockopt(handle, SOL_SOCKET, option, reinterpret_cast<const char*>(&wait), sizeof wait);
    }
}

#else

using Socket = int;
constexpr int kSendingSide = SHUT_WR;

/// Has the system's sockets ready, for the rest of the process.
inline void startSockets() {}

inline int lastSocketError() {
    return errno;
}

inline bool isTimeout(int error) {
    return error == EAGAIN || error == EWOULDBLOCK;
}

inline void closeSocket(Socket handle) {
    ::close(handle);
}

inline ssize_t sendSome(Socket handle, std::string_view bytes) {
    return ::send(handle, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

inline bool isReadable(Socket handle, int milliseconds) {
    pollfd entry{handle, POLLIN, 0};
    return ::poll(&entry, 1, milliseconds) > 0;
}

/// No sending or receiving takes longer than so many seconds.
inline void limitWaiting(Socket handle, int seconds) {
    const timeval wait{seconds, 0};
    for (const int option : {SO_RCVTIMEO, SO_SNDTIMEO}) {
        ::setsockopt(handle, SOL_SOCKET, option, &wait, sizeof wait);
    }
}

#endif

inline std::string textOfSocketError(int error) {
    return std::error_code(error, std::system_category()).message();
}

}  // namespace cimom::test
