#pragma once

#include <string>

namespace tool {

/// True when the text is a CIM datetime (DSP0004): 25 characters, `yyyymmddhhmmss.mmmmmmsutc` for a point in
/// time or `ddddddddhhmmss.mmmmmm:000` for an interval, with asterisks for what is not known.
bool isDateTime(const std::string& text);

}  // namespace tool
