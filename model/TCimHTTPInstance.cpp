#include "model/TCimHTTPInstance.h"

#include <boost/pointer_cast.hpp>
#include <utility>

#include "model/TCimHTTPClass.h"
#include "provider/contract/HostReport.h"

namespace NQELVSK20 {

TCimHTTPInstance::TCimHTTPInstance(boost::shared_ptr<ICIMClass> cimClass, boost::shared_ptr<ICIMClass>)
    : TInmemInstance(std::move(cimClass), 1) {}

void TCimHTTPInstance::Commit(TContext context) {
    const auto cimClass = boost::dynamic_pointer_cast<TCimHTTPClass>(GetClass(context));
    if (!PointerIsSet(cimClass != nullptr, "TCimHTTPInstance::Commit")) {
        return;
    }
    Validate(context);
    cimClass->AddInstance(shared_from_this(), std::move(context));
}

void InstanceCollection::Insert(const std::string& path, boost::shared_ptr<ICIMInstance> instance) {
    if (instances_.emplace(path, std::move(instance)).second) {
        ForgetIndex();
    }
}

void InstanceCollection::Erase(const std::string& path) {
    instances_.erase(path);
    ForgetIndex();
}

void InstanceCollection::Clear() {
    instances_.clear();
    ForgetIndex();
}

void InstanceCollection::ForgetIndex() {
    byObject_.clear();
    isIndexed_ = false;
}

boost::shared_ptr<ICIMInstance> InstanceCollection::Find(const std::string& path) const {
    const auto exact = instances_.find(path);
    if (exact != instances_.end()) {
        return exact->second;
    }
    const std::string canonical = CanonicalPath(path);
    if (canonical.empty()) {
        return {};
    }
    IndexByObject();
    const auto same = byObject_.find(canonical);
    return same == byObject_.end() ? boost::shared_ptr<ICIMInstance>() : same->second;
}

void InstanceCollection::IndexByObject() const {
    if (isIndexed_) {
        return;
    }
    byObject_.reserve(instances_.size());
    for (const auto& [path, instance] : instances_) {
        const std::string canonical = CanonicalPath(path);
        if (!canonical.empty()) {
            byObject_.emplace(canonical, instance);
        }
    }
    isIndexed_ = true;
}

InstanceCollection::Instances InstanceCollection::InPathOrder() const {
    Instances all;
    all.reserve(instances_.size());
    for (const auto& entry : instances_) {
        all.push_back(entry.second);
    }
    return all;
}

}  // namespace NQELVSK20
