#pragma once

#include <boost/shared_ptr.hpp>

#include "vskcore/TMinimalNamespace.h"

namespace NQELVSK20 {

/// The common-schema namespace, the step between a plug-in's namespace and the union namespace. It holds no
/// classes of its own.
class TQELCNamespace : public TMinimalNamespace {
public:
    using TMinimalNamespace::operator=;

    /// The namespace above this one, set by SetUpcallNamespace; empty until then.
    boost::shared_ptr<ICIMNamespace> GetUpcallNamespace() const { return UpcallNamespace(); }
};

}  // namespace NQELVSK20
