#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMNamedElement.h"

namespace NQELVSK20 {

class ICIMClass;
class ICIMParameterDecl;

/// A method of a class. Operations stand in slot order, after those of ICIMNamedElement.
class ICIMMethodDecl : public ICIMNamedElement {
public:
    using ParameterCallback = boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>;

    virtual void Validate(TContext context) = 0;

    /// Adds the method to its class.
    virtual void Commit(TContext context) = 0;
    virtual const std::string& GetName(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMClass> GetClass(TContext context) const = 0;
    virtual TCIMValue::TCIMType GetType(TContext context) const = 0;

    /// Makes a parameter for this method, not yet added. The caller shares ownership.
    virtual boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string& name,
                                                                       TCIMValue::TCIMType type,
                                                                       TContext context) = 0;

    /// The parameter of a name; empty when there is none.
    virtual boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string& name,
                                                                  TContext context) const = 0;

    /// Calls back with every parameter in the order of their normalised names until the callback returns
    /// false.
    virtual void EnumerateParameterDecls(const ParameterCallback& callback, TContext context) const = 0;
    virtual bool operator==(const ICIMMethodDecl& other) const = 0;
    virtual bool operator<(const ICIMMethodDecl& other) const = 0;
    virtual ICIMMethodDecl& operator=(const ICIMMethodDecl& other) = 0;
};

}  // namespace NQELVSK20
