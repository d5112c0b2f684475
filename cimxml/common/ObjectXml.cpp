#include "cimxml/common/ObjectXml.h"

#include "cimxml/common/Utf8.h"
#include "cimxml/common/ValueText.h"

namespace Pegasus {

namespace {

void appendCharacter(std::string& out, char c) {
    switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\'':
            out += "&apos;";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
                out += "&#" + std::to_string(int{c}) + ";";
            } else {
                out.push_back(c);
            }
    }
}

void appendAttribute(std::string& out, const char* name, const String& value) {
    out += name;
    out += "=\"";
    appendUtf8(out, value);
    out += '"';
}

void appendTypeAttribute(std::string& out, CIMType type) {
    out += "TYPE=\"";
    out += cimTypeToString(type);
    out += '"';
}

void appendArraySize(std::string& out, Uint32 size) {
    if (size != 0) {
        out += " ARRAYSIZE=\"" + std::to_string(size) + "\"";
    }
}

/// CLASSORIGIN and PROPAGATED of a property or method.
template <class Element>
void appendOrigin(std::string& out, const Element& element) {
    if (!element.getClassOrigin().isNull()) {
        appendAttribute(out, " CLASSORIGIN", element.getClassOrigin().getString());
    }
    if (element.getPropagated()) {
        out += " PROPAGATED=\"true\"";
    }
}

void appendQualifierElement(std::string& out, const CIMConstQualifier& qualifier) {
    appendAttribute(out, "<QUALIFIER NAME", qualifier.getName().getString());
    out += ' ';
    appendTypeAttribute(out, qualifier.getType());
    if (qualifier.getPropagated()) {
        out += " PROPAGATED=\"true\"";
    }
    if (!qualifier.getFlavor().hasFlavor(CIMFlavor::OVERRIDABLE)) {
        out += " OVERRIDABLE=\"false\"";
    }
    if (!qualifier.getFlavor().hasFlavor(CIMFlavor::TOSUBCLASS)) {
        out += " TOSUBCLASS=\"false\"";
    }
    if (qualifier.getFlavor().hasFlavor(CIMFlavor::TRANSLATABLE)) {
        out += " TRANSLATABLE=\"true\"";
    }
    out += ">\n";
    appendValueElement(out, qualifier.getValue());
    out += "</QUALIFIER>\n";
}

template <class Element>
void appendQualifiers(std::string& out, const Element& element) {
    for (Uint32 i = 0; i < element.getQualifierCount(); ++i) {
        appendQualifierElement(out, element.getQualifier(i));
    }
}

/// Appends one value, without its element.
struct ItemAppender {
    std::string& out;

    void operator()(Boolean x) const { appendBoolean(out, x); }
    void operator()(Real32 x) const { appendReal(out, Real64{x}, kReal32Digits); }
    void operator()(Real64 x) const { appendReal(out, x, kReal64Digits); }
    void operator()(const Char16& x) const {
        std::string character;
        appendUtf8(character, x);
        for (const char c : character) {
            appendCharacter(out, c);
        }
    }
    void operator()(const String& x) const { appendEscapedXml(out, x); }
    void operator()(const CIMDateTime& x) const { appendUtf8(out, x.toString()); }
    void operator()(const CIMObjectPath& x) const { appendValueReferenceElement(out, x); }
    void operator()(const CIMConstObject& x) const { appendEscapedXml(out, x.toString()); }

    template <class Integer>
    std::enable_if_t<std::is_integral_v<Integer>> operator()(Integer x) const {
        out += std::to_string(x);
    }
};

template <class T>
void appendItems(std::string& out, const CIMValue& value, const char* open, const char* close) {
    Array<T> items;
    value.get(items);
    for (Uint32 i = 0; i < items.size(); ++i) {
        out += open;
        ItemAppender{out}(std::as_const(items)[i]);
        out += close;
    }
}

