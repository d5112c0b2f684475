#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "model/TNamedElement.h"
#include "vskcore/ICIMPropertyDecl.h"

namespace NQELVSK20 {

class TCimHTTPClass;

/// A property of a remote class, which it refers to weakly. Its type is that of its default value.
class TCimHTTPPropertyDecl : public TNamedElement<ICIMPropertyDecl> {
public:
    TCimHTTPPropertyDecl(boost::shared_ptr<TCimHTTPClass> owner, std::string name,
                         const TCIMValue& defaultValue);

    /// Adds the property to its class, subject to the class's rules.
    void Commit(TContext context) override;
    void Reserved10(TContext) override {}

    /// Empty once the class is gone.
    boost::shared_ptr<ICIMClass> GetClass(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext) const override { return value_.GetType(); }
    bool IsArray(TContext) const override { return value_.IsArray(); }
    const TCIMValue& GetValue(TContext) const override { return value_; }
    void SetValue(const TCIMValue& value, TContext) override { value_ = value; }

    using TNamedElement::operator=;
    TCimHTTPPropertyDecl& operator=(const TCimHTTPPropertyDecl&) { return *this; }

private:
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override;

    boost::weak_ptr<TCimHTTPClass> owner_;
    TCIMValue value_;
};

}  // namespace NQELVSK20
