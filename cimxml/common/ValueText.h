#pragma once

#include <Pegasus/Common/Config.h>

#include <string>

namespace Pegasus {

/// "TRUE" or "FALSE".
void appendBoolean(std::string& out, bool value);

/// Scientific notation with `digits` digits after the point, in any locale.
void appendReal(std::string& out, Real64 value, int digits);

constexpr int kReal32Digits = 7;
constexpr int kReal64Digits = 16;

}  // namespace Pegasus
