#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "vskcore/ICIMNamedElement.h"

namespace NQELVSK20 {

class TCimHTTPQualifier;

/// The qualifiers of one element, by normalised name, and the rule for adding one: the one place for
/// classes, properties, methods and parameters alike. Shares ownership of the qualifiers.
class QualifierSet {
public:
    /// Adds a qualifier, which must be one of this plug-in's. One of the same name that is there already
    /// gives way when its flavor allows overriding; else the new one is dropped when value and flavor are
    /// the same, and refused with status 28 (nothing logged) when they differ.
    void Add(boost::shared_ptr<ICIMQualifier> qualifier);

    /// The qualifier of a name, in any letter case; empty when there is none. Throws status 25 for a
    /// malformed name.
    boost::shared_ptr<ICIMQualifier> Find(const std::string& name) const;

    /// Calls back with every qualifier in the order of their normalised names until the callback returns
    /// false. The callback may add qualifiers.
    void Enumerate(const ICIMNamedElement::QualifierCallback& callback) const;

private:
    std::map<std::string, boost::shared_ptr<TCimHTTPQualifier>> qualifiers_;
};

}  // namespace NQELVSK20
