#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>

#include "model/TCimHTTPQualifier.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostReport.h"

namespace NQELVSK20 {

/// What declarations of properties, methods and parameters share: a name, comparison by it, and qualifiers.
/// `TInterface` is the host's interface of the kind of element. Must be owned by a boost::shared_ptr.
template <class TInterface>
class TNamedElement : public TInterface, public boost::enable_shared_from_this<TNamedElement<TInterface>> {
public:
    TNamedElement(const TNamedElement&) = delete;

    void AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext) override {
        qualifiers_.Add(std::move(qualifier));
    }

    boost::shared_ptr<ICIMQualifier> AllocateQualifier(const std::string& name, const TCIMValue& value,
                                                       TContext) override {
        return TCimHTTPQualifier::Allocate(OwnNamespace(), name, value, this->shared_from_this());
    }

    boost::shared_ptr<ICIMQualifier> AllocateQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                       const TCIMValue& value, TContext) override {
        return boost::shared_ptr<ICIMQualifier>(
            new TCimHTTPQualifier(OwnNamespace(), std::move(declaration), value, this->shared_from_this()));
    }

    boost::shared_ptr<ICIMQualifier> FindQualifier(const std::string& name, bool& found,
                                                   TContext) const override {
        auto qualifier = qualifiers_.Find(name);
        found = qualifier != nullptr;
        return qualifier;
    }

    boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, TContext) const override {
        auto qualifier = qualifiers_.Find(name);
        if (!qualifier) {
            Refuse(kStatusNotFound);
        }
        return qualifier;
    }

    void EnumerateQualifiers(const ICIMNamedElement::QualifierCallback& callback, TContext) const override {
        qualifiers_.Enumerate(callback);
    }

    /// Throws status 25 for a malformed name, which no element could be added under.
    void Validate(TContext) override { NormalizeName(name_); }
    const std::string& GetName(TContext) const override { return name_; }
    bool operator==(const TInterface& other) const override {
        return EqualByName(name_, other.GetName(TContext()));
    }
    bool operator<(const TInterface& other) const override {
        return LessByName(name_, other.GetName(TContext()));
    }

    /// Do nothing: declarations are not copied by assignment.
    TNamedElement& operator=(const TInterface&) override { return *this; }
    TNamedElement& operator=(const TNamedElement&) { return *this; }

protected:
    explicit TNamedElement(std::string name) : name_(std::move(name)) {}

private:
    /// The namespace whose qualifier declarations the element uses; empty when its owner is gone.
    virtual boost::shared_ptr<ICIMNamespace> OwnNamespace() const = 0;

    std::string name_;
    QualifierSet qualifiers_;
};

}  // namespace NQELVSK20
