#pragma once

#include <pugixml.hpp>
#include <string>

#include "cimom/common/CimError.h"

namespace cimom {

/// What a value has to be, and what to say when it is something else.
struct ValueRule {
    std::string what;  ///< Begins the message, e.g. "the parameter 'Count'".
    std::string type;  ///< CIM type, "reference" for references.
    bool isArray = false;
    CimStatus otherwise = CimStatus::InvalidParameter;
};

/// A value element that a client sent, as this server writes it. Throws CimError when it is no value of the
/// type.
std::string checkedValue(const ValueRule& rule, pugi::xml_node value);

/// The VALUE element of a scalar.
std::string valueElement(const std::string& text);

}  // namespace cimom
