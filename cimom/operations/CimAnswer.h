#pragma once

#include <string>

#include "cimom/common/CimError.h"
#include "cimom/operations/CimRequest.h"

namespace cimom {

/// What the answer to an intrinsic operation has besides what stands inside its IRETURNVALUE element.
struct AnswerExtras {
    bool returnsValue = true;  ///< False: the operation has no return value, and its answer no IRETURNVALUE.
    std::string parameters;    ///< The PARAMVALUE elements of output parameters.
};

/// The message that answers a request; `appendResult(text)` appends what stands inside the IRETURNVALUE or
/// METHODRESPONSE element, and returns AnswerExtras. The result goes straight into the message, since it can
/// be very long.
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
    const std::size_t start = message.size();
    message += request.intrinsic ? "<IRETURNVALUE>" : "";
    const AnswerExtras extras = appendResult(message);
    if (extras.returnsValue) {
        message += request.intrinsic ? "</IRETURNVALUE>" : "";
    } else {
        message.resize(start);
    }
    message += extras.parameters;
    appendMessageEnd(message, request);
    return message;
}

}  // namespace cimom
