#include "model/TNamedElement.h"

#include <utility>

#include "model/TCimHTTPQualifier.h"
#include "namespace/names/Names.h"
#include "provider/contract/Refuse.h"
#include "vskcore/ICIMMethodDecl.h"
#include "vskcore/ICIMParameterDecl.h"
#include "vskcore/ICIMPropertyDecl.h"

namespace NQELVSK20 {

template <class TInterface>
TNamedElement<TInterface>::TNamedElement(std::string name) : name_(std::move(name)) {}

template <class TInterface>
void TNamedElement<TInterface>::AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext) {
    qualifiers_.Add(std::move(qualifier));
}

template <class TInterface>
boost::shared_ptr<ICIMQualifier> TNamedElement<TInterface>::AllocateQualifier(const std::string& name,
                                                                              const TCIMValue& value,
                                                                              TContext) {
    return TCimHTTPQualifier::Allocate(OwnNamespace(), name, value, this->shared_from_this());
}

template <class TInterface>
boost::shared_ptr<ICIMQualifier> TNamedElement<TInterface>::AllocateQualifier(
    boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value, TContext) {
    return boost::shared_ptr<ICIMQualifier>(
        new TCimHTTPQualifier(OwnNamespace(), std::move(declaration), value, this->shared_from_this()));
}

template <class TInterface>
boost::shared_ptr<ICIMQualifier> TNamedElement<TInterface>::FindQualifier(const std::string& name,
                                                                          bool& found, TContext) const {
    auto qualifier = qualifiers_.Find(name);
    found = qualifier != nullptr;
    return qualifier;
}

template <class TInterface>
boost::shared_ptr<ICIMQualifier> TNamedElement<TInterface>::GetQualifier(const std::string& name,
                                                                         TContext) const {
    auto qualifier = qualifiers_.Find(name);
    if (!qualifier) {
        Refuse(eVSKNotFound);
    }
    return qualifier;
}

template <class TInterface>
void TNamedElement<TInterface>::EnumerateQualifiers(const ICIMNamedElement::QualifierCallback& callback,
                                                    TContext) const {
    qualifiers_.Enumerate(callback);
}

template <class TInterface>
void TNamedElement<TInterface>::Validate(TContext) {
    NormalizeName(name_);
}

template <class TInterface>
const std::string& TNamedElement<TInterface>::GetName(TContext) const {
    return name_;
}

template <class TInterface>
bool TNamedElement<TInterface>::operator==(const TInterface& other) const {
    return EqualByName(name_, other.GetName(TContext()));
}

template <class TInterface>
bool TNamedElement<TInterface>::operator<(const TInterface& other) const {
    return LessByName(name_, other.GetName(TContext()));
}

template <class TInterface>
TNamedElement<TInterface>& TNamedElement<TInterface>::operator=(const TInterface&) {
    return *this;
}

template <class TInterface>
TNamedElement<TInterface>& TNamedElement<TInterface>::operator=(const TNamedElement&) {
    return *this;
}

template class TNamedElement<ICIMPropertyDecl>;
template class TNamedElement<ICIMMethodDecl>;
template class TNamedElement<ICIMParameterDecl>;

}  // namespace NQELVSK20
