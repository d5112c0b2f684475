#pragma once

#include <boost/shared_ptr.hpp>

#include "inmem/TInmemInstance.h"

namespace NQELVSK20 {

/// An instance read from a remote server. It keeps its values in memory; committing it puts it among the
/// collected instances of its TCimHTTPClass, which it shares.
class TCimHTTPInstance : public TInmemInstance {
public:
    /// An empty instance of `cimClass`. The second argument is the host's and unused.
    TCimHTTPInstance(boost::shared_ptr<ICIMClass> cimClass, boost::shared_ptr<ICIMClass> unused);
    ~TCimHTTPInstance() override;

    /// Throws what Validate throws; nothing is stored then. An instance of the same path that is there stays.
    void Commit(TContext context) override;
    TCIMReference GetInstanceReference(TContext context) override;

    using TInmemInstance::operator=;
};

}  // namespace NQELVSK20
