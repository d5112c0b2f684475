#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <string>

#include "vskcore/ICIMNamedElement.h"
#include "vskcore/ICIMQualifier.h"

namespace NQELVSK20 {

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

    void Validate(TContext) override {}

    /// Adds the qualifier to the element that it was made for.
    void Commit(TContext context) override;
    void Reserved4(TContext) override {}
    const std::string& GetName(TContext context) const override;

    /// Empty once the namespace is gone.
    boost::shared_ptr<ICIMNamespace> GetNamespace(TContext) const override { return namespace_.lock(); }
    TCIMValue::TCIMType GetType(TContext) const override { return value_.GetType(); }
    bool IsArray(TContext) const override { return value_.IsArray(); }
    boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(TContext) const override { return declaration_; }
    const TCIMValue& GetValue(TContext) const override { return value_; }
    void SetValue(const TCIMValue& value, TContext context) override;
    void AddFlavor(unsigned int bits, TContext context) override;
    void RemoveFlavor(unsigned int bits, TContext context) override;
    unsigned int GetFlavor(TContext) const override { return flavor_; }
    bool operator==(const ICIMQualifier& other) const override;
    bool operator<(const ICIMQualifier& other) const override;
    bool IsPropagated(TContext) const override { return propagated_; }

    /// Do nothing: qualifiers are not copied by assignment.
    TCimHTTPQualifier& operator=(const ICIMQualifier&) override { return *this; }
    TCimHTTPQualifier& operator=(const TCimHTTPQualifier&) { return *this; }

private:
    boost::weak_ptr<ICIMNamespace> namespace_;
    boost::shared_ptr<ICIMQualifierDecl> declaration_;  // never empty
    TCIMValue value_;
    unsigned int flavor_;
    bool propagated_;
    boost::weak_ptr<ICIMNamedElement> element_;
};

/// The qualifiers of one element, by normalised name, and the rule for adding one: the one place for
/// classes, properties, methods and parameters alike. Shares ownership of the qualifiers.
class QualifierSet {
public:
    /// Adds a qualifier, which must be one of this plug-in's. One of the same name that is there already
    /// gives way when its flavor allows overriding; else the new one is dropped when value and flavor are
    /// the same, and refused with status 28 (nothing logged) when they differ.
    void Add(boost::shared_ptr<ICIMQualifier> qualifier);

    /// The qualifier of a name, in any letter case; empty when there is none. Throws status 25 for a
    /// malformed name.
    boost::shared_ptr<ICIMQualifier> Find(const std::string& name) const;

    /// Calls back with every qualifier in the order of their normalised names until the callback returns
    /// false. The callback may add qualifiers.
    void Enumerate(const ICIMNamedElement::QualifierCallback& callback) const;

private:
    std::map<std::string, boost::shared_ptr<TCimHTTPQualifier>> qualifiers_;
};

}  // namespace NQELVSK20
