#include "cimxml/common/PathWriter.h"

#include "cimxml/common/Utf8.h"

namespace cimxml {

using namespace Pegasus;

namespace {

const char* valueType(CIMKeyBinding::Type type) {
    switch (type) {
        case CIMKeyBinding::BOOLEAN:
            return "boolean";
        case CIMKeyBinding::NUMERIC:
            return "numeric";
        default:
            return "string";
    }
}

}  // namespace

void PathWriter::writeNamespace(const CIMNamespaceName& nameSpace) {
    const std::string text = toUtf8(nameSpace.getString());
    out_.line("<LOCALNAMESPACEPATH>");
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('/', start), text.size());
        out_.append("<NAMESPACE");
        out_.attribute("NAME", std::string_view(text).substr(start, end - start));
        out_.line("/>");
        start = end + 1;
    }
    out_.line("</LOCALNAMESPACEPATH>");
}

void PathWriter::writeClassName(const CIMName& className) {
    out_.append("<CLASSNAME");
    out_.attribute("NAME", className.getString());
    out_.line("/>");
}

void PathWriter::writeInstanceName(const CIMObjectPath& path) {
    out_.append("<INSTANCENAME");
    out_.attribute("CLASSNAME", path.getClassName().getString());
    out_.line(">");
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i) {
        writeKey(keys[i]);
    }
    out_.line("</INSTANCENAME>");
}

void PathWriter::writeKey(const CIMKeyBinding& key) {
    out_.append("<KEYBINDING");
    out_.attribute("NAME", key.getName().getString());
    out_.line(">");
    if (key.getType() == CIMKeyBinding::REFERENCE) {
        writeReference(CIMObjectPath(key.getValue()));
    } else {
        out_.append("<KEYVALUE");
        out_.attribute("VALUETYPE", valueType(key.getType()));
        out_.append(">");
        out_.text(key.getValue());
        out_.line("</KEYVALUE>");
    }
    out_.line("</KEYBINDING>");
}

void PathWriter::writeLocalPath(const CIMNamespaceName& nameSpace, const CIMObjectPath& path) {
    const bool isInstance = path.getKeyBindings().size() > 0;
    out_.line(isInstance ? "<LOCALINSTANCEPATH>" : "<LOCALCLASSPATH>");
    writeNamespace(nameSpace);
    isInstance ? writeInstanceName(path) : writeClassName(path.getClassName());
    out_.line(isInstance ? "</LOCALINSTANCEPATH>" : "</LOCALCLASSPATH>");
}

void PathWriter::writeReference(const CIMObjectPath& path) {
    out_.line("<VALUE.REFERENCE>");
    if (path.getHost().size() > 0) {
        out_.line("<INSTANCEPATH>");
        out_.line("<NAMESPACEPATH>");
        out_.append("<HOST>");
        out_.text(path.getHost());
        out_.line("</HOST>");
        writeNamespace(path.getNameSpace());
        out_.line("</NAMESPACEPATH>");
        writeInstanceName(path);
        out_.line("</INSTANCEPATH>");
    } else if (!path.getNameSpace().isNull()) {
        out_.line("<LOCALINSTANCEPATH>");
        writeNamespace(path.getNameSpace());
        writeInstanceName(path);
        out_.line("</LOCALINSTANCEPATH>");
    } else {
        writeInstanceName(path);
    }
    out_.line("</VALUE.REFERENCE>");
}

}  // namespace cimxml
