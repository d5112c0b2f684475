#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "inmem/TInmemInstance.h"

namespace NQELVSK20 {

/// An instance read from a remote server. It keeps its values in memory; committing it puts it among the
/// collected instances of its TCimHTTPClass, which it shares.
class TCimHTTPInstance : public TInmemInstance {
public:
    /// An empty instance of `cimClass`. The second argument is the host's and unused.
    TCimHTTPInstance(boost::shared_ptr<ICIMClass> cimClass, boost::shared_ptr<ICIMClass> unused);
    ~TCimHTTPInstance() override = default;

    /// Throws what Validate throws; nothing is stored then. An instance of the same path that is there stays.
    void Commit(TContext context) override;
    TCIMReference GetInstanceReference(TContext context) override { return GetReference(std::move(context)); }

    using TInmemInstance::operator=;
};

/// Instances by the text of their paths. Shares ownership of them.
class InstanceCollection {
public:
    using Instances = std::vector<boost::shared_ptr<ICIMInstance>>;

    /// Adds an instance, unless one of the same path text is there.
    void Insert(const std::string& path, boost::shared_ptr<ICIMInstance> instance);
    void Erase(const std::string& path);
    void Clear();

    /// The instance of a path: one of the same text, else one whose path names the same object (class and
    /// key names in any case, keys in any order, with or without host and namespace). Empty when there is
    /// none or the path is malformed.
    boost::shared_ptr<ICIMInstance> Find(const std::string& path) const;

    /// All instances in the order of their path texts.
    Instances InPathOrder() const;

private:
    using ByPath = std::map<std::string, boost::shared_ptr<ICIMInstance>>;

    void IndexByObject() const;
    void ForgetIndex();

    ByPath instances_;

    // Instances by the canonical form of their paths; made when a path text is first not found, since
    // parsing every path costs more than most collections are ever asked for.
    mutable std::unordered_map<std::string, boost::shared_ptr<ICIMInstance>> byObject_;
    mutable bool isIndexed_ = false;
};

}  // namespace NQELVSK20
