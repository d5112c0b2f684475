#include "tests/cimom/support/Requests.h"

#include <sstream>

namespace cimom::test {
namespace {

std::string nameSpaceXml(const std::string& nameSpace) {
    std::string xml = "<LOCALNAMESPACEPATH>";
    std::istringstream parts(nameSpace);
    for (std::string part; std::getline(parts, part, '/');) {
        xml += "<NAMESPACE NAME=\"" + part + "\"/>";
    }
    return xml + "</LOCALNAMESPACEPATH>";
}

std::string parametersXml(const std::string& element, const Arguments& arguments) {
    std::string xml;
    for (const auto& [name, value] : arguments) {
        xml += "<" + element + " NAME=\"" + name + "\">" + value + "</" + element + ">";
    }
    return xml;
}

}  // namespace

std::string classNameXml(const std::string& className) {
    return "<CLASSNAME NAME=\"" + className + "\"/>";
}

std::string valueXml(const std::string& text) {
    return "<VALUE>" + text + "</VALUE>";
}

std::string arrayXml(const std::vector<std::string>& texts) {
    std::string xml = "<VALUE.ARRAY>";
    for (const std::string& text : texts) {
        xml += valueXml(text);
    }
    return xml + "</VALUE.ARRAY>";
}

std::string keyXml(const std::string& name, const std::string& value, const std::string& valueType) {
    return "<KEYBINDING NAME=\"" + name + "\"><KEYVALUE VALUETYPE=\"" + valueType + "\">" + value +
           "</KEYVALUE></KEYBINDING>";
}

std::string instanceNameXml(const std::string& className, const std::string& keys) {
    return "<INSTANCENAME CLASSNAME=\"" + className + "\">" + keys + "</INSTANCENAME>";
}

std::string echoServiceXml(unsigned node) {
    return instanceNameXml("OMC_EchoService",
                           keyXml("SystemCreationClassName", "OMC_UnitaryComputerSystem") +
                               keyXml("SystemName", "node-" + std::to_string(node) + ".machine.example") +
                               keyXml("CreationClassName", "OMC_EchoService") + keyXml("Name", "echo"));
}

std::string message(const std::string& call) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"42\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>" +
           call + "</SIMPLEREQ></MESSAGE></CIM>";
}

std::string intrinsicMessage(const std::string& operation, const Arguments& arguments,
                             const std::string& nameSpace) {
    return message("<IMETHODCALL NAME=\"" + operation + "\">" + nameSpaceXml(nameSpace) +
                   parametersXml("IPARAMVALUE", arguments) + "</IMETHODCALL>");
}

std::string extrinsicMessage(const std::string& method, const std::string& path, const Arguments& arguments) {
    const std::string element =
        path.compare(0, 13, "<INSTANCENAME") == 0 ? "LOCALINSTANCEPATH" : "LOCALCLASSPATH";
    return message("<METHODCALL NAME=\"" + method + "\"><" + element + ">" + nameSpaceXml("root/cimv2") +
                   path + "</" + element + ">" + parametersXml("PARAMVALUE", arguments) + "</METHODCALL>");
}

std::string httpRequest(const std::string& method, const std::string& object, const std::string& body,
                        const std::string& fields) {
    return "POST /cimom HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/xml; charset=\"utf-8\"\r\n"
           "CIMOperation: MethodCall\r\nCIMMethod: " +
           method + "\r\nCIMObject: " + object + "\r\n" + fields +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::string intrinsicRequest(const std::string& operation, const Arguments& arguments,
                             const std::string& fields) {
    return httpRequest(operation, "root%2Fcimv2", intrinsicMessage(operation, arguments), fields);
}

}  // namespace cimom::test
