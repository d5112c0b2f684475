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
/// the value. A host may say otherwise (THostSetup::SetReferencesOwnNamespace).
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

    /// The namespace that the path is bound to; empty when there is none or it is gone. This host's own, for
    /// tests: no part of the contract, so plug-ins must do without it.
    boost::shared_ptr<ICIMNamespace> GetNamespace() const { return namespace_.lock(); }

    bool operator==(const TCIMReference& other) const { return path_ == other.path_; }

private:
    boost::weak_ptr<ICIMNamespace> namespace_;
    boost::shared_ptr<ICIMNamespace> owned_;  // the same where references own theirs, else empty
    std::string keys_;  // as a path spells them, with the leading full stop; empty without keys
    std::string path_;
    std::string className_;
};

}  // namespace NQELVSK20