template <class T>
void appendTyped(std::string& out, const CIMValue& value) {
    if (value.isArray()) {
        out += "<VALUE.ARRAY>\n";
        appendItems<T>(out, value, "<VALUE>", "</VALUE>\n");
        out += "</VALUE.ARRAY>\n";
    } else {
        T item{};
        value.get(item);
        out += "<VALUE>";
        ItemAppender{out}(item);
        out += "</VALUE>\n";
    }
}

void appendReferences(std::string& out, const CIMValue& value) {
    if (value.isArray()) {
        out += "<VALUE.REFARRAY>\n";
        appendItems<CIMObjectPath>(out, value, "", "");
        out += "</VALUE.REFARRAY>\n";
    } else {
        CIMObjectPath path;
        value.get(path);
        appendValueReferenceElement(out, path);
    }
}

/// Whether the value, or the array's first element, is an embedded instance.
bool holdsInstance(const CIMValue& value) {
    if (!value.isArray()) {
        CIMObject object;
        value.get(object);
        return object.isInstance();
    }
    Array<CIMObject> objects;
    value.get(objects);
    return objects.size() > 0 && std::as_const(objects)[0].isInstance();
}

/// TYPE, and what tells embedded objects from the strings they travel as.
/// Embedded classes are told by a qualifier: see needsObjectQualifier().
void appendPropertyType(std::string& out, const CIMValue& value) {
    if (value.getType() == CIMTYPE_OBJECT) {
        out += " TYPE=\"string\"";
        if (holdsInstance(value)) {
            out += " EmbeddedObject=\"object\" EMBEDDEDOBJECT=\"object\"";
        }
    } else if (value.getType() == CIMTYPE_INSTANCE) {
        out += " TYPE=\"string\"";
        if (!value.isArray() || value.getArraySize() > 0) {
            out += " EmbeddedObject=\"instance\" EMBEDDEDOBJECT=\"instance\"";
        }
    } else {
        out += ' ';
        appendTypeAttribute(out, value.getType());
    }
}

const CIMName& embeddedObjectName() {
    static const CIMName name("EmbeddedObject");
    return name;
}

bool needsObjectQualifier(const CIMConstProperty& property) {
    return property.getType() == CIMTYPE_OBJECT && !holdsInstance(property.getValue()) &&
           property.findQualifier(embeddedObjectName()) == PEG_NOT_FOUND;
}

void appendPropertyContent(std::string& out, const CIMConstProperty& property) {
    out += ">\n";
    appendQualifiers(out, property);
    if (needsObjectQualifier(property)) {
        appendQualifierElement(out, CIMConstQualifier(embeddedObjectName(), CIMValue(true)));
    }
    appendValueElement(out, property.getValue());
}

void appendPropertyElement(std::string& out, const CIMConstProperty& property) {
    const CIMValue& value = property.getValue();
    const String& name = property.getName().getString();
    if (value.isArray()) {
        appendAttribute(out, "<PROPERTY.ARRAY NAME", name);
        out += ' ';
        appendPropertyType(out, value);
        appendArraySize(out, property.getArraySize());
        appendOrigin(out, property);
        appendPropertyContent(out, property);
        out += "</PROPERTY.ARRAY>\n";
    } else if (value.getType() == CIMTYPE_REFERENCE) {
        appendAttribute(out, "<PROPERTY.REFERENCE NAME", name);
        out += ' ';
        if (!property.getReferenceClassName().isNull()) {
            appendAttribute(out, " REFERENCECLASS", property.getReferenceClassName().getString());
        }
        appendOrigin(out, property);
        appendPropertyContent(out, property);
        out += "</PROPERTY.REFERENCE>\n";
    } else {
        appendAttribute(out, "<PROPERTY NAME", name);
        out += ' ';
        appendOrigin(out, property);
        appendPropertyType(out, value);
        appendPropertyContent(out, property);
        out += "</PROPERTY>\n";
    }
}

