#include "model/QualifierSet.h"

#include <boost/pointer_cast.hpp>
#include <cassert>
#include <utility>

#include "model/TCimHTTPQualifier.h"
#include "namespace/names/Names.h"
#include "provider/contract/Refuse.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

bool MayBeOverridden(const ICIMQualifier& qualifier) {
    return (qualifier.GetFlavor(TContext()) & ICIMQualifierDecl::eFlavorEnableOverride) != 0;
}

bool AreIdentical(const ICIMQualifier& left, const ICIMQualifier& right) {
    return !(left.GetValue(TContext()) != right.GetValue(TContext())) &&
           left.GetFlavor(TContext()) == right.GetFlavor(TContext());
}

}  // namespace

void QualifierSet::Add(boost::shared_ptr<ICIMQualifier> qualifier) {
    auto own = Required(boost::dynamic_pointer_cast<TCimHTTPQualifier>(qualifier), "QualifierSet::Add");
    const std::string key = NormalizeName(own->GetName(TContext()));

    const auto stored = qualifiers_.find(key);
    if (stored == qualifiers_.end()) {
        [[maybe_unused]] const auto ret = qualifiers_.emplace(key, std::move(own));
        assert(ret.second);
    } else if (MayBeOverridden(*stored->second)) {
        stored->second = std::move(own);  // in its place: an enumeration under way stays valid
    } else if (!AreIdentical(*own, *stored->second)) {
        Refuse(eVSKQualifierConflict);
    }
}

boost::shared_ptr<ICIMQualifier> QualifierSet::Find(const std::string& name) const {
    const auto found = qualifiers_.find(NormalizeName(name));
    if (found == qualifiers_.end()) {
        return boost::shared_ptr<ICIMQualifier>();
    }
    return found->second;
}

void QualifierSet::Enumerate(const ICIMNamedElement::QualifierCallback& callback) const {
    for (const auto& entry : qualifiers_) {
        if (!callback(entry.second)) {
            return;
        }
    }
}

}  // namespace NQELVSK20
