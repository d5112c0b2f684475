#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <string>

#include "tests/support/schema/TInmemElement.h"
#include "vskcore/ICIMMethodDecl.h"
#include "vskcore/ICIMParameterDecl.h"

namespace NQELVSK20 {

class TInmemClass;

/// A method of a class in memory. Must be owned by a boost::shared_ptr.
class TInmemMethodDecl : public TInmemElement<ICIMMethodDecl>,
                         public boost::enable_shared_from_this<TInmemMethodDecl> {
public:
    /// Keeps the class weakly.
    TInmemMethodDecl(const boost::shared_ptr<TInmemClass>& cimClass, const std::string& name,
                     TCIMValue::TCIMType returnType);

    TInmemMethodDecl(const TInmemMethodDecl&) = delete;

    /// Throws status 25 when the name is no CIM name.
    void Validate(TContext context) override;
    void Commit(TContext context) override;
    const std::string& GetName(TContext context) const override;
    boost::shared_ptr<ICIMClass> GetClass(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext context) const override;
    boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string& name,
                                                               TCIMValue::TCIMType type,
                                                               TContext context) override;
    boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string& name,
                                                          TContext context) const override;
    void EnumerateParameterDecls(const ParameterCallback& callback, TContext context) const override;
    bool operator==(const ICIMMethodDecl& other) const override;
    bool operator<(const ICIMMethodDecl& other) const override;

    /// Does nothing: declarations are not copied by assignment.
    ICIMMethodDecl& operator=(const ICIMMethodDecl& other) override;
    TInmemMethodDecl& operator=(const TInmemMethodDecl& other);

    /// Adds a parameter; called by its Commit. Throws status 16 when there is one of that name.
    void AddParameter(const boost::shared_ptr<ICIMParameterDecl>& parameter);

protected:
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override;
    boost::shared_ptr<ICIMNamedElement> OwnElement() override;

private:
    const boost::weak_ptr<TInmemClass> class_;
    std::map<std::string, boost::shared_ptr<ICIMParameterDecl>, TNameLess> parameters_;
    const std::string name_;
    const TCIMValue::TCIMType returnType_;
};

}  // namespace NQELVSK20
