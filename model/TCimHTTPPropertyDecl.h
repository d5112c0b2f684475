#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <utility>

#include "model/TNamedElement.h"
#include "provider/contract/HostReport.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMPropertyDecl.h"

namespace NQELVSK20 {

/// A property of a remote class, which it refers to weakly. Its type is that of its default value.
class TCimHTTPPropertyDecl : public TNamedElement<ICIMPropertyDecl> {
public:
    TCimHTTPPropertyDecl(const boost::shared_ptr<ICIMClass>& owner, std::string name,
                         const TCIMValue& defaultValue)
        : TNamedElement(std::move(name)), owner_(owner), value_(defaultValue) {}

    /// Adds the property to its class, subject to the class's rules.
    void Commit(TContext context) override {
        Required(owner_.lock(), "TCimHTTPPropertyDecl::Commit")
            ->AddPropertyDecl(shared_from_this(), std::move(context));
    }
    void Reserved10(TContext) override {}

    /// Empty once the class is gone.
    boost::shared_ptr<ICIMClass> GetClass(TContext) const override { return owner_.lock(); }
    TCIMValue::TCIMType GetType(TContext) const override { return value_.GetType(); }
    bool IsArray(TContext) const override { return value_.IsArray(); }
    const TCIMValue& GetValue(TContext) const override { return value_; }
    void SetValue(const TCIMValue& value, TContext) override { value_ = value; }

    using TNamedElement::operator=;
    TCimHTTPPropertyDecl& operator=(const TCimHTTPPropertyDecl&) { return *this; }

private:
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override {
        return Required(owner_.lock(), "TCimHTTPPropertyDecl::AllocateQualifier")->GetNamespace(TContext());
    }

    boost::weak_ptr<ICIMClass> owner_;
    TCIMValue value_;
};

}  // namespace NQELVSK20
