#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMElement.h"
#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

class ICIMNamespace;
class ICIMQualifierDecl;

/// A qualifier as it stands on an element. Operations stand in slot order.
class ICIMQualifier : public ICIMElement {
public:
    virtual const std::string& GetName(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) const = 0;
    virtual TCIMValue::TCIMType GetType(TContext context) const = 0;
    virtual bool IsArray(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(TContext context) const = 0;

    /// The value; lives as long as the qualifier and changes with SetValue.
    virtual const TCIMValue& GetValue(TContext context) const = 0;
    virtual void SetValue(const TCIMValue& value, TContext context) = 0;
    virtual void AddFlavor(unsigned int bits, TContext context) = 0;
    virtual void RemoveFlavor(unsigned int bits, TContext context) = 0;
    virtual unsigned int GetFlavor(TContext context) const = 0;
    virtual bool operator==(const ICIMQualifier& other) const = 0;
    virtual bool operator<(const ICIMQualifier& other) const = 0;

    /// True while the qualifier still holds what it inherited.
    virtual bool IsPropagated(TContext context) const = 0;
    virtual ICIMQualifier& operator=(const ICIMQualifier& other) = 0;
};

}  // namespace NQELVSK20
