#pragma once

#include <string>

#include "cimom/CimError.h"
#include "cimom/CimRequest.h"

namespace cimom {

/// The message that answers a request: `result` inside the IMETHODRESPONSE or METHODRESPONSE element.
std::string successMessage(const CimRequest& request, const std::string& result);

/// The message that answers a request with an ERROR element.
std::string errorMessage(const CimRequest& request, int code, const std::string& description);

}  // namespace cimom
