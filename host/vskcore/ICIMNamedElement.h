#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/TCIMValue.h"
#include "vskcore/TContext.h"

namespace NQELVSK20 {

class ICIMQualifier;
class ICIMQualifierDecl;

/// An element that carries qualifiers: a class, property, method or parameter. Operations stand in slot
/// order. Names are compared without regard to case.
class ICIMNamedElement {
public:
    using QualifierCallback = boost::function<bool(boost::shared_ptr<ICIMQualifier>)>;

    virtual ~ICIMNamedElement() = default;

    /// Adds a qualifier; throws status 28 when it conflicts with one that is there and may not be replaced.
    virtual void AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext context) = 0;

    /// Makes a qualifier for this element, not yet added, from a declaration known to the namespace by
    /// `name`; throws status 15 when the namespace has no such declaration. The caller shares ownership.
    // Microsoft's compiler gives overloads their slots in the reverse order of their declarations.
#if !defined(_MSC_VER)
    virtual boost::shared_ptr<ICIMQualifier> AllocateQualifier(const std::string& name,
                                                               const TCIMValue& value, TContext context) = 0;
#endif

    /// The same from a declaration.
    virtual boost::shared_ptr<ICIMQualifier> AllocateQualifier(
        boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value, TContext context) = 0;
#if defined(_MSC_VER)
    virtual boost::shared_ptr<ICIMQualifier> AllocateQualifier(const std::string& name,
                                                               const TCIMValue& value, TContext context) = 0;
#endif

    /// Looks a qualifier up; `found` tells whether it is there. Empty when it is not. Never throws for an
    /// absent name. Classes do not offer it (status 1).
    virtual boost::shared_ptr<ICIMQualifier> FindQualifier(const std::string& name, bool& found,
                                                           TContext context) const = 0;

    /// The qualifier of a name. Absent: classes give an empty pointer, the other elements throw status 15.
    virtual boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                          TContext context) const = 0;

    /// Calls back with every qualifier in the order of their normalised names until the callback returns
    /// false.
    virtual void EnumerateQualifiers(const QualifierCallback& callback, TContext context) const = 0;
};

}  // namespace NQELVSK20
