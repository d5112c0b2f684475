#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {

/// A qualifier declaration of a remote namespace, which it refers to weakly. Name and scope never change.
/// Must be owned by a boost::shared_ptr.
class TCimHTTPQualifierDecl : public ICIMQualifierDecl,
                              public boost::enable_shared_from_this<TCimHTTPQualifierDecl> {
public:
    TCimHTTPQualifierDecl(boost::shared_ptr<ICIMNamespace> nameSpace, std::string name,
                          const TCIMValue& value, EScope scope, EFlavor flavor);
    TCimHTTPQualifierDecl(const TCimHTTPQualifierDecl&) = delete;

    void Validate(TContext context) override;

    /// Enters the declaration into its namespace; throws status 16 for a duplicate.
    void Commit(TContext context) override;
    void Reserved4(TContext context) override;
    const std::string& GetName(TContext context) const override;

    /// Empty once the namespace is gone.
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

    /// Do nothing: declarations are not copied by assignment.
    TCimHTTPQualifierDecl& operator=(const ICIMQualifierDecl& other) override;
    TCimHTTPQualifierDecl& operator=(const TCimHTTPQualifierDecl& other);

private:
    boost::weak_ptr<ICIMNamespace> namespace_;
    std::string name_;
    TCIMValue value_;
    unsigned int scope_;
    unsigned int flavor_;
};

}  // namespace NQELVSK20
