#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"

namespace tool {

/// An instance as it is shown: its node apart from its properties. Shares the instance's properties.
struct InstanceView {
    explicit InstanceView(NQELVSK20::ICIMInstance& instance);

    /// A property's value; null when the instance has none of that name.
    const NQELVSK20::TCIMValue* value(const std::string& property) const;

    boost::shared_ptr<NQELVSK20::ICIMClass> cimClass;
    std::string path;
    std::string className;
    std::string node;  ///< The controller node that it came from: the property "NodeID"; empty when unknown.
    std::vector<boost::shared_ptr<NQELVSK20::ICIMProperty>> properties;  ///< All but "NodeID", by name.
};

}  // namespace tool
