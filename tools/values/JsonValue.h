#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "vskcore/TCIMValue.h"

namespace tool {

/// A value in JSON (RFC 8259): integers exactly, reals in their shortest form, booleans, arrays, null. The
/// rest is text, and so are the reals that JSON has no number for: "NaN", "INF" and "-INF".
nlohmann::ordered_json jsonValue(const NQELVSK20::TCIMValue& value);

/// The number of a node as it is shown; null for one that is unknown.
nlohmann::ordered_json jsonNode(const std::string& node);

/// JSON as text: indented by `indent` blanks a level, or on one line when it is negative. What is no UTF-8 is
/// replaced, and what nobody would see is escaped (withoutHidden). With `ascii` nothing but ASCII is written,
/// which is safe for a terminal.
std::string jsonText(const nlohmann::ordered_json& json, int indent, bool ascii);

}  // namespace tool
