#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "provider/contract/HostCodes.h"

namespace NQELVSK20 {

// What the host is told: lines in its log, refusals and broken preconditions. All of them are made here.

/// Log levels of this plug-in, as the host's core logger knows them.
enum LogLevel : int { kLogError = 0, kLogTrace = 3 };

/// Writes one whole message to the host's core logger.
void LogError(const std::string& text);
void LogTrace(const std::string& text);

/// Throws TVSKException with the status and nothing logged.
[[noreturn]] void Refuse(EVSKStatusCode status);

/// Logs the explanation at the level, then throws TVSKException with the status.
[[noreturn]] void Refuse(EVSKStatusCode status, LogLevel level, const std::string& explanation);

/// Checks that a pointer the caller relies on is set. When it is not, logs at level 0 where that was; a build
/// with assertions then stops the process, one without returns false and leaves the rest to the caller.
bool PointerIsSet(bool isSet, const std::string& where);

/// The pointer itself, which the caller relies on (see PointerIsSet); a build without assertions throws
/// status 15 when it is empty.
template <class T>
boost::shared_ptr<T> Required(boost::shared_ptr<T> pointer, const char* where) {
    if (!PointerIsSet(pointer != nullptr, where)) {
        Refuse(kStatusNotFound);
    }
    return pointer;
}

}  // namespace NQELVSK20
