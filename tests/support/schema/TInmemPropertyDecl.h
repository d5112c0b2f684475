#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "tests/support/schema/TInmemElement.h"
#include "vskcore/ICIMPropertyDecl.h"

namespace NQELVSK20 {

/// A property of a class in memory; its type is its default value's. Must be owned by a boost::shared_ptr.
class TInmemPropertyDecl : public TInmemElement<ICIMPropertyDecl>,
                           public boost::enable_shared_from_this<TInmemPropertyDecl> {
public:
    /// Keeps the class weakly.
    TInmemPropertyDecl(const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name,
                       const TCIMValue& defaultValue);

    TInmemPropertyDecl(const TInmemPropertyDecl&) = delete;

    /// Throws status 25 when the name is no CIM name.
    void Validate(TContext context) override;
    void Commit(TContext context) override;
    void Reserved10(TContext context) override;
    const std::string& GetName(TContext context) const override;
    boost::shared_ptr<ICIMClass> GetClass(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext context) const override;
    bool IsArray(TContext context) const override;
    const TCIMValue& GetValue(TContext context) const override;
    void SetValue(const TCIMValue& value, TContext context) override;
    bool operator==(const ICIMPropertyDecl& other) const override;
    bool operator<(const ICIMPropertyDecl& other) const override;

    /// Does nothing: declarations are not copied by assignment.
    ICIMPropertyDecl& operator=(const ICIMPropertyDecl& other) override;
    TInmemPropertyDecl& operator=(const TInmemPropertyDecl& other);

protected:
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override;
    boost::shared_ptr<ICIMNamedElement> OwnElement() override;

private:
    const boost::weak_ptr<ICIMClass> class_;
    const std::string name_;
    TCIMValue value_;
};

}  // namespace NQELVSK20
