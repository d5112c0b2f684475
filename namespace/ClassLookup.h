#pragma once

#include <boost/shared_ptr.hpp>
#include <set>
#include <string>

#include "vskcore/TContext.h"

namespace Pegasus {
class CIMClass;
class CIMNamespaceName;
}  // namespace Pegasus

namespace NQELVSK20 {

class ClassCache;
class ICIMClass;
class ICIMNamespace;
class Nodes;
class TCimHTTPClass;
class TUnionNamespace;

/// How a namespace answers for a class: from its cache, from the host's union namespace, or from the nodes.
class ClassLookup {
public:
    /// Most levels that a class hierarchy may have; DMTF's deepest has about a dozen.
    static constexpr std::size_t kMaxLevels = 200;

    /// Where a lookup looks and what it stamps classes with. All of it is the namespace's and outlives the
    /// lookup.
    struct Sources {
        ClassCache& cache;
        Nodes& nodes;
        const boost::shared_ptr<Pegasus::CIMNamespaceName>& remoteName;  // empty before Init
        const boost::shared_ptr<ICIMNamespace>& upcall;
        const std::string& pluginName;
    };

    explicit ClassLookup(const Sources& sources) : sources_(sources) {}
    ClassLookup(const ClassLookup&) = delete;
    ClassLookup& operator=(const ClassLookup&) = delete;

    /// The class of a name; empty when there is none. `self` is the namespace that answers: superclasses are
    /// asked of it, and classes allocated by it. Throws what the host refuses.
    boost::shared_ptr<ICIMClass> Find(const boost::shared_ptr<ICIMNamespace>& self, const std::string& name,
                                      const TContext& context);

    /// Whether a class that is being allocated comes from the union namespace, which then fills it. Not one
    /// whose copy failed in the lookup under way. `where` is the place that asks, for the log.
    bool IsCopiedFromUnion(const std::string& name, const std::string& where) const;

private:
    boost::shared_ptr<TUnionNamespace> UnionNamespaceBehind(const std::string& where) const;
    boost::shared_ptr<ICIMClass> TakeFromUnion(const boost::shared_ptr<ICIMNamespace>& self,
                                               const std::string& name, const TContext& context);
    boost::shared_ptr<TCimHTTPClass> CopyFromUnion(const boost::shared_ptr<ICIMNamespace>& self,
                                                   const std::string& name, const TContext& context);
    void GiveUpCopy(const std::string& key);
    boost::shared_ptr<ICIMClass> Fetch(const boost::shared_ptr<ICIMNamespace>& self, const std::string& name,
                                       const TContext& context);
    Pegasus::CIMClass FetchDefinition(const std::string& name, const TContext& context) const;
    boost::shared_ptr<ICIMClass> Build(const boost::shared_ptr<ICIMNamespace>& self, const std::string& name,
                                       const TContext& context);
    void Stamp(ICIMNamespace& self, TCimHTTPClass& cimClass) const;

    Sources sources_;
    std::set<std::string> pending_;  // keys of the classes being fetched: a class and its descendants
    std::set<std::string>
        givenUp_;  // keys of the classes whose copy from the union namespace failed just now
};

/// A time-out in milliseconds: the default, or the context's value under `key` when that is longer.
unsigned int RaisedTimeout(const TContext& context, const std::string& key, unsigned int defaultTimeout);

}  // namespace NQELVSK20
