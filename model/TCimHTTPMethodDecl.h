#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <string>

#include "model/TNamedElement.h"
#include "vskcore/ICIMMethodDecl.h"

namespace NQELVSK20 {

class TCimHTTPClass;
class TCimHTTPParameterDecl;

/// A method of a remote class, which it refers to weakly. Shares ownership of its parameters.
class TCimHTTPMethodDecl : public TNamedElement<ICIMMethodDecl> {
public:
    TCimHTTPMethodDecl(boost::shared_ptr<TCimHTTPClass> owner, std::string name,
                       TCIMValue::TCIMType returnType);

    /// Validates the method and adds it to its class; throws status 16 for a duplicate.
    void Commit(TContext context) override;

    /// Empty once the class is gone.
    boost::shared_ptr<ICIMClass> GetClass(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext) const override { return returnType_; }
    boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string& name,
                                                               TCIMValue::TCIMType type,
                                                               TContext context) override;
    boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string& name,
                                                          TContext context) const override;
    void EnumerateParameterDecls(const ParameterCallback& callback, TContext context) const override;

    using TNamedElement::operator=;
    TCimHTTPMethodDecl& operator=(const TCimHTTPMethodDecl&) { return *this; }

private:
    friend class TCimHTTPParameterDecl;  // its Commit, and nothing else, calls AddParameter

    void AddParameter(boost::shared_ptr<TCimHTTPParameterDecl> parameter);
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override;

    boost::weak_ptr<TCimHTTPClass> owner_;
    std::map<std::string, boost::shared_ptr<TCimHTTPParameterDecl>> parameters_;  // by normalised name
    TCIMValue::TCIMType returnType_;
};

}  // namespace NQELVSK20
