#pragma once

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include "qelc/TQELCNamespace.h"
#include "union/TUnionNamespace.h"

namespace NQELVSK20 {

/// What a host puts behind a plug-in's namespace: its common-schema namespace, before an empty union
/// namespace.
inline boost::shared_ptr<ICIMNamespace> CommonNamespace() {
    auto common = boost::make_shared<TQELCNamespace>();
    common->SetUpcallNamespace(boost::make_shared<TUnionNamespace>(), {});
    return common;
}

}  // namespace NQELVSK20
