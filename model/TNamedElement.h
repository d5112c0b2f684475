#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "model/QualifierSet.h"

namespace NQELVSK20 {

class ICIMNamespace;

/// What declarations of properties, methods and parameters share: a name, comparison by it, and qualifiers.
/// `TInterface` is the host's interface of the kind of element. Must be owned by a boost::shared_ptr.
template <class TInterface>
class TNamedElement : public TInterface, public boost::enable_shared_from_this<TNamedElement<TInterface>> {
public:
    TNamedElement(const TNamedElement&) = delete;

    void AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext context) override;
    boost::shared_ptr<ICIMQualifier> AllocateQualifier(const std::string& name, const TCIMValue& value,
                                                       TContext context) override;
    boost::shared_ptr<ICIMQualifier> AllocateQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                       const TCIMValue& value, TContext context) override;
    boost::shared_ptr<ICIMQualifier> FindQualifier(const std::string& name, bool& found,
                                                   TContext context) const override;
    boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, TContext context) const override;
    void EnumerateQualifiers(const ICIMNamedElement::QualifierCallback& callback,
                             TContext context) const override;

    /// Throws status 25 for a malformed name, which no element could be added under.
    void Validate(TContext context) override;
    const std::string& GetName(TContext context) const override;
    bool operator==(const TInterface& other) const override;
    bool operator<(const TInterface& other) const override;

    /// Do nothing: declarations are not copied by assignment.
    TNamedElement& operator=(const TInterface& other) override;
    TNamedElement& operator=(const TNamedElement& other);

protected:
    explicit TNamedElement(std::string name);

private:
    /// The namespace whose qualifier declarations the element uses; empty when its owner is gone.
    virtual boost::shared_ptr<ICIMNamespace> OwnNamespace() const = 0;

    std::string name_;
    QualifierSet qualifiers_;
};

}  // namespace NQELVSK20
