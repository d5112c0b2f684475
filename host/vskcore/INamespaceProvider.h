#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/TContext.h"

namespace NQELVSK20 {

class ICIMNamespace;

/// A plug-in's entry point: allocates namespaces. Operations stand in the slot order that the host calls.
class INamespaceProvider {
public:
    enum EType { eUnknownProvider = 0, eInmemoryProvider = 1, eRemoteProvider = 2 };

    virtual ~INamespaceProvider() = default;
    virtual const std::string& GetName(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMNamespace> AllocateNamespace(TContext context, bool replaceDuplicates,
                                                               std::string name) const = 0;
    virtual EType GetType(TContext context) const = 0;
    virtual bool IsIndicationsSupported(TContext context) const = 0;
};

}  // namespace NQELVSK20
