#pragma once

#include <boost/function.hpp>

namespace NQELVSK20 {

/// Blocks the calling thread for a number of milliseconds, between losing a connection and opening it anew.
void ReconnectPause(unsigned int milliseconds);

/// Puts `pause` in the place of the real wait, for tests; an empty function restores it. Process-wide.
void ReplaceReconnectPause(boost::function<void(unsigned int)> pause);

}  // namespace NQELVSK20
