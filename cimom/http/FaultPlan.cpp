#include "cimom/http/FaultPlan.h"

#include <algorithm>

#include "cimom/common/Text.h"

namespace cimom {
namespace {

bool applies(const Fault& fault, const std::string& address, const std::string& operation,
             const std::string& className) {
    return fault.times != 0 && (fault.address.empty() || fault.address == address) &&
           (fault.operation.empty() || sameName(fault.operation, operation)) &&
           (fault.className.empty() || sameName(fault.className, className));
}

}  // namespace

void FaultPlan::add(const Fault& fault) {
    const std::lock_guard<std::mutex> lock(mutex_);
    faults_.push_back(fault);
}

void FaultPlan::clear() {
    const std::lock_guard<std::mutex> lock(mutex_);
    faults_.clear();
}

std::optional<Fault> FaultPlan::take(const std::string& address, const std::string& operation,
                                     const std::string& className) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = std::find_if(faults_.begin(), faults_.end(), [&](const Fault& fault) {
        return applies(fault, address, operation, className);
    });
    if (found == faults_.end()) {
        return std::nullopt;
    }
    if (found->times > 0) {
        --found->times;
    }
    return *found;
}

}  // namespace cimom
