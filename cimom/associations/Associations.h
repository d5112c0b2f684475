#pragma once

#include <string>
#include <vector>

#include "cimom/data/NameSpace.h"

namespace cimom {

/// Which associations are followed, and to where (DSP0200, Associators). Classes are borrowed; null, and
/// empty names, stand for all.
struct AssociationFilter {
    const ClassView* associationClass = nullptr;
    const ClassView* resultClass = nullptr;
    std::string role;        ///< Lower-case name of the reference that leads to the object asked about.
    std::string resultRole;  ///< Likewise, of that which leads to the result.
};

/// The association instances that refer to an instance, each once, in order of declaration.
std::vector<const Instance*> referencesTo(const Instance& source, const NameSpace& nameSpace,
                                          const AssociationFilter& filter);

/// The instances at the other ends of those, as far as they are in the same namespace; each once.
std::vector<const Instance*> associatedWith(const Instance& source, const NameSpace& nameSpace,
                                            const AssociationFilter& filter);

/// The association classes that can refer to a class: they declare a reference to it or to one that it
/// inherits from.
std::vector<const ClassView*> referencesTo(const ClassView& source, const NameSpace& nameSpace,
                                           const AssociationFilter& filter);

/// The classes at the other ends of those; each once.
std::vector<const ClassView*> associatedWith(const ClassView& source, const NameSpace& nameSpace,
                                             const AssociationFilter& filter);

}  // namespace cimom
