#include "namespace/QualifierTable.h"

#include "model/TCimHTTPQualifierDecl.h"
#include "namespace/names/Names.h"
#include "provider/contract/Log.h"
#include "provider/contract/Refuse.h"

namespace NQELVSK20 {

void QualifierTable::Add(const boost::shared_ptr<TCimHTTPQualifierDecl>& declaration) {
    const std::string name = declaration->GetName(TContext());
    const auto [entry, isNew] = declarations_.emplace(NormalizeName(name), declaration);
    if (isNew) {
        return;
    }
    if (!replaceDuplicates_) {
        Refuse(eVSKAlreadyExists, kLogTrace,
               "CimHTTP: TCimHTTPNamespace: qualifier " + name + " already defined");
    }
    entry->second = declaration;
}

boost::shared_ptr<ICIMQualifierDecl> QualifierTable::Find(const std::string& name) const {
    const auto entry = declarations_.find(NormalizeName(name));
    return entry == declarations_.end() ? boost::shared_ptr<ICIMQualifierDecl>() : entry->second;
}

void QualifierTable::Enumerate(const ICIMNamespace::QualifierDeclCallback& callback) const {
    // A callback may add declarations, which leaves the walk's place in the map as it is.
    for (const auto& entry : declarations_) {
        if (!callback(entry.second)) {
            return;
        }
    }
}

}  // namespace NQELVSK20
