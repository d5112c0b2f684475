#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

#include <pugixml.hpp>
#include <string_view>

#include "cimxml/wire/Attributes.h"
#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads the elements that name classes and instances (DSP0201, naming elements).
class PathReader {
public:
    explicit PathReader(DecodeContext& context) : context_(context) {}

    /// Whether `node` is one of the six elements that `read` takes.
    static bool isPath(pugi::xml_node node);

    /// INSTANCENAME, LOCALINSTANCEPATH, INSTANCEPATH, CLASSNAME, LOCALCLASSPATH or CLASSPATH. Throws
    /// WireError BadXml.
    Pegasus::CIMObjectPath read(pugi::xml_node node);

    /// VALUE.REFERENCE, which holds one of the six.
    Pegasus::CIMObjectPath readReference(pugi::xml_node node);

    /// The name in an attribute. Throws WireError BadXml when it is missing or no CIM name.
    const Pegasus::CIMName& readName(const Attributes& node, const char* attributeName);

    /// As readName, with what is remembered about the name.
    KnownName& findName(const Attributes& node, const char* attributeName);

    /// As readName; the null name when the attribute is missing or empty.
    Pegasus::CIMName readOptionalName(const Attributes& node, const char* attributeName);

private:
    struct Place {
        Pegasus::String host;
        Pegasus::CIMNamespaceName nameSpace;
    };
    Place readNamespacePath(pugi::xml_node node);
    Pegasus::CIMNamespaceName readLocalNamespacePath(pugi::xml_node node);
    Pegasus::CIMObjectPath readObjectName(pugi::xml_node node, const Place& place);
    Pegasus::Array<Pegasus::CIMKeyBinding> readKeys(pugi::xml_node instanceName);
    Pegasus::CIMKeyBinding readKey(pugi::xml_node value, KnownName& name);
    Pegasus::CIMKeyBinding readKeyValue(pugi::xml_node value, KnownName& name);
    Pegasus::String readKeyText(std::string_view text, KnownName& name);

    DecodeContext& context_;
};

}  // namespace cimxml