template <class Element>
void appendProperties(std::string& out, const Element& element) {
    for (Uint32 i = 0; i < element.getPropertyCount(); ++i) {
        appendPropertyElement(out, element.getProperty(i));
    }
}

void appendParameterElement(std::string& out, const CIMConstParameter& parameter) {
    const bool isReference = parameter.getType() == CIMTYPE_REFERENCE;
    const std::string kind =
        parameter.isArray() ? (isReference ? ".REFARRAY" : ".ARRAY") : (isReference ? ".REFERENCE" : "");
    const std::string tag = "PARAMETER" + kind;
    appendAttribute(out, ("<" + tag + " NAME").c_str(), parameter.getName().getString());
    if (isReference) {
        appendAttribute(out, " REFERENCECLASS", parameter.getReferenceClassName().getString());
    } else {
        out += ' ';
        appendTypeAttribute(out, parameter.getType());
    }
    appendArraySize(out, parameter.getArraySize());
    out += ">\n";
    appendQualifiers(out, parameter);
    out += "</" + tag + ">\n";
}

void appendMethodElement(std::string& out, const CIMConstMethod& method) {
    appendAttribute(out, "<METHOD NAME", method.getName().getString());
    out += ' ';
    appendTypeAttribute(out, method.getType());
    appendOrigin(out, method);
    out += ">\n";
    appendQualifiers(out, method);
    for (Uint32 i = 0; i < method.getParameterCount(); ++i) {
        appendParameterElement(out, method.getParameter(i));
    }
    out += "</METHOD>\n";
}

void appendClassElement(std::string& out, const CIMConstClass& cimClass) {
    appendAttribute(out, "<CLASS NAME", cimClass.getClassName().getString());
    out += ' ';
    if (!cimClass.getSuperClassName().isNull()) {
        appendAttribute(out, " SUPERCLASS", cimClass.getSuperClassName().getString());
        out += ' ';
    }
    out += ">\n";
    appendQualifiers(out, cimClass);
    appendProperties(out, cimClass);
    for (Uint32 i = 0; i < cimClass.getMethodCount(); ++i) {
        appendMethodElement(out, cimClass.getMethod(i));
    }
    out += "</CLASS>\n";
}

void appendInstanceElement(std::string& out, const CIMConstObject& instance) {
    appendAttribute(out, "<INSTANCE CLASSNAME", instance.getClassName().getString());
    out += " >\n";
    appendQualifiers(out, instance);
    appendProperties(out, instance);
    out += "</INSTANCE>\n";
}

const char* keyTypeName(CIMKeyBinding::Type type) {
    switch (type) {
        case CIMKeyBinding::BOOLEAN:
            return "boolean";
        case CIMKeyBinding::NUMERIC:
            return "numeric";
        case CIMKeyBinding::STRING:
        case CIMKeyBinding::REFERENCE:
            break;
    }
    return "string";
}

void appendKeyBindingElement(std::string& out, const CIMKeyBinding& key) {
    appendAttribute(out, "<KEYBINDING NAME", key.getName().getString());
    out += ">\n";
    if (key.getType() == CIMKeyBinding::REFERENCE) {
        appendValueReferenceElement(out, CIMObjectPath(key.getValue()));
    } else {
        out += "<KEYVALUE VALUETYPE=\"";
        out += keyTypeName(key.getType());
        out += "\">";
        appendEscapedXml(out, key.getValue());
        out += "</KEYVALUE>\n";
    }
    out += "</KEYBINDING>\n";
}

void appendLocalNameSpacePathElement(std::string& out, const CIMNamespaceName& nameSpace) {
    const std::string text = toUtf8(nameSpace.getString());
    out += "<LOCALNAMESPACEPATH>\n";
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('/', begin), text.size());
        out += "<NAMESPACE NAME=\"" + text.substr(begin, end - begin) + "\"/>\n";
        begin = end + 1;
    }
    out += "</LOCALNAMESPACEPATH>\n";
}

