#pragma once

#include <string>

#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

// The operations that open, continue and close pulled enumerations (DSP0200), as RunIntrinsic. Filters are
// for OpenQueryInstances only, and no enumeration goes on after an error.
void openEnumerateInstances(const IntrinsicCall& call, std::string& out);
void openEnumerateInstancePaths(const IntrinsicCall& call, std::string& out);
void openReferenceInstances(const IntrinsicCall& call, std::string& out);
void openReferenceInstancePaths(const IntrinsicCall& call, std::string& out);
void openAssociatorInstances(const IntrinsicCall& call, std::string& out);
void openAssociatorInstancePaths(const IntrinsicCall& call, std::string& out);
void openQueryInstances(const IntrinsicCall& call, std::string& out);
void pullInstancesWithPath(const IntrinsicCall& call, std::string& out);
void pullInstancePaths(const IntrinsicCall& call, std::string& out);
void pullInstances(const IntrinsicCall& call, std::string& out);
void closeEnumeration(const IntrinsicCall& call, std::string& out);

}  // namespace cimom
