#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "vskcore/ICIMNamedElement.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {

/// A qualifier on an element in memory. Begins with its declaration's flavor, and as not propagated: what is
/// made for an element is that element's own. Must be owned by a boost::shared_ptr.
class TInmemQualifier : public ICIMQualifier, public boost::enable_shared_from_this<TInmemQualifier> {
public:
    /// Shares the declaration, which must not be empty; keeps namespace and element weakly.
    TInmemQualifier(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                    const boost::shared_ptr<ICIMNamedElement>& element,
                    const boost::shared_ptr<ICIMQualifierDecl>& declaration, const TCIMValue& value);

    TInmemQualifier(const TInmemQualifier&) = delete;

    void Validate(TContext context) override;

    /// Adds the qualifier to the element that it was made for.
    void Commit(TContext context) override;
    void Reserved4(TContext context) override;
    const std::string& GetName(TContext context) const override;
    boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) const override;
    TCIMValue::TCIMType GetType(TContext context) const override;
    bool IsArray(TContext context) const override;
    boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(TContext context) const override;
    const TCIMValue& GetValue(TContext context) const override;
    void SetValue(const TCIMValue& value, TContext context) override;
    void AddFlavor(unsigned int bits, TContext context) override;
    void RemoveFlavor(unsigned int bits, TContext context) override;
    unsigned int GetFlavor(TContext context) const override;
    bool operator==(const ICIMQualifier& other) const override;
    bool operator<(const ICIMQualifier& other) const override;
    bool IsPropagated(TContext context) const override;

    /// Does nothing: qualifiers are not copied by assignment.
    ICIMQualifier& operator=(const ICIMQualifier& other) override;
    TInmemQualifier& operator=(const TInmemQualifier& other);

private:
    const boost::weak_ptr<ICIMNamespace> namespace_;
    const boost::weak_ptr<ICIMNamedElement> element_;
    const boost::shared_ptr<ICIMQualifierDecl> declaration_;
    TCIMValue value_;
    unsigned int flavor_;
};

}  // namespace NQELVSK20
