#include "cimom/operations/CimRequest.h"

#include <string_view>

#include "cimom/common/CimError.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"
#include "cimom/operations/ProtocolError.h"

namespace cimom {
namespace {

[[noreturn]] void notValid(const std::string& why) {
    throw ProtocolError(400, "Bad Request", "request-not-valid", why);
}

pugi::xml_node requireChild(pugi::xml_node parent, const char* name) {
    const pugi::xml_node child = parent.child(name);
    if (!child) {
        notValid(std::string(parent.name()) + " without " + name);
    }
    return child;
}

std::string requireAttribute(pugi::xml_node element, const char* name) {
    const std::string value = element.attribute(name).value();
    if (value.empty()) {
        notValid(std::string(element.name()) + " without " + name);
    }
    return value;
}

/// Only the major number of a version counts.
void requireMajor(const std::string& version, char major, const char* cimError) {
    if (version.size() < 2 || version[0] != major || version[1] != '.') {
        throw ProtocolError(501, "Not Implemented", cimError, "version " + version + " is not supported");
    }
}

pugi::xml_node readEnvelope(const pugi::xml_document& document, CimRequest& request) {
    const pugi::xml_node cim = requireChild(document, "CIM");
    requireMajor(requireAttribute(cim, "CIMVERSION"), '2', "unsupported-cim-version");
    requireMajor(requireAttribute(cim, "DTDVERSION"), '2', "unsupported-dtd-version");
    const pugi::xml_node message = requireChild(cim, "MESSAGE");
    requireMajor(requireAttribute(message, "PROTOCOLVERSION"), '1', "unsupported-protocol-version");
    request.messageId = requireAttribute(message, "ID");
    if (message.child("MULTIREQ")) {
        throw ProtocolError(501, "Not Implemented", "multiple-requests-unsupported",
                            "several requests in one message are not supported");
    }
    return requireChild(message, "SIMPLEREQ");
}

std::string readNameSpace(pugi::xml_node path) {
    std::string name;
    for (const pugi::xml_node part : path.children("NAMESPACE")) {
        name.append(name.empty() ? "" : "/").append(requireAttribute(part, "NAME"));
    }
    if (name.empty()) {
        notValid("a namespace path without NAMESPACE");
    }
    return name;
}

std::string typeOf(pugi::xml_node argument) {
    const std::string type = argument.attribute("PARAMTYPE").value();
    return type.empty() ? argument.attribute("TYPE").value() : type;
}

void readArguments(pugi::xml_node call, const char* element, CimRequest& request) {
    for (const pugi::xml_node argument : call.children(element)) {
        request.arguments.push_back(
            {requireAttribute(argument, "NAME"), typeOf(argument), firstElement(argument)});
    }
}

void readIntrinsic(pugi::xml_node call, CimRequest& request) {
    request.operation = requireAttribute(call, "NAME");
    request.nameSpace = readNameSpace(requireChild(call, "LOCALNAMESPACEPATH"));
    readArguments(call, "IPARAMVALUE", request);
}

void readExtrinsic(pugi::xml_node call, CimRequest& request) {
    request.intrinsic = false;
    request.operation = requireAttribute(call, "NAME");
    const pugi::xml_node instance = call.child("LOCALINSTANCEPATH");
    const pugi::xml_node path = instance ? instance : requireChild(call, "LOCALCLASSPATH");
    request.nameSpace = readNameSpace(requireChild(path, "LOCALNAMESPACEPATH"));
    try {
        request.target = readObjectPath(path);
    } catch (const CimError& error) {
        notValid(error.what());
    }
    readArguments(call, "PARAMVALUE", request);
}

}  // namespace

std::string CimRequest::className() const {
    if (!intrinsic) {
        return target.className;
    }
    for (const CimArgument& argument : arguments) {
        const std::string_view kind = argument.value.name();
        if (sameName(argument.name, "ClassName") && kind == "CLASSNAME") {
            return argument.value.attribute("NAME").value();
        }
        if (kind == "INSTANCENAME" || kind == "INSTANCE") {
            return argument.value.attribute("CLASSNAME").value();
        }
        if (kind == "VALUE.NAMEDINSTANCE") {
            return argument.value.child("INSTANCENAME").attribute("CLASSNAME").value();
        }
        if (kind == "CLASS" || (kind == "CLASSNAME" && sameName(argument.name, "ObjectName"))) {
            return argument.value.attribute("NAME").value();
        }
    }
    return {};
}

CimRequest CimRequest::read(const std::string& body, pugi::xml_document& document) {
    if (const auto defect = parseXml(body, document)) {
        throw ProtocolError(400, "Bad Request", "request-not-well-formed",
                            "at byte " + std::to_string(defect->offset) + ": " + defect->what);
    }
    CimRequest request;
    const pugi::xml_node simple = readEnvelope(document, request);
    if (const pugi::xml_node call = simple.child("IMETHODCALL")) {
        readIntrinsic(call, request);
    } else {
        readExtrinsic(requireChild(simple, "METHODCALL"), request);
    }
    return request;
}

}  // namespace cimom
