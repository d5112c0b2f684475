// The classes that a namespace has built, and how they get there.

#include <algorithm>
#include <boost/pointer_cast.hpp>

#include "connection/Log.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "namespace/RaisedTimeout.h"

namespace NQELVSK20 {

namespace {

constexpr unsigned int kClassTimeoutMs = 60000;

}  // namespace

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::AllocateClass(const std::string& name,
                                                              boost::shared_ptr<ICIMClass> superclass,
                                                              TContext context) {
    const boost::shared_ptr<TCimHTTPClass> cimClass(
        new TCimHTTPClass(shared_from_this(), RaisedTimeout(context, "EITimeout", kClassTimeoutMs), name,
                          boost::dynamic_pointer_cast<TCimHTTPClass>(superclass)));
    RememberClass(cimClass);
    cimClass->Initialize();
    cimClass->SuggestSuperclass(boost::dynamic_pointer_cast<TCimHTTPClass>(superclass));
    return cimClass;
}

// Also a class that never enters the cache may collect instances, which hold it.
void TCimHTTPNamespace::RememberClass(const boost::shared_ptr<TCimHTTPClass>& cimClass) {
    if (ownClasses_.size() == ownClasses_.capacity()) {
        ownClasses_.erase(std::remove_if(ownClasses_.begin(), ownClasses_.end(),
                                         [](const auto& known) { return known.expired(); }),
                          ownClasses_.end());
    }
    ownClasses_.push_back(cimClass);
}

void TCimHTTPNamespace::AddClass(boost::shared_ptr<TCimHTTPClass> cimClass) {
    const std::string name = cimClass->GetName(TContext());
    const auto [entry, isNew] = classes_.emplace(NormalizeName(name), cimClass);
    if (isNew) {
        return;
    }
    if (!replaceDuplicates_) {
        Refuse(eVSKAlreadyExists, kLogTrace, "TCimHTTPNamespace: class " + name + " already defined");
    }
    if (entry->second == cimClass) {
        return;
    }
    cimClass->TakeOverSubclasses(*entry->second);
    entry->second->LeaveNamespace();
    entry->second = cimClass;
}

// Classes stay cached for the life of the namespace.
void TCimHTTPNamespace::RemoveClass(boost::shared_ptr<TCimHTTPClass>) {}

boost::shared_ptr<TCimHTTPClass> TCimHTTPNamespace::CachedClass(const std::string& key) const {
    const auto entry = classes_.find(key);
    return entry == classes_.end() ? boost::shared_ptr<TCimHTTPClass>() : entry->second;
}

// A class and the instances that it collected hold each other, and a host's references may hold the
// namespace: without this, none of them would ever be freed.
void TCimHTTPNamespace::ForgetInstances() {
    for (const auto& known : ownClasses_) {
        if (const auto cimClass = known.lock()) {
            cimClass->ForgetInstances();
        }
    }
}

// Whoever still holds one of the classes may go on using it; nothing of the namespace refers to it any more.
void TCimHTTPNamespace::ForgetClasses() {
    for (const auto& known : ownClasses_) {
        const auto cimClass = known.lock();
        if (cimClass && cimClass == rootClass_) {
            cimClass->ForgetInstances();
            cimClass->ForgetSubclasses();
        } else if (cimClass) {
            cimClass->LeaveNamespace();
        }
    }
    classes_.clear();
}

void TCimHTTPNamespace::EnumerateRootClasses(const ClassCallback& callback, TContext context) {
    if (connected_) {
        rootClass_->EnumerateSubclasses(callback, true, context);
    }
}

}  // namespace NQELVSK20
