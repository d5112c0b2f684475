#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "tools/common/Names.h"
#include "tools/values/PropertySource.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"

namespace tool {

/// An instance's properties by name. Shares them with the instance.
class PropertyIndex {
public:
    explicit PropertyIndex(const NQELVSK20::ICIMInstance& instance);

    /// A property's value; null when the instance has none of that name.
    const NQELVSK20::TCIMValue* value(const std::string& property) const;

    /// The text of a scalar property; empty when it is null or not there.
    std::string text(const std::string& property) const;

    /// Lives as long as the index.
    PropertySource source() const;

private:
    std::map<std::string, boost::shared_ptr<NQELVSK20::ICIMProperty>, NameLess> properties_;
};

}  // namespace tool
