#include "tools/machine/SchemaCache.h"

#include <algorithm>

namespace tool {

using NQELVSK20::ICIMClass;
using NQELVSK20::TContext;

const ClassSchema& SchemaCache::of(const boost::shared_ptr<ICIMClass>& cimClass) {
    std::unique_ptr<ClassSchema>& schema = schemas_[cimClass->GetName(TContext())];
    if (!schema) {
        schema = std::make_unique<ClassSchema>(chainOf(cimClass));
    }
    return *schema;
}

const ClassSchema& SchemaCache::of(const std::string& className) {
    return of(session_.getClass(className));
}

ClassSchema::Chain SchemaCache::chainOf(const boost::shared_ptr<ICIMClass>& cimClass) {
    ClassSchema::Chain chain;
    // A server may tell a chain that runs in a circle; it ends where it comes back.
    for (auto link = cimClass; link && std::find(chain.begin(), chain.end(), link) == chain.end();
         link = session_.superclassOf(*link)) {
        chain.push_back(link);
    }
    return chain;
}

}  // namespace tool
