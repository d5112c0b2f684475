#include "cimom/operations/CimAnswer.h"

#include "cimom/common/Xml.h"

namespace cimom {

void appendMessageStart(std::string& out, const CimRequest& request) {
    out +=
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE";
    appendAttribute(out, "ID", request.messageId);
    out += " PROTOCOLVERSION=\"1.0\"><SIMPLERSP>";
    out += request.intrinsic ? "<IMETHODRESPONSE" : "<METHODRESPONSE";
    appendAttribute(out, "NAME", request.operation);
    out += ">";
}

void appendMessageEnd(std::string& out, const CimRequest& request) {
    out += request.intrinsic ? "</IMETHODRESPONSE>" : "</METHODRESPONSE>";
    out += "</SIMPLERSP></MESSAGE></CIM>\n";
}

std::string errorMessage(const CimRequest& request, int code, const std::string& description) {
    std::string message;
    appendMessageStart(message, request);
    message += "<ERROR";
    appendAttribute(message, "CODE", std::to_string(code));
    appendAttribute(message, "DESCRIPTION", description);
    message += "></ERROR>";
    appendMessageEnd(message, request);
    return message;
}

}  // namespace cimom
