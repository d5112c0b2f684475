#pragma once

#include <string>

#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

// The operations that read instances (DSP0200), as RunIntrinsic.
void getInstance(const IntrinsicCall& call, std::string& out);
void enumerateInstances(const IntrinsicCall& call, std::string& out);
void enumerateInstanceNames(const IntrinsicCall& call, std::string& out);
void getProperty(const IntrinsicCall& call, std::string& out);

}  // namespace cimom
