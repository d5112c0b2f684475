#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMElement.h"
#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

class ICIMNamespace;

/// A qualifier declaration of a namespace. Operations stand in slot order.
class ICIMQualifierDecl : public ICIMElement {
public:
    /// Elements that the qualifier may stand on: bits.
    enum EScope : unsigned int {
        eScopeNone = 0,
        eScopeClass = 1,
        eScopeAssociation = 2,
        eScopeIndication = 4,
        eScopeProperty = 8,
        eScopeReference = 16,
        eScopeMethod = 32,
        eScopeParameter = 64,
        eScopeAny = 127
    };

    /// How the qualifier is inherited: bits.
    enum EFlavor : unsigned int {
        eFlavorNone = 0,
        eFlavorEnableOverride = 1,
        eFlavorToSubclass = 2,
        eFlavorDefaults = 3,
        eFlavorTranslatable = 4
    };

    virtual const std::string& GetName(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) const = 0;
    virtual TCIMValue::TCIMType GetType(TContext context) const = 0;
    virtual bool IsArray(TContext context) const = 0;

    /// The default value; lives as long as the declaration and changes with SetValue.
    virtual const TCIMValue& GetValue(TContext context) const = 0;
    virtual void SetValue(const TCIMValue& value, TContext context) = 0;
    virtual unsigned int GetScope(TContext context) const = 0;
    virtual void AddFlavor(unsigned int bits, TContext context) = 0;
    virtual void RemoveFlavor(unsigned int bits, TContext context) = 0;
    virtual unsigned int GetFlavor(TContext context) const = 0;
    virtual bool operator==(const ICIMQualifierDecl& other) const = 0;
    virtual bool operator<(const ICIMQualifierDecl& other) const = 0;
    virtual ICIMQualifierDecl& operator=(const ICIMQualifierDecl& other) = 0;
};

}  // namespace NQELVSK20
