#include "tools/snapshot/PathXml.h"

#include <algorithm>

#include "tools/common/Names.h"
#include "tools/machine/RemoteText.h"
#include "tools/snapshot/XmlText.h"

namespace tool {

namespace {

using Pegasus::CIMKeyBinding;

const char* valueTypeOf(CIMKeyBinding::Type type) {
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

void PathXml::writeNamespace(const std::string& nameSpace) {
    out_ += "<LOCALNAMESPACEPATH>";
    for (std::size_t start = 0; start < nameSpace.size();) {
        const std::size_t end = std::min(nameSpace.find('/', start), nameSpace.size());
        out_ += "<NAMESPACE";
        appendXmlAttribute(out_, "NAME", nameSpace.substr(start, end - start));
        out_ += "/>";
        start = end + 1;
    }
    out_ += "</LOCALNAMESPACEPATH>";
}

void PathXml::writeName(const Pegasus::CIMName& className, const Pegasus::CIMObjectPath& path) {
    out_ += "<INSTANCENAME";
    appendXmlAttribute(out_, "CLASSNAME", remoteText(className));
    out_ += ">";
    const Pegasus::Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Pegasus::Uint32 i = 0; i < keys.size(); ++i) {
        writeKey(keys[i]);
    }
    out_ += "</INSTANCENAME>";
}

void PathXml::writeKey(const CIMKeyBinding& key) {
    out_ += "<KEYBINDING";
    appendXmlAttribute(out_, "NAME", remoteText(key.getName()));
    out_ += ">";
    if (key.getType() == CIMKeyBinding::REFERENCE) {
        writeReference(Pegasus::CIMObjectPath(key.getValue()));
    } else {
        out_ += "<KEYVALUE";
        appendXmlAttribute(out_, "VALUETYPE", valueTypeOf(key.getType()));
        out_ += ">";
        appendXmlText(out_, remoteText(key.getValue()));
        out_ += "</KEYVALUE>";
    }
    out_ += "</KEYBINDING>";
}

void PathXml::writeReference(const Pegasus::CIMObjectPath& path) {
    const std::string nameSpace = remoteText(path.getNameSpace().getString());
    const bool isElsewhere = !nameSpace.empty() && !sameName(nameSpace, nameSpace_);
    out_ += "<VALUE.REFERENCE>";
    if (isElsewhere) {
        out_ += "<LOCALINSTANCEPATH>";
        writeNamespace(nameSpace);
    }
    writeName(path.getClassName(), path);
    out_ += isElsewhere ? "</LOCALINSTANCEPATH></VALUE.REFERENCE>" : "</VALUE.REFERENCE>";
}

}  // namespace tool
