#pragma once

#include <string>

namespace NQELVSK20 {

/// The name of the pseudo class at the top of every class tree. No server has a class of that name.
constexpr const char* kRootClassName = "<root>";

/// The name under which every class has the property that tells which node an instance came from, as declared
/// and as key.
constexpr const char* kNodeIdName = "NodeID";
constexpr const char* kNodeIdKey = "nodeid";

/// The key under which names are kept: `name` in lower case. An empty name is valid; one that is no CIM
/// identifier (DSP0004) is logged and thrown as status 25.
std::string NormalizeName(const std::string& name);

/// How names of elements compare: as their normalised forms do. The exception for a malformed name passes.
bool EqualByName(const std::string& left, const std::string& right);
bool LessByName(const std::string& left, const std::string& right);

}  // namespace NQELVSK20
