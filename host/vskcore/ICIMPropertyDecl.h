#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMNamedElement.h"

namespace NQELVSK20 {

class ICIMClass;

/// A property of a class. Operations stand in slot order, after those of ICIMNamedElement.
class ICIMPropertyDecl : public ICIMNamedElement {
public:
    virtual void Validate(TContext context) = 0;

    /// Adds the property to its class.
    virtual void Commit(TContext context) = 0;

    /// Reserved by the contract; no plug-in is known to give it a meaning.
    virtual void Reserved10(TContext context) = 0;
    virtual const std::string& GetName(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMClass> GetClass(TContext context) const = 0;
    virtual TCIMValue::TCIMType GetType(TContext context) const = 0;
    virtual bool IsArray(TContext context) const = 0;

    /// The default value; lives as long as the declaration and changes with SetValue.
    virtual const TCIMValue& GetValue(TContext context) const = 0;
    virtual void SetValue(const TCIMValue& value, TContext context) = 0;
    virtual bool operator==(const ICIMPropertyDecl& other) const = 0;
    virtual bool operator<(const ICIMPropertyDecl& other) const = 0;
    virtual ICIMPropertyDecl& operator=(const ICIMPropertyDecl& other) = 0;
};

}  // namespace NQELVSK20
