#include "cimxml/wire/PathWriter.h"

#include <string_view>

#include "cimxml/common/Utf8.h"
#include "cimxml/wire/XmlText.h"

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
    out_ += "<LOCALNAMESPACEPATH>";
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('/', start), text.size());
        if (end > start) {
            out_ += "<NAMESPACE";
            appendAttribute(out_, "NAME", std::string_view(text).substr(start, end - start));
            out_ += "/>";
        }
        start = end + 1;
    }
    out_ += "</LOCALNAMESPACEPATH>";
}

void PathWriter::writeClassName(const CIMName& className) {
    out_ += "<CLASSNAME";
    appendAttribute(out_, "NAME", className.getString());
    out_ += "/>";
}

void PathWriter::writeInstanceName(const CIMObjectPath& path) {
    out_ += "<INSTANCENAME";
    appendAttribute(out_, "CLASSNAME", path.getClassName().getString());
    out_ += ">";
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i) {
        writeKey(keys[i]);
    }
    out_ += "</INSTANCENAME>";
}

void PathWriter::writeKey(const CIMKeyBinding& key) {
    out_ += "<KEYBINDING";
    appendAttribute(out_, "NAME", key.getName().getString());
    out_ += ">";
    if (key.getType() == CIMKeyBinding::REFERENCE) {
        writeReference(CIMObjectPath(key.getValue()));
    } else {
        out_ += "<KEYVALUE";
        appendAttribute(out_, "VALUETYPE", std::string_view(valueType(key.getType())));
        out_ += ">";
        appendEscaped(out_, toUtf8(key.getValue()));
        out_ += "</KEYVALUE>";
    }
    out_ += "</KEYBINDING>";
}

void PathWriter::writeLocalPath(const CIMNamespaceName& nameSpace, const CIMObjectPath& path) {
    const bool isInstance = path.getKeyBindings().size() > 0;
    out_ += isInstance ? "<LOCALINSTANCEPATH>" : "<LOCALCLASSPATH>";
    writeNamespace(nameSpace);
    isInstance ? writeInstanceName(path) : writeClassName(path.getClassName());
    out_ += isInstance ? "</LOCALINSTANCEPATH>" : "</LOCALCLASSPATH>";
}

void PathWriter::writeReference(const CIMObjectPath& path) {
    const bool local = path.getHost().size() == 0;
    const bool bare = local && path.getNameSpace().isNull();
    out_ += "<VALUE.REFERENCE>";
    if (bare) {
        writeInstanceName(path);
    } else {
        out_ += local ? "<LOCALINSTANCEPATH>" : "<INSTANCEPATH><NAMESPACEPATH><HOST>";
        if (!local) {
            appendEscaped(out_, toUtf8(path.getHost()));
            out_ += "</HOST>";
        }
        writeNamespace(path.getNameSpace());
        out_ += local ? "" : "</NAMESPACEPATH>";
        writeInstanceName(path);
        out_ += local ? "</LOCALINSTANCEPATH>" : "</INSTANCEPATH>";
    }
    out_ += "</VALUE.REFERENCE>";
}

}  // namespace cimxml
