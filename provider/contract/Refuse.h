#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/TVSKStatusCode.h"

namespace NQELVSK20 {

// The one place where the plug-in's refusals and its broken preconditions are made.

/// Throws TVSKException with the status and nothing logged.
[[noreturn]] void Refuse(EVSKStatusCode status);

/// Logs the explanation at the level, then throws TVSKException with the status.
[[noreturn]] void Refuse(EVSKStatusCode status, int logLevel, const std::string& explanation);

/// Checks that a pointer the caller relies on is set. When it is not, logs at level 0 where that was; a build
/// with assertions then stops the process, one without returns false and leaves the rest to the caller.
bool PointerIsSet(bool isSet, const std::string& where);

/// The pointer itself, which the caller relies on (see PointerIsSet); a build without assertions throws
/// status 15 when it is empty.
template <class T>
boost::shared_ptr<T> Required(boost::shared_ptr<T> pointer, const char* where) {
    if (!PointerIsSet(pointer != nullptr, where)) {
        Refuse(eVSKNotFound);
    }
    return pointer;
}

}  // namespace NQELVSK20
