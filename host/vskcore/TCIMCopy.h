#pragma once

#include <boost/shared_ptr.hpp>

namespace NQELVSK20 {

class ICIMClass;
class ICIMNamespace;

/// Copies elements between namespaces.
class TCIMCopy {
public:
    /// Builds a class like `source` through the operations of `target` and commits it there: its superclass
    /// chain (through the target's own GetClass), qualifiers with their declarations, properties, methods
    /// and parameters. A class qualifier that the source inherits becomes the copy's own. Exceptions of the
    /// target pass and leave the copy as far as it came, not committed.
    static void CopyClass(boost::shared_ptr<ICIMClass> source, boost::shared_ptr<ICIMNamespace> target);
};

}  // namespace NQELVSK20
