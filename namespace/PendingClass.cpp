#include "namespace/PendingClass.h"

namespace NQELVSK20 {

PendingClass::PendingClass(std::set<std::string>& pending, const std::string& key)
    : pending_(pending), key_(key), isAllowed_(pending.size() < kMaxLevels && pending.insert(key).second) {}

PendingClass::~PendingClass() {
    if (isAllowed_) {
        pending_.erase(key_);
    }
}

}  // namespace NQELVSK20
