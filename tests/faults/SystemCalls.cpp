// The system calls that move bytes and wait, in the place of the C library's: a program's own functions go
// before those of the libraries that it is linked with. They do what the C library's do, unless a FaultyIo of
// the calling thread says otherwise.

#include <dlfcn.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <ctime>

#include "tests/faults/FaultyIo.h"

namespace faults {
namespace {

constexpr long nanosecondsInASecond = 1000000000L;

thread_local long long passedMilliseconds = 0;

template <class TFunction>
TFunction* libraryFunction(const char* name) {
    return reinterpret_cast<TFunction*>(dlsym(RTLD_NEXT, name));
}

ssize_t failWith(int error) {
    errno = error;
    return -1;
}

ssize_t breakConnection(int socket, int error) {
    shutdown(socket, SHUT_RDWR);  // so that the peer notices as well
    return failWith(error);
}

/// A send or recv of `size` bytes; `move` does it.
template <class TMove>
ssize_t moveBytes(int socket, std::size_t size, int errorOfEnd, const TMove& move) {
    FaultyIo* io = FaultyIo::ofThisThread();
    if (io == nullptr) {
        return move(size);
    }
    const IoFault fault = io->next();
    if (io->isSilent(socket)) {
        return failWith(EAGAIN);
    }
    switch (fault) {
        case IoFault::Reset:
        case IoFault::Dead:
            return breakConnection(socket, ECONNRESET);
        case IoFault::EndOfFile:
            io->end(socket);
            break;
        case IoFault::Silence:
            io->silence(socket);
            return failWith(EAGAIN);
        case IoFault::Short:
        case IoFault::Trickle:
            return move(size > 0 ? 1 : 0);
        case IoFault::WouldBlock:
            return failWith(EAGAIN);
        case IoFault::None:
            break;
    }
    if (io->hasEnded(socket)) {
        return errorOfEnd == 0 ? 0 : breakConnection(socket, errorOfEnd);
    }
    return move(size);
}

/// What waiting for `waiting` gives, or -2 where the system has to be asked.
int faultyPoll(FaultyIo& io, pollfd& waiting, int milliseconds) {
    const IoFault fault = io.next();
    if (fault == IoFault::Silence) {
        io.silence(waiting.fd);
    }
    if (io.isSilent(waiting.fd)) {
        passTime(milliseconds);
        waiting.revents = 0;
        return 0;
    }
    if (fault == IoFault::Reset || fault == IoFault::Dead) {
        shutdown(waiting.fd, SHUT_RDWR);
    } else if (fault == IoFault::EndOfFile) {
        io.end(waiting.fd);
    } else if (fault == IoFault::WouldBlock) {
        waiting.revents = 0;
        errno = EINTR;
        return -1;
    }
    if (io.hasEnded(waiting.fd)) {
        waiting.revents = waiting.events;
        return 1;
    }
    return -2;
}

}  // namespace

void passTime(int milliseconds) {
    passedMilliseconds += milliseconds;
}

}  // namespace faults

using faults::FaultyIo;
using faults::IoFault;

extern "C" {

int connect(int socket, const sockaddr* address, socklen_t length) {
    static auto* const real = faults::libraryFunction<decltype(connect)>("connect");
    FaultyIo* io = FaultyIo::ofThisThread();
    if (io == nullptr) {
        return real(socket, address, length);
    }
    io->begin(socket);
    const IoFault fault = io->next();
    if (fault == IoFault::Reset || fault == IoFault::EndOfFile || fault == IoFault::Dead) {
        return static_cast<int>(faults::failWith(ECONNREFUSED));
    }
    return real(socket, address, length);
}

ssize_t send(int socket, const void* bytes, size_t size, int flags) {
    static auto* const real = faults::libraryFunction<decltype(send)>("send");
    return faults::moveBytes(socket, size, EPIPE,
                             [&](std::size_t most) { return real(socket, bytes, most, flags); });
}

ssize_t recv(int socket, void* buffer, size_t size, int flags) {
    static auto* const real = faults::libraryFunction<decltype(recv)>("recv");
    return faults::moveBytes(socket, size, 0,
                             [&](std::size_t most) { return real(socket, buffer, most, flags); });
}

int poll(pollfd* waiting, nfds_t count, int milliseconds) {
    static auto* const real = faults::libraryFunction<decltype(poll)>("poll");
    FaultyIo* io = FaultyIo::ofThisThread();
    if (io != nullptr && count == 1 && milliseconds > 0) {  // else nobody waits
        const int answer = faults::faultyPoll(*io, *waiting, milliseconds);
        if (answer != -2) {
            return answer;
        }
    }
    return real(waiting, count, milliseconds);
}

int clock_gettime(clockid_t clock, timespec* now) noexcept {
    static auto* const real = faults::libraryFunction<int(clockid_t, timespec*)>("clock_gettime");
    const int failed = real(clock, now);
    if (failed == 0 && clock == CLOCK_MONOTONIC && faults::passedMilliseconds != 0) {
        const long long added = now->tv_nsec + faults::passedMilliseconds % 1000 * 1000000;
        now->tv_sec += faults::passedMilliseconds / 1000 + added / faults::nanosecondsInASecond;
        now->tv_nsec = static_cast<long>(added % faults::nanosecondsInASecond);
    }
    return failed;
}
}
