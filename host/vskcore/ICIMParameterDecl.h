#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMNamedElement.h"

namespace NQELVSK20 {

class ICIMMethodDecl;

/// A parameter of a method. Operations stand in slot order, after those of ICIMNamedElement.
class ICIMParameterDecl : public ICIMNamedElement {
public:
    virtual void Validate(TContext context) = 0;

    /// Adds the parameter to its method.
    virtual void Commit(TContext context) = 0;
    virtual const std::string& GetName(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMMethodDecl> GetMethod(TContext context) const = 0;
    virtual TCIMValue::TCIMType GetType(TContext context) const = 0;
    virtual bool IsArray(TContext context) const = 0;
    virtual bool operator==(const ICIMParameterDecl& other) const = 0;
    virtual bool operator<(const ICIMParameterDecl& other) const = 0;
    virtual ICIMParameterDecl& operator=(const ICIMParameterDecl& other) = 0;
};

}  // namespace NQELVSK20
