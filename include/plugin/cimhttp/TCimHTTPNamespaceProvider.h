#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "cimhttp/Export.h"
#include "vskcore/INamespaceProvider.h"
#include "vskcore/TVSKStatusCode.h"

namespace NQELVSK20 {

/// The plug-in's entry point: the process's one provider of "cimhttp" namespaces.
///
/// The host calls Initialize once, from the thread that loads the plug-in, before anything else.
class CIMHTTP_EXPORT TCimHTTPNamespaceProvider : public INamespaceProvider {
public:
    /// The one object; lives until the process ends.
    static boost::shared_ptr<TCimHTTPNamespaceProvider> GetInstance();

    /// Registers the provider with the host's provider manager. Always success; what the manager throws
    /// passes.
    static TVSKStatusCode Initialize();

    TCimHTTPNamespaceProvider(const TCimHTTPNamespaceProvider&) : INamespaceProvider() {}
    TCimHTTPNamespaceProvider& operator=(const TCimHTTPNamespaceProvider&) { return *this; }
    ~TCimHTTPNamespaceProvider() override = default;

    const std::string& GetName(TContext context) const override;

    /// A new namespace of its own, initialised from the context, not connected. The caller owns it; its type
    /// is TCimHTTPNamespace, which says what the arguments mean and what is thrown.
    boost::shared_ptr<ICIMNamespace> AllocateNamespace(TContext context, bool replaceDuplicates,
                                                       std::string name) const override;
    EType GetType(TContext context) const override;
    bool IsIndicationsSupported(TContext context) const override;

private:
    TCimHTTPNamespaceProvider() = default;
};

}  // namespace NQELVSK20
