#pragma once

#include <string>

#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

// The operations on qualifier declarations (DSP0200), as RunIntrinsic. Classes that are there already keep
// the flavors with which they were declared.
void getQualifier(const IntrinsicCall& call, std::string& out);
void enumerateQualifiers(const IntrinsicCall& call, std::string& out);
void setQualifier(const IntrinsicCall& call, std::string& out);
void deleteQualifier(const IntrinsicCall& call, std::string& out);

}  // namespace cimom
