#pragma once

#include <string>

#include "cimom/common/CimError.h"
#include "cimom/operations/CimRequest.h"

namespace cimom {

/// The message that answers a request; `appendResult(text)` appends what stands inside the IRETURNVALUE or
/// METHODRESPONSE element. The result goes straight into the message, since it can be very long.
template <typename AppendResult>
std::string successMessage(const CimRequest& request, const AppendResult& appendResult);

/// The message that answers a request with an ERROR element.
std::string errorMessage(const CimRequest& request, int code, const std::string& description);

/// Appends what stands before and after the content of the IMETHODRESPONSE or METHODRESPONSE element.
void appendMessageStart(std::string& out, const CimRequest& request);
void appendMessageEnd(std::string& out, const CimRequest& request);

template <typename AppendResult>
std::string successMessage(const CimRequest& request, const AppendResult& appendResult) {
    std::string message;
    appendMessageStart(message, request);
    message += request.intrinsic ? "<IRETURNVALUE>" : "";
    appendResult(message);
    message += request.intrinsic ? "</IRETURNVALUE>" : "";
    appendMessageEnd(message, request);
    return message;
}

}  // namespace cimom
