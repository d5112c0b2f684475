#pragma once

#include <boost/function.hpp>

namespace NQELVSK20 {

/// Blocks the calling thread for a number of milliseconds, between losing a connection and opening it anew.
void ReconnectPause(unsigned int milliseconds);

/// The time-out to give the client library, in milliseconds, where the plug-in wants `milliseconds`: the
/// same.
unsigned int ClientTimeout(unsigned int milliseconds);

/// What tests put in the place of real time. An empty function leaves the real one.
struct Waiting {
    boost::function<void(unsigned int)> pause;
    boost::function<unsigned int(unsigned int)> timeout;
};

/// Puts `waiting` in the place of real time, process-wide; for tests alone.
void ReplaceWaiting(Waiting waiting);

}  // namespace NQELVSK20
