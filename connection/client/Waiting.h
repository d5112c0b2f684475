#pragma once

#include <boost/function.hpp>

namespace NQELVSK20 {

// How long the plug-in waits, in milliseconds.
constexpr unsigned int kConnectTimeoutMs = 65535000;  ///< About 18 hours: the host's network decides.
constexpr unsigned int kReconnectPauseMs = 5000;
constexpr unsigned int kDetectionTimeoutMs = 10000;
constexpr unsigned int kDefinitionTimeoutMs = 15000;  ///< For a class's definition.
constexpr unsigned int kClassTimeoutMs = 60000;       ///< For a class's own work: its instances and methods.
constexpr unsigned int kClassNamesTimeoutMs = 3000;
constexpr unsigned int kInstanceNamesTimeoutMs = 15000;
constexpr unsigned int kWalkTimeoutMs = 60000;

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
