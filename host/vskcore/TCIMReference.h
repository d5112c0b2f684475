#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "vskcore/TContext.h"

namespace NQELVSK20 {

class ICIMNamespace;

/// An object path bound to a namespace.
///
/// Holds the namespace weakly: a value must not keep alive the namespace that, through its classes, holds
/// the value.
class TCIMReference {
public:
    /// An empty path in `nameSpace` (may be empty). `keys` are key bindings, by name: a path without keys of
    /// its own that SetPath sets later gets them. Null ones are left out.
    TCIMReference(boost::shared_ptr<ICIMNamespace> nameSpace, TContext keys);

    /// The path text, e.g. `CIM_Fan.DeviceID="1"`; empty when none was set.
    const std::string& GetPath() const { return path_; }

    /// Takes the text as it is, unparsed, and finds the class name in it. Keys given to the constructor
    /// follow the class name when the text ends with it.
    void SetPath(const std::string& path);

    /// Name of the class that the path names, host and namespace left aside; empty for an empty path.
    const std::string& GetClassName() const { return className_; }

    void SetNamespace(boost::shared_ptr<ICIMNamespace> nameSpace);

    bool operator==(const TCIMReference& other) const { return path_ == other.path_; }

private:
    boost::weak_ptr<ICIMNamespace> namespace_;
    std::string keys_;  // as a path spells them, with the leading full stop; empty without keys
    std::string path_;
    std::string className_;
};

}  // namespace NQELVSK20
