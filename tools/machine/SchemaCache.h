#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <memory>
#include <string>

#include "tools/machine/Session.h"
#include "tools/values/ClassSchema.h"

namespace tool {

/// Schemas by class name, each read once: telling a class's superclass costs a remote request.
class SchemaCache {
public:
    /// `session` must outlive the cache.
    explicit SchemaCache(Session& session) : session_(session) {}

    /// The schema of a class; lives as long as the cache.
    const ClassSchema& of(const boost::shared_ptr<NQELVSK20::ICIMClass>& cimClass);

    /// The same by the class's name, which must exist: Failure when it does not.
    const ClassSchema& of(const std::string& className);

private:
    ClassSchema::Chain chainOf(const boost::shared_ptr<NQELVSK20::ICIMClass>& cimClass);

    Session& session_;
    std::map<std::string, std::unique_ptr<ClassSchema>, NameLess> schemas_;
};

}  // namespace tool
