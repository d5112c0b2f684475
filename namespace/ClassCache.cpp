// The classes that a namespace has built, and how they get there.

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
    cimClass->Initialize();
    return cimClass;
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
    cimClass->TakeOverSubclasses(*entry->second);
    entry->second->ForgetInstances();
    entry->second = cimClass;
}

// Classes stay cached for the life of the namespace.
void TCimHTTPNamespace::RemoveClass(boost::shared_ptr<TCimHTTPClass>) {}

boost::shared_ptr<TCimHTTPClass> TCimHTTPNamespace::CachedClass(const std::string& key) const {
    const auto entry = classes_.find(key);
    return entry == classes_.end() ? boost::shared_ptr<TCimHTTPClass>() : entry->second;
}

// A class and the instances that it collected hold each other: without this, neither would ever be freed.
void TCimHTTPNamespace::ForgetClasses() {
    for (const auto& entry : classes_) {
        entry.second->ForgetInstances();
    }
    classes_.clear();
}

void TCimHTTPNamespace::EnumerateRootClasses(const ClassCallback& callback, TContext context) {
    if (connected_) {
        rootClass_->EnumerateSubclasses(callback, true, context);
    }
}

}  // namespace NQELVSK20
