#include "connection/Refuse.h"

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

}  // namespace NQELVSK20
