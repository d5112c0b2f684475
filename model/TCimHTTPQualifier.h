#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "vskcore/ICIMQualifier.h"

namespace NQELVSK20 {

class ICIMNamedElement;

/// A qualifier as it stands on a class, property, method or parameter: a declaration with a value and flavor
/// of its own. Refers weakly to its namespace and to the element that it was made for. Must be owned by a
/// boost::shared_ptr.
class TCimHTTPQualifier : public ICIMQualifier, public boost::enable_shared_from_this<TCimHTTPQualifier> {
public:
    /// Starts with the declaration's flavor, and as propagated when `value` is the declaration's default.
    /// `declaration` must be set (see Required). Commit adds the qualifier to `element`.
    TCimHTTPQualifier(boost::shared_ptr<ICIMNamespace> nameSpace,
                      boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value,
                      boost::weak_ptr<ICIMNamedElement> element);
    TCimHTTPQualifier(const TCimHTTPQualifier&) = delete;

    /// Makes a qualifier of the declaration that `nameSpace` knows by `name`; throws status 15 when it knows
    /// none. The caller shares ownership.
    static boost::shared_ptr<TCimHTTPQualifier> Allocate(boost::shared_ptr<ICIMNamespace> nameSpace,
                                                         const std::string& name, const TCIMValue& value,
                                                         boost::weak_ptr<ICIMNamedElement> element);

    /// The flavor that the qualifier is built with. No change of it: unlike AddFlavor and RemoveFlavor, this
    /// leaves it propagated.
    void SetInitialFlavor(unsigned int flavor) { flavor_ = flavor; }

    void Validate(TContext context) override;

    /// Adds the qualifier to the element that it was made for.
    void Commit(TContext context) override;
    void Reserved4(TContext context) override;
    const std::string& GetName(TContext context) const override;

    /// Empty once the namespace is gone.
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

    /// Do nothing: qualifiers are not copied by assignment.
    TCimHTTPQualifier& operator=(const ICIMQualifier& other) override;
    TCimHTTPQualifier& operator=(const TCimHTTPQualifier& other);

private:
    boost::weak_ptr<ICIMNamespace> namespace_;
    boost::shared_ptr<ICIMQualifierDecl> declaration_;  // never empty
    TCIMValue value_;
    unsigned int flavor_;
    bool propagated_;
    boost::weak_ptr<ICIMNamedElement> element_;
};

}  // namespace NQELVSK20
