#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <utility>

#include "model/ClassNamespace.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostReport.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {

/// A qualifier declaration of a remote namespace, which it refers to weakly. Name and scope never change.
/// Must be owned by a boost::shared_ptr.
class TCimHTTPQualifierDecl : public ICIMQualifierDecl,
                              public boost::enable_shared_from_this<TCimHTTPQualifierDecl> {
public:
    TCimHTTPQualifierDecl(boost::shared_ptr<ICIMNamespace> nameSpace, std::string name,
                          const TCIMValue& value, EScope scope, EFlavor flavor)
        : namespace_(nameSpace), name_(std::move(name)), value_(value), scope_(scope), flavor_(flavor) {}
    TCimHTTPQualifierDecl(const TCimHTTPQualifierDecl&) = delete;

    void Validate(TContext) override {}

    /// Enters the declaration into its namespace; throws status 16 for a duplicate.
    void Commit(TContext) override {
        Required(ClassNamespace::Behind(namespace_.lock()), "TCimHTTPQualifierDecl::Commit")
            ->Enter(shared_from_this());
    }
    void Reserved4(TContext) override {}
    const std::string& GetName(TContext) const override { return name_; }

    /// Empty once the namespace is gone.
    boost::shared_ptr<ICIMNamespace> GetNamespace(TContext) const override { return namespace_.lock(); }
    TCIMValue::TCIMType GetType(TContext) const override { return value_.GetType(); }
    bool IsArray(TContext) const override { return value_.IsArray(); }
    const TCIMValue& GetValue(TContext) const override { return value_; }
    void SetValue(const TCIMValue& value, TContext) override { value_ = value; }
    unsigned int GetScope(TContext) const override { return scope_; }
    void AddFlavor(unsigned int bits, TContext) override { flavor_ |= bits; }
    void RemoveFlavor(unsigned int bits, TContext) override { flavor_ &= ~bits; }
    unsigned int GetFlavor(TContext) const override { return flavor_; }
    bool operator==(const ICIMQualifierDecl& other) const override {
        return EqualByName(name_, other.GetName(TContext()));
    }
    bool operator<(const ICIMQualifierDecl& other) const override {
        return LessByName(name_, other.GetName(TContext()));
    }

    /// Do nothing: declarations are not copied by assignment.
    TCimHTTPQualifierDecl& operator=(const ICIMQualifierDecl&) override { return *this; }
    TCimHTTPQualifierDecl& operator=(const TCimHTTPQualifierDecl&) { return *this; }

private:
    boost::weak_ptr<ICIMNamespace> namespace_;
    std::string name_;
    TCIMValue value_;
    unsigned int scope_;
    unsigned int flavor_;
};

}  // namespace NQELVSK20
