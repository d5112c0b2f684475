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

/// Puts `pause` in the place of that one, process-wide; for tests alone. An empty function: the real one.
void ReplacePause(boost::function<void(unsigned int)> pause);

}  // namespace NQELVSK20
