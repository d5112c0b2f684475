#include "cimom/CimAnswer.h"

#include "cimom/Xml.h"

namespace cimom {
namespace {

std::string envelope(const CimRequest& request, const std::string& open, const std::string& content,
                     const std::string& close) {
    std::string message;
    message.reserve(content.size() + 512);
    message +=
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE";
    appendAttribute(message, "ID", request.messageId);
    message += " PROTOCOLVERSION=\"1.0\"><SIMPLERSP>";
    message += request.intrinsic ? "<IMETHODRESPONSE" : "<METHODRESPONSE";
    appendAttribute(message, "NAME", request.operation);
    message.append(">").append(open).append(content).append(close);
    message += request.intrinsic ? "</IMETHODRESPONSE>" : "</METHODRESPONSE>";
    message += "</SIMPLERSP></MESSAGE></CIM>\n";
    return message;
}

}  // namespace

std::string successMessage(const CimRequest& request, const std::string& result) {
    return request.intrinsic ? envelope(request, "<IRETURNVALUE>", result, "</IRETURNVALUE>")
                             : envelope(request, "", result, "");
}

std::string errorMessage(const CimRequest& request, int code, const std::string& description) {
    std::string error = "<ERROR";
    appendAttribute(error, "CODE", std::to_string(code));
    appendAttribute(error, "DESCRIPTION", description);
    return envelope(request, error + ">", "", "</ERROR>");
}

}  // namespace cimom
