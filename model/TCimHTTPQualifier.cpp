#include "model/TCimHTTPQualifier.h"

#include <boost/pointer_cast.hpp>
#include <utility>

#include "namespace/names/Names.h"
#include "provider/contract/HostCodes.h"
#include "provider/contract/HostReport.h"
#include "vskcore/ICIMNamespace.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {

namespace {

bool MayBeOverridden(const ICIMQualifier& qualifier) {
    return (qualifier.GetFlavor(TContext()) & kFlavorEnableOverride) != 0;
}

bool AreIdentical(const ICIMQualifier& left, const ICIMQualifier& right) {
    return !(left.GetValue(TContext()) != right.GetValue(TContext())) &&
           left.GetFlavor(TContext()) == right.GetFlavor(TContext());
}

}  // namespace

TCimHTTPQualifier::TCimHTTPQualifier(boost::shared_ptr<ICIMNamespace> nameSpace,
                                     boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value,
                                     boost::weak_ptr<ICIMNamedElement> element)
    : namespace_(nameSpace),
      declaration_(Required(std::move(declaration), "TCimHTTPQualifier::TCimHTTPQualifier")),
      value_(value),
      flavor_(declaration_->GetFlavor(TContext())),
      propagated_(!(value_ != declaration_->GetValue(TContext()))),
      element_(std::move(element)) {}

boost::shared_ptr<TCimHTTPQualifier> TCimHTTPQualifier::Allocate(boost::shared_ptr<ICIMNamespace> nameSpace,
                                                                 const std::string& name,
                                                                 const TCIMValue& value,
                                                                 boost::weak_ptr<ICIMNamedElement> element) {
    auto declaration = Required(nameSpace, "TCimHTTPQualifier::Allocate")->GetQualifierDecl(name, TContext());
    if (!declaration) {
        Refuse(kStatusNotFound);
    }
    return boost::shared_ptr<TCimHTTPQualifier>(
        new TCimHTTPQualifier(std::move(nameSpace), std::move(declaration), value, std::move(element)));
}

void TCimHTTPQualifier::Commit(TContext context) {
    Required(element_.lock(), "TCimHTTPQualifier::Commit")
        ->AddQualifier(shared_from_this(), std::move(context));
}

const std::string& TCimHTTPQualifier::GetName(TContext context) const {
    return declaration_->GetName(std::move(context));
}

void TCimHTTPQualifier::SetValue(const TCIMValue& value, TContext) {
    value_ = value;
    propagated_ = false;
}

void TCimHTTPQualifier::AddFlavor(unsigned int bits, TContext) {
    flavor_ |= bits;
    propagated_ = false;
}

void TCimHTTPQualifier::RemoveFlavor(unsigned int bits, TContext) {
    flavor_ &= ~bits;
    propagated_ = false;
}

bool TCimHTTPQualifier::operator==(const ICIMQualifier& other) const {
    return EqualByName(GetName(TContext()), other.GetName(TContext()));
}

bool TCimHTTPQualifier::operator<(const ICIMQualifier& other) const {
    return LessByName(GetName(TContext()), other.GetName(TContext()));
}

void QualifierSet::Add(boost::shared_ptr<ICIMQualifier> qualifier) {
    auto own = Required(boost::dynamic_pointer_cast<TCimHTTPQualifier>(qualifier), "QualifierSet::Add");
    const auto [stored, isNew] = qualifiers_.try_emplace(NormalizeName(own->GetName(TContext())), own);
    if (isNew) {
        return;
    }
    if (MayBeOverridden(*stored->second)) {
        stored->second = std::move(own);  // in its place: an enumeration under way stays valid
    } else if (!AreIdentical(*own, *stored->second)) {
        Refuse(kStatusQualifierConflict);
    }
}

boost::shared_ptr<ICIMQualifier> QualifierSet::Find(const std::string& name) const {
    return FindByName(qualifiers_, name);
}

void QualifierSet::Enumerate(const ICIMNamedElement::QualifierCallback& callback) const {
    CallUntilFalse(qualifiers_, callback);
}

}  // namespace NQELVSK20
