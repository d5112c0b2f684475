#pragma once

#include <cstddef>
#include <set>

namespace faults {

/// What goes wrong with one I/O operation.
enum class IoFault {
    None,
    Reset,      ///< The connection breaks; one that is being made is refused.
    EndOfFile,  ///< The peer has closed.
    Silence,  ///< Nothing comes and nothing goes on this connection any more; waiting for it takes its time.
    Short,    ///< One byte is taken or given.
    Trickle,  ///< The same from here on.
    WouldBlock,  ///< It cannot be done now; a wait is ended early by a signal.
    Dead         ///< Every connection breaks from here on, and no other can be made.
};

/// Has the Nth I/O operation of the calling thread fail for as long as it lives: connect, send, recv and poll
/// of the process's sockets, in the order in which they happen. Other threads, as an embedded server's,
/// notice nothing. Time that is spent waiting for a silent peer passes at once, for this thread.
///
/// One at a time on a thread.
class FaultyIo {
public:
    /// `at` counts from 1; 0 for none.
    FaultyIo(IoFault fault, std::size_t at);
    ~FaultyIo();
    FaultyIo(const FaultyIo&) = delete;
    FaultyIo& operator=(const FaultyIo&) = delete;

    /// I/O operations so far.
    std::size_t count() const { return count_; }

    /// Whether there was an operation to fail.
    bool hasStruck() const { return at_ != 0 && count_ >= at_; }

    // What the system calls ask.

    /// Counts an operation and tells what is wrong with it.
    IoFault next();
    void silence(int socket) { silent_.insert(socket); }
    void end(int socket) { ended_.insert(socket); }
    bool isSilent(int socket) const { return silent_.count(socket) != 0; }
    bool hasEnded(int socket) const { return ended_.count(socket) != 0; }
    /// The system gives the numbers of closed sockets to new ones.
    void begin(int socket);

    static FaultyIo* ofThisThread();

private:
    const IoFault fault_;
    const std::size_t at_;
    std::size_t count_ = 0;
    std::set<int> silent_;
    std::set<int> ended_;
};

/// Lets time pass for the calling thread, whose steady clock goes on from there.
void passTime(int milliseconds);

}  // namespace faults
