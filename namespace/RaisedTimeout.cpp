#include "namespace/RaisedTimeout.h"

#include <algorithm>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

unsigned int RaisedTimeout(const TContext& context, const std::string& key, unsigned int defaultTimeout) {
    const auto value = context.find(key);
    if (value == context.end()) {
        return defaultTimeout;
    }
    return std::max(defaultTimeout, value->second.operator unsigned int());
}

}  // namespace NQELVSK20
