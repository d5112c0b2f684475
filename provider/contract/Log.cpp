#include "provider/contract/Log.h"

#include "vskcore/ILogger.h"
#include "vskcore/TRootObject.h"

namespace NQELVSK20 {

void LogError(const std::string& text) {
    TRootObject::GetCoreLogger()->Log(kLogError, text);
}

void LogTrace(const std::string& text) {
    TRootObject::GetCoreLogger()->Log(kLogTrace, text);
}

}  // namespace NQELVSK20
