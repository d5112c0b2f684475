#include "namespace/UnionLookup.h"

#include <boost/pointer_cast.hpp>

#include "connection/Precondition.h"
#include "connection/TCimHTTPNamespace.h"
#include "qelc/TQELCNamespace.h"
#include "union/TUnionNamespace.h"

namespace NQELVSK20 {

boost::shared_ptr<TUnionNamespace> UnionNamespaceBehind(const TCimHTTPNamespace& nameSpace,
                                                        const std::string& where) {
    const auto common = boost::dynamic_pointer_cast<TQELCNamespace>(nameSpace.GetUpcallNamespace());
    if (!PointerIsSet(common != nullptr, where)) {
        return {};
    }
    const auto unionNamespace = boost::dynamic_pointer_cast<TUnionNamespace>(common->GetUpcallNamespace());
    PointerIsSet(unionNamespace != nullptr, where);
    return unionNamespace;
}

}  // namespace NQELVSK20
