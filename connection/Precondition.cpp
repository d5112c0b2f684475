#include "connection/Precondition.h"

#include <cassert>

#include "connection/Log.h"

namespace NQELVSK20 {

bool PointerIsSet(bool isSet, const std::string& where) {
    if (!isSet) {
        LogError(where + ": assertion failed: px != 0");
        assert(!"px != 0");
    }
    return isSet;
}

}  // namespace NQELVSK20
