#pragma once

#include <string>

#include "cimom/operations/CimRequest.h"

namespace cimom {

/// Appends the INSTANCEPATH of an instance of the request's namespace; `nameXml` is its INSTANCENAME.
void appendInstancePath(std::string& out, const CimRequest& request, const std::string& nameXml);

/// Appends the CLASSPATH of a class of the request's namespace.
void appendClassPath(std::string& out, const CimRequest& request, const std::string& className);

}  // namespace cimom
