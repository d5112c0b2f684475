#pragma once

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "tests/support/schema/TInmemQualifier.h"
#include "vskcore/CimNames.h"
#include "vskcore/ICIMNamedElement.h"
#include "vskcore/ICIMNamespace.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

/// The qualifiers of an element in memory: what classes, properties, methods and parameters share.
/// `TInterface` is ICIMNamedElement or an interface derived from it.
template <typename TInterface>
class TInmemElement : public TInterface {
public:
    using TInterface::operator=;
    using QualifierCallback = ICIMNamedElement::QualifierCallback;

    /// One that is there is replaced when its flavor allows that (EnableOverride); an equal one is kept.
    void AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext /*context*/) override {
        boost::shared_ptr<ICIMQualifier>& place = qualifiers_[qualifier->GetName({})];
        if (place && (place->GetFlavor({}) & ICIMQualifierDecl::eFlavorEnableOverride) == 0) {
            const bool conflicts = place->GetValue({}) != qualifier->GetValue({}) ||
                                   place->GetFlavor({}) != qualifier->GetFlavor({});
            if (conflicts) {
                throw TVSKException(eVSKQualifierConflict);
            }
            return;
        }
        place = qualifier;
    }

    boost::shared_ptr<ICIMQualifier> AllocateQualifier(const std::string& name, const TCIMValue& value,
                                                       TContext context) override {
        const boost::shared_ptr<ICIMNamespace> nameSpace = OwnNamespace();
        const auto declaration = nameSpace ? nameSpace->GetQualifierDecl(name, context) : nullptr;
        if (!declaration) {
            throw TVSKException(eVSKNotFound);
        }
        return AllocateQualifier(declaration, value, context);
    }

    boost::shared_ptr<ICIMQualifier> AllocateQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                       const TCIMValue& value,
                                                       TContext /*context*/) override {
        return boost::make_shared<TInmemQualifier>(OwnNamespace(), OwnElement(), declaration, value);
    }

    boost::shared_ptr<ICIMQualifier> FindQualifier(const std::string& name, bool& found,
                                                   TContext /*context*/) const override {
        const auto place = qualifiers_.find(name);
        found = place != qualifiers_.end();
        return found ? place->second : nullptr;
    }

    boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, TContext context) const override {
        bool found = false;
        const boost::shared_ptr<ICIMQualifier> qualifier = TInmemElement::FindQualifier(name, found, context);
        if (!found) {
            throw TVSKException(eVSKNotFound);
        }
        return qualifier;
    }

    void EnumerateQualifiers(const QualifierCallback& callback, TContext /*context*/) const override {
        for (const auto& [name, qualifier] : qualifiers_) {
            if (!callback(qualifier)) {
                return;
            }
        }
    }

protected:
    /// The namespace that the element belongs to; empty when it is gone.
    virtual boost::shared_ptr<ICIMNamespace> OwnNamespace() const = 0;

    /// The element itself.
    virtual boost::shared_ptr<ICIMNamedElement> OwnElement() = 0;

    /// True when a qualifier is there and its value is true.
    bool IsMarked(const std::string& name) const {
        const auto place = qualifiers_.find(name);
        return place != qualifiers_.end() && place->second->GetValue({});
    }

private:
    std::map<std::string, boost::shared_ptr<ICIMQualifier>, TNameLess> qualifiers_;
};

}  // namespace NQELVSK20
