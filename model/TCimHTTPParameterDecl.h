#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "model/TNamedElement.h"
#include "vskcore/ICIMParameterDecl.h"

namespace NQELVSK20 {

class TCimHTTPMethodDecl;

/// A parameter of a remote class's method, which it refers to weakly.
class TCimHTTPParameterDecl : public TNamedElement<ICIMParameterDecl> {
public:
    TCimHTTPParameterDecl(boost::shared_ptr<TCimHTTPMethodDecl> owner, std::string name,
                          TCIMValue::TCIMType type);

    /// Adds the parameter to its method; throws status 16 for a duplicate.
    void Commit(TContext context) override;

    /// Empty once the method is gone.
    boost::shared_ptr<ICIMMethodDecl> GetMethod(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext) const override { return type_; }
    bool IsArray(TContext context) const override;

    using TNamedElement::operator=;
    TCimHTTPParameterDecl& operator=(const TCimHTTPParameterDecl&) { return *this; }

private:
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override;

    boost::weak_ptr<TCimHTTPMethodDecl> owner_;
    TCIMValue::TCIMType type_;
};

}  // namespace NQELVSK20
