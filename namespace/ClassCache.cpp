#include "namespace/ClassCache.h"

#include <algorithm>

#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPQualifierDecl.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostReport.h"

namespace NQELVSK20 {

ClassCache::ClassCache(const ClassCache& other)
    : replaceDuplicates_(other.replaceDuplicates_), root_(other.root_), classes_(other.classes_) {}

ClassCache& ClassCache::operator=(const ClassCache& other) {
    if (this != &other) {
        GiveUp();
        replaceDuplicates_ = other.replaceDuplicates_;
        root_ = other.root_;
        classes_ = other.classes_;
    }
    return *this;
}

void ClassCache::Remember(const boost::shared_ptr<TCimHTTPClass>& cimClass) {
    if (own_.size() == own_.capacity()) {
        own_.erase(
            std::remove_if(own_.begin(), own_.end(), [](const auto& known) { return known.expired(); }),
            own_.end());
    }
    own_.emplace_back(cimClass);
}

boost::shared_ptr<TCimHTTPClass> ClassCache::Add(const boost::shared_ptr<TCimHTTPClass>& cimClass) {
    const std::string name = cimClass->GetName(TContext());
    const auto [entry, isNew] = classes_.emplace(NormalizeName(name), cimClass);
    if (isNew) {
        return {};
    }
    if (!replaceDuplicates_) {
        Refuse(kStatusAlreadyExists, kLogTrace, "TCimHTTPNamespace: class " + name + " already defined");
    }
    const auto replaced = entry->second;
    if (replaced == cimClass) {
        return {};
    }
    cimClass->TakeOverSubclasses(*replaced);
    replaced->LeaveNamespace();
    entry->second = cimClass;
    return replaced;
}

boost::shared_ptr<TCimHTTPClass> ClassCache::Find(const std::string& key) const {
    const auto entry = classes_.find(key);
    return entry == classes_.end() ? boost::shared_ptr<TCimHTTPClass>() : entry->second;
}

void ClassCache::Discard(const std::string& key) {
    if (const auto cimClass = Find(key)) {
        cimClass->LeaveTree();
        cimClass->LeaveNamespace();
        classes_.erase(key);
    }
}

void ClassCache::ForgetInstances() {
    for (const auto& known : own_) {
        if (const auto cimClass = known.lock()) {
            cimClass->ForgetInstances();
        }
    }
}

void ClassCache::Forget() {
    for (const auto& known : own_) {
        const auto cimClass = known.lock();
        if (cimClass && cimClass == root_) {
            cimClass->ForgetInstances();
            cimClass->ForgetSubclasses();
        } else if (cimClass) {
            cimClass->LeaveNamespace();
        }
    }
    classes_.clear();
}

void ClassCache::GiveUp() {
    Forget();
    for (const auto& known : own_) {
        if (const auto cimClass = known.lock()) {
            cimClass->LeaveNamespace();
        }
    }
}

void QualifierTable::Add(const boost::shared_ptr<TCimHTTPQualifierDecl>& declaration) {
    const std::string name = declaration->GetName(TContext());
    const auto [entry, isNew] = declarations_.emplace(NormalizeName(name), declaration);
    if (isNew) {
        return;
    }
    if (!replaceDuplicates_) {
        Refuse(kStatusAlreadyExists, kLogTrace,
               "CimHTTP: TCimHTTPNamespace: qualifier " + name + " already defined");
    }
    entry->second = declaration;
}

boost::shared_ptr<ICIMQualifierDecl> QualifierTable::Find(const std::string& name) const {
    return FindByName(declarations_, name);
}

void QualifierTable::Enumerate(const ICIMNamespace::QualifierDeclCallback& callback) const {
    CallUntilFalse(declarations_, callback);
}

}  // namespace NQELVSK20
