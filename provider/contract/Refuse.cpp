#include "provider/contract/Refuse.h"

#include <cassert>

#include "provider/contract/Log.h"
#include "vskcore/ILogger.h"
#include "vskcore/TRootObject.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

void Refuse(EVSKStatusCode status) {
    throw TVSKException(status);
}

void Refuse(EVSKStatusCode status, int logLevel, const std::string& explanation) {
    TRootObject::GetCoreLogger()->Log(logLevel, explanation);
    throw TVSKException(status);
}

bool PointerIsSet(bool isSet, const std::string& where) {
    if (!isSet) {
        LogError(where + ": assertion failed: px != 0");
        assert(!"px != 0");
    }
    return isSet;
}

}  // namespace NQELVSK20
