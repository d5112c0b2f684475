#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "tests/support/schema/TInmemElement.h"
#include "vskcore/ICIMParameterDecl.h"

namespace NQELVSK20 {

class TInmemMethodDecl;

/// A parameter of a method in memory. Must be owned by a boost::shared_ptr.
class TInmemParameterDecl : public TInmemElement<ICIMParameterDecl>,
                            public boost::enable_shared_from_this<TInmemParameterDecl> {
public:
    /// Keeps the method weakly. An array code as `type` makes it an array parameter.
    TInmemParameterDecl(const boost::shared_ptr<TInmemMethodDecl>& method, const std::string& name,
                        TCIMValue::TCIMType type);

    TInmemParameterDecl(const TInmemParameterDecl&) = delete;

    /// Throws status 25 when the name is no CIM name.
    void Validate(TContext context) override;
    void Commit(TContext context) override;
    const std::string& GetName(TContext context) const override;
    boost::shared_ptr<ICIMMethodDecl> GetMethod(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext context) const override;
    bool IsArray(TContext context) const override;
    bool operator==(const ICIMParameterDecl& other) const override;
    bool operator<(const ICIMParameterDecl& other) const override;

    /// Does nothing: declarations are not copied by assignment.
    ICIMParameterDecl& operator=(const ICIMParameterDecl& other) override;
    TInmemParameterDecl& operator=(const TInmemParameterDecl& other);

protected:
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override;
    boost::shared_ptr<ICIMNamedElement> OwnElement() override;

private:
    const boost::weak_ptr<TInmemMethodDecl> method_;
    const std::string name_;
    const TCIMValue::TCIMType type_;
};

}  // namespace NQELVSK20
