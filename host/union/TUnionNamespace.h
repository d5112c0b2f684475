#pragma once

#include "vskcore/TMinimalNamespace.h"

namespace NQELVSK20 {

/// The host's union namespace, which stands behind all plug-ins' namespaces: a schema that they see in
/// common. This host's is empty.
class TUnionNamespace : public TMinimalNamespace {
public:
    using TMinimalNamespace::operator=;
};

}  // namespace NQELVSK20
