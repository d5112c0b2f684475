#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {

class TInmemUnion;

/// A qualifier declaration of the union namespace. Must be owned by a boost::shared_ptr.
class TInmemQualifierDecl : public ICIMQualifierDecl,
                            public boost::enable_shared_from_this<TInmemQualifierDecl> {
public:
    /// Keeps the namespace weakly.
    TInmemQualifierDecl(const boost::shared_ptr<TInmemUnion>& nameSpace, const std::string& name,
                        const TCIMValue& defaultValue, unsigned int scope, unsigned int flavor);

    TInmemQualifierDecl(const TInmemQualifierDecl&) = delete;

    /// Throws status 25 when the name is no CIM name.
    void Validate(TContext context) override;
    void Commit(TContext context) override;
    void Reserved4(TContext context) override;
    const std::string& GetName(TContext context) const override;
    boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext context) const override;
    bool IsArray(TContext context) const override;
    const TCIMValue& GetValue(TContext context) const override;
    void SetValue(const TCIMValue& value, TContext context) override;
    unsigned int GetScope(TContext context) const override;
    void AddFlavor(unsigned int bits, TContext context) override;
    void RemoveFlavor(unsigned int bits, TContext context) override;
    unsigned int GetFlavor(TContext context) const override;
    bool operator==(const ICIMQualifierDecl& other) const override;
    bool operator<(const ICIMQualifierDecl& other) const override;

    /// Does nothing: declarations are not copied by assignment.
    ICIMQualifierDecl& operator=(const ICIMQualifierDecl& other) override;
    TInmemQualifierDecl& operator=(const TInmemQualifierDecl& other);

private:
    const boost::weak_ptr<TInmemUnion> namespace_;
    const std::string name_;
    TCIMValue value_;
    const unsigned int scope_;
    unsigned int flavor_;
};

}  // namespace NQELVSK20
