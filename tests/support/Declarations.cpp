#include "tests/support/Declarations.h"

namespace NQELVSK20 {

std::string Declarations(std::initializer_list<std::string> objects) {
    std::string text = "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>\n";
    for (const std::string& object : objects) {
        text += "<VALUE.OBJECT>" + object + "</VALUE.OBJECT>\n";
    }
    return text + "</DECLGROUP></DECLARATION></CIM>\n";
}

std::string ClassXml(const std::string& name, const std::string& superclass, const std::string& members) {
    const std::string parent = superclass.empty() ? "" : " SUPERCLASS=\"" + superclass + "\"";
    return "<CLASS NAME=\"" + name + "\"" + parent + ">" + members + "</CLASS>";
}

std::string InstanceXml(const std::string& className, const std::string& properties) {
    return "<INSTANCE CLASSNAME=\"" + className + "\">" + properties + "</INSTANCE>";
}

std::string PropertyXml(const std::string& name, const std::string& type, const char* value) {
    const std::string content = value == nullptr ? "" : "<VALUE>" + std::string(value) + "</VALUE>";
    return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\">" + content + "</PROPERTY>";
}

std::string KeyXml(const std::string& name, const std::string& type) {
    return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\">" + QualifierXml("Key") + "</PROPERTY>";
}

std::string QualifierXml(const std::string& name) {
    return "<QUALIFIER NAME=\"" + name + "\" TYPE=\"boolean\"><VALUE>TRUE</VALUE></QUALIFIER>";
}

}  // namespace NQELVSK20
