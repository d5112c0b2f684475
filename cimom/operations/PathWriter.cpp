#include "cimom/operations/PathWriter.h"

#include <sstream>

#include "cimom/common/Xml.h"

namespace cimom {
namespace {

void appendNameSpacePath(std::string& out, const CimRequest& request) {
    out += "<NAMESPACEPATH><HOST>";
    appendEscaped(out, request.host);
    out += "</HOST><LOCALNAMESPACEPATH>";
    std::istringstream parts(request.nameSpace);
    for (std::string part; std::getline(parts, part, '/');) {
        out += "<NAMESPACE";
        appendAttribute(out, "NAME", part);
        out += "></NAMESPACE>";
    }
    out += "</LOCALNAMESPACEPATH></NAMESPACEPATH>";
}

}  // namespace

void appendInstancePath(std::string& out, const CimRequest& request, const std::string& nameXml) {
    out += "<INSTANCEPATH>";
    appendNameSpacePath(out, request);
    out.append(nameXml).append("</INSTANCEPATH>");
}

void appendClassPath(std::string& out, const CimRequest& request, const std::string& className) {
    out += "<CLASSPATH>";
    appendNameSpacePath(out, request);
    out += "<CLASSNAME";
    appendAttribute(out, "NAME", className);
    out += "></CLASSNAME></CLASSPATH>";
}

}  // namespace cimom