void appendNameSpacePathElement(std::string& out, const CIMObjectPath& path) {
    out += "<NAMESPACEPATH>\n<HOST>";
    appendUtf8(out, path.getHost());
    out += "</HOST>\n";
    appendLocalNameSpacePathElement(out, path.getNameSpace());
    out += "</NAMESPACEPATH>\n";
}

}  // namespace

void appendEscapedXml(std::string& out, const String& text) {
    const std::string utf8 = toUtf8(text);
    bool isAfterBlank = true;  // parsers may drop blanks at the start, at the end, and after another
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if (utf8[i] == ' ' && (isAfterBlank || i + 1 == utf8.size())) {
            out += "&#32;";
            isAfterBlank = false;
        } else {
            appendCharacter(out, utf8[i]);
            isAfterBlank = utf8[i] == ' ';
        }
    }
}

void appendValueElement(std::string& out, const CIMValue& value) {
    if (value.isNull()) {
        return;
    }
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            return appendTyped<Boolean>(out, value);
        case CIMTYPE_UINT8:
            return appendTyped<Uint8>(out, value);
        case CIMTYPE_SINT8:
            return appendTyped<Sint8>(out, value);
        case CIMTYPE_UINT16:
            return appendTyped<Uint16>(out, value);
        case CIMTYPE_SINT16:
            return appendTyped<Sint16>(out, value);
        case CIMTYPE_UINT32:
            return appendTyped<Uint32>(out, value);
        case CIMTYPE_SINT32:
            return appendTyped<Sint32>(out, value);
        case CIMTYPE_UINT64:
            return appendTyped<Uint64>(out, value);
        case CIMTYPE_SINT64:
            return appendTyped<Sint64>(out, value);
        case CIMTYPE_REAL32:
            return appendTyped<Real32>(out, value);
        case CIMTYPE_REAL64:
            return appendTyped<Real64>(out, value);
        case CIMTYPE_CHAR16:
            return appendTyped<Char16>(out, value);
        case CIMTYPE_STRING:
            return appendTyped<String>(out, value);
        case CIMTYPE_DATETIME:
            return appendTyped<CIMDateTime>(out, value);
        case CIMTYPE_REFERENCE:
            return appendReferences(out, value);
        case CIMTYPE_OBJECT:
            return appendTyped<CIMObject>(out, value);
        case CIMTYPE_INSTANCE:
            return appendTyped<CIMInstance>(out, value);
    }
}

void appendInstanceNameElement(std::string& out, const CIMObjectPath& instanceName) {
    appendAttribute(out, "<INSTANCENAME CLASSNAME", instanceName.getClassName().getString());
    out += ">\n";
    const Array<CIMKeyBinding>& keys = instanceName.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i) {
        appendKeyBindingElement(out, keys[i]);
    }
    out += "</INSTANCENAME>\n";
}

void appendValueReferenceElement(std::string& out, const CIMObjectPath& reference) {
    out += "<VALUE.REFERENCE>\n";
    if (reference.getHost().size() > 0) {
        out += "<INSTANCEPATH>\n";
        appendNameSpacePathElement(out, reference);
        appendInstanceNameElement(out, reference);
        out += "</INSTANCEPATH>\n";
    } else if (!reference.getNameSpace().isNull()) {
        out += "<LOCALINSTANCEPATH>\n";
        appendLocalNameSpacePathElement(out, reference.getNameSpace());
        appendInstanceNameElement(out, reference);
        out += "</LOCALINSTANCEPATH>\n";
    } else {
        appendInstanceNameElement(out, reference);
    }
    out += "</VALUE.REFERENCE>\n";
}

void appendObjectElement(std::string& out, const CIMConstObject& object) {
    if (object.isClass()) {
        appendClassElement(out, CIMConstClass(object));
    } else if (object.isInstance()) {
        appendInstanceElement(out, object);
    }
}

}  // namespace Pegasus
