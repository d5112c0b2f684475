#include "model/ClassNamespace.h"

#include "cimhttp/ClassNamespaceAccess.h"
#include "vskcore/ICIMNamespace.h"

namespace NQELVSK20 {

boost::shared_ptr<ClassNamespace> ClassNamespace::Behind(const boost::shared_ptr<ICIMNamespace>& nameSpace) {
    auto* const access = dynamic_cast<ClassNamespaceAccess*>(nameSpace.get());
    if (access == nullptr) {
        return {};
    }
    return boost::shared_ptr<ClassNamespace>(nameSpace, &access->ForClasses());
}

}  // namespace NQELVSK20
