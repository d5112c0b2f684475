#pragma once

#include <string>

#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

// The operations that make, change and take away instances (DSP0200), as RunIntrinsic. Any property may be
// changed but the keys, whatever its qualifier Write says.
void createInstance(const IntrinsicCall& call, std::string& out);
void modifyInstance(const IntrinsicCall& call, std::string& out);
void deleteInstance(const IntrinsicCall& call, std::string& out);
void setProperty(const IntrinsicCall& call, std::string& out);

}  // namespace cimom
