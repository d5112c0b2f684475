#pragma once

#include <boost/shared_ptr.hpp>

namespace NQELVSK20 {

class INamespaceProvider;

/// The process's one provider of this plug-in, which namespaces hand out. Stands here, below the namespaces,
/// and is defined by the provider, above them.
boost::shared_ptr<INamespaceProvider> PluginProvider();

}  // namespace NQELVSK20
