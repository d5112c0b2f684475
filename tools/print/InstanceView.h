#pragma once

#include <boost/shared_ptr.hpp>
#include <set>
#include <string>
#include <vector>

#include "tools/common/Names.h"
#include "tools/print/NullCells.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"

namespace tool {

/// An instance as it is shown: its node apart from its properties. Shares the instance's properties.
struct InstanceView {
    /// `nullCells` may be null: then values are shown as the plug-in delivered them.
    explicit InstanceView(NQELVSK20::ICIMInstance& instance, const NullCells* nullCells = nullptr);

    /// The value of one of its properties: a null one where the server had null.
    const NQELVSK20::TCIMValue& valueOf(const NQELVSK20::ICIMProperty& property) const;

    /// The same of the property of a name; null when the instance has none.
    const NQELVSK20::TCIMValue* value(const std::string& property) const;

    boost::shared_ptr<NQELVSK20::ICIMClass> cimClass;
    std::string path;
    std::string className;
    std::string node;  ///< The controller node that it came from: the property "NodeID"; empty when unknown.
    std::vector<boost::shared_ptr<NQELVSK20::ICIMProperty>> properties;  ///< All but "NodeID", by name.
    std::set<std::string, NameLess> nulls;                               ///< Those that the server had null.
};

}  // namespace tool
