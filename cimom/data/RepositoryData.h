#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "cimom/data/NameSpace.h"
#include "cimom/data/Repository.h"

namespace cimom {

/// The namespaces of a repository.
class Repository::Data {
public:
    /// The namespace of that name, without regard to case and to slashes at either end, or null. Owned
    /// by this object.
    NameSpace* find(const std::string& name);

    /// Likewise, made when it is not there.
    NameSpace& findOrAdd(const std::string& name);

    /// Held while a request is carried out, since methods may change instances and several servers may
    /// serve one repository.
    std::mutex mutex;

private:
    std::unordered_map<std::string, std::unique_ptr<NameSpace>> nameSpaces_;
};

}  // namespace cimom
