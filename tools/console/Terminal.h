#pragma once

#include <cstddef>
#include <string>

namespace tool {

/// The person's terminal, and the signals that come from it. Windows has an implementation of its own.
namespace terminal {

bool isInput();   ///< Standard input is a terminal.
bool isOutput();  ///< Standard output is one.
bool isError();   ///< Standard error is one.

/// Columns of the terminal behind standard output or, with `error`, standard error; 0 when there is none.
std::size_t width(bool error = false);

/// Whether standard output failed, with this errno, since nobody reads it any more.
bool lostReader(int error);

/// Asks on standard error and reads one line of standard input without showing it. Throws Failure when the
/// input ends first.
std::string readSecret(const std::string& prompt);

/// To be called first. Ctrl-C and SIGTERM end the process as they would, and Ctrl-Z stops it, after the
/// terminal was put in order; a secret that was being asked for is asked for again, unseen, when it goes on.
/// A closed output pipe shows as a failed write instead of a signal: server connections could raise it just
/// as well. What is written is UTF-8 and goes out byte by byte as it is, where a system had other habits.
void prepare();

/// From now on Ctrl-C is how a person ends the program: it ends at once, with the status 0.
void endOnInterrupt();

/// Tells the signal handler whether a progress line stands on standard error and is to be wiped.
void setProgressShown(bool shown);

}  // namespace terminal

}  // namespace tool
