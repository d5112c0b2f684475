#include "provider/contract/HostReport.h"

#include <cassert>

#include "vskcore/ILogger.h"
#include "vskcore/TRootObject.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

void LogError(const std::string& text) {
    TRootObject::GetCoreLogger()->Log(kLogError, text);
}

void LogTrace(const std::string& text) {
    TRootObject::GetCoreLogger()->Log(kLogTrace, text);
}

void Refuse(EVSKStatusCode status) {
    throw TVSKException(status);
}

void Refuse(EVSKStatusCode status, LogLevel level, const std::string& explanation) {
    TRootObject::GetCoreLogger()->Log(level, explanation);
    throw TVSKException(status);
}

bool PointerIsSet(bool isSet, const std::string& where) {
    if (!isSet) {
        LogError(where + ": assertion failed: px != 0");
        assert(isSet && "px != 0");
    }
    return isSet;
}

}  // namespace NQELVSK20
