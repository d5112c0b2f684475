#include "tools/snapshot/ObjectXml.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/Char16.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <type_traits>

#include "tools/machine/RemoteText.h"
#include "tools/snapshot/XmlText.h"

namespace tool {

namespace {

using namespace Pegasus;

std::string elementNameOf(const std::string& plain, CIMType type, bool isArray) {
    if (type == CIMTYPE_REFERENCE) {
        return plain + (isArray ? ".REFARRAY" : ".REFERENCE");
    }
    return plain + (isArray ? ".ARRAY" : "");
}

bool isEmbedded(CIMType type) {
    return type == CIMTYPE_OBJECT || type == CIMTYPE_INSTANCE;
}

const char* flagText(bool flag) {
    return flag ? "true" : "false";
}

// The shortest digits that bring the same number back, with the point that DSP0201 wants.
template <typename REAL>
std::string realText(REAL number) {
    if (std::isnan(number)) {
        return "NaN";
    }
    if (std::isinf(number)) {
        return number < 0 ? "-INF" : "INF";
    }
    std::string text = fmt::format("{}", number);
    if (text.find('.') == std::string::npos) {
        text.insert(std::min(text.find('e'), text.size()), ".0");
    }
    return text;
}

template <typename ITEM>
std::string itemText(const ITEM& item) {
    if constexpr (std::is_same_v<ITEM, Boolean>) {
        return item ? "TRUE" : "FALSE";
    } else if constexpr (std::is_floating_point_v<ITEM>) {
        return realText(item);
    } else if constexpr (std::is_integral_v<ITEM>) {
        return std::to_string(item);
    } else if constexpr (std::is_same_v<ITEM, Char16>) {
        return remoteText(String(&item, 1));
    } else if constexpr (std::is_same_v<ITEM, CIMDateTime>) {
        return remoteText(item.toString());
    } else {
        return remoteText(item);
    }
}

}  // namespace

void ObjectXml::writeClass(const CIMConstClass& definition) {
    begin("CLASS", definition.getClassName());
    if (!definition.getSuperClassName().isNull()) {
        appendXmlAttribute(out_, "SUPERCLASS", remoteText(definition.getSuperClassName()));
    }
    out_ += ">";
    writeQualifiers(definition);
    for (Uint32 i = 0; i < definition.getPropertyCount(); ++i) {
        writeProperty(definition.getProperty(i), true);
    }
    for (Uint32 i = 0; i < definition.getMethodCount(); ++i) {
        writeMethod(definition.getMethod(i));
    }
    end("CLASS");
}

void ObjectXml::writeInstance(const CIMConstInstance& instance, const Filter& filter) {
    out_ += "<INSTANCE";
    appendXmlAttribute(out_, "CLASSNAME", remoteText(instance.getClassName()));
    out_ += ">";
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        if (filter(property)) {
            writeProperty(property, false);
        }
    }
    end("INSTANCE");
}

void ObjectXml::writeProperty(const CIMConstProperty& property, bool withQualifiers) {
    const std::string element = elementNameOf("PROPERTY", property.getType(), property.isArray());
    begin(element, property.getName());
    writeType(property);
    if (property.getPropagated()) {
        appendXmlAttribute(out_, "PROPAGATED", flagText(true));
    }
    out_ += ">";
    if (withQualifiers) {
        writeQualifiers(property);
    }
    writeValue(property.getValue());
    end(element);
}

void ObjectXml::writeMethod(const CIMConstMethod& method) {
    begin("METHOD", method.getName());
    writeScalarType(method.getType());
    if (method.getPropagated()) {
        appendXmlAttribute(out_, "PROPAGATED", flagText(true));
    }
    out_ += ">";
    writeQualifiers(method);
    for (Uint32 i = 0; i < method.getParameterCount(); ++i) {
        writeParameter(method.getParameter(i));
    }
    end("METHOD");
}

void ObjectXml::writeParameter(const CIMConstParameter& parameter) {
    const std::string element = elementNameOf("PARAMETER", parameter.getType(), parameter.isArray());
    begin(element, parameter.getName());
    writeType(parameter);
    out_ += ">";
    writeQualifiers(parameter);
    end(element);
}

void ObjectXml::writeQualifier(const CIMConstQualifier& qualifier) {
    const CIMFlavor& flavor = qualifier.getFlavor();
    begin("QUALIFIER", qualifier.getName());
    writeScalarType(qualifier.getType());
    appendXmlAttribute(out_, "PROPAGATED", flagText(qualifier.getPropagated() != 0));
    appendXmlAttribute(out_, "OVERRIDABLE", flagText(flavor.hasFlavor(CIMFlavor::OVERRIDABLE)));
    appendXmlAttribute(out_, "TOSUBCLASS", flagText(flavor.hasFlavor(CIMFlavor::TOSUBCLASS)));
    appendXmlAttribute(out_, "TOINSTANCE", flagText(flavor.hasFlavor(CIMFlavor::TOINSTANCE)));
    appendXmlAttribute(out_, "TRANSLATABLE", flagText(flavor.hasFlavor(CIMFlavor::TRANSLATABLE)));
    out_ += ">";
    writeValue(qualifier.getValue());
    end("QUALIFIER");
}

template <typename OWNER>
void ObjectXml::writeQualifiers(const OWNER& owner) {
    for (Uint32 i = 0; i < owner.getQualifierCount(); ++i) {
        writeQualifier(owner.getQualifier(i));
    }
}

template <typename ELEMENT>
void ObjectXml::writeType(const ELEMENT& element) {
    if (element.getType() != CIMTYPE_REFERENCE) {
        writeScalarType(element.getType());
    } else if (!element.getReferenceClassName().isNull()) {
        appendXmlAttribute(out_, "REFERENCECLASS", remoteText(element.getReferenceClassName()));
    }
    if (element.getArraySize() > 0) {
        appendXmlAttribute(out_, "ARRAYSIZE", std::to_string(element.getArraySize()));
    }
}

void ObjectXml::writeScalarType(CIMType type) {
    appendXmlAttribute(out_, "TYPE", isEmbedded(type) ? "string" : cimTypeToString(type));
    if (isEmbedded(type)) {
        appendXmlAttribute(out_, "EmbeddedObject", type == CIMTYPE_OBJECT ? "object" : "instance");
    }
}

void ObjectXml::begin(const std::string& element, const CIMName& name) {
    out_.append("<").append(element);
    appendXmlAttribute(out_, "NAME", remoteText(name));
}

void ObjectXml::end(const std::string& element) {
    out_.append("</").append(element).append(">");
}

void ObjectXml::writeValue(const CIMValue& value) {
    if (value.isNull()) {
        return;
    }
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            return writeItems<Boolean>(value);
        case CIMTYPE_UINT8:
            return writeItems<Uint8>(value);
        case CIMTYPE_SINT8:
            return writeItems<Sint8>(value);
        case CIMTYPE_UINT16:
            return writeItems<Uint16>(value);
        case CIMTYPE_SINT16:
            return writeItems<Sint16>(value);
        case CIMTYPE_UINT32:
            return writeItems<Uint32>(value);
        case CIMTYPE_SINT32:
            return writeItems<Sint32>(value);
        case CIMTYPE_UINT64:
            return writeItems<Uint64>(value);
        case CIMTYPE_SINT64:
            return writeItems<Sint64>(value);
        case CIMTYPE_REAL32:
            return writeItems<Real32>(value);
        case CIMTYPE_REAL64:
            return writeItems<Real64>(value);
        case CIMTYPE_CHAR16:
            return writeItems<Char16>(value);
        case CIMTYPE_STRING:
            return writeItems<String>(value);
        case CIMTYPE_DATETIME:
            return writeItems<CIMDateTime>(value);
        case CIMTYPE_REFERENCE:
            return writeItems<CIMObjectPath>(value);
        case CIMTYPE_OBJECT:
            return writeItems<CIMObject>(value);
        case CIMTYPE_INSTANCE:
            return writeItems<CIMInstance>(value);
    }
}

template <typename ITEM>
void ObjectXml::writeItems(const CIMValue& value) {
    if (!value.isArray()) {
        ITEM item{};
        value.get(item);
        return writeItem(item);
    }
    const std::string element = std::is_same_v<ITEM, CIMObjectPath> ? "VALUE.REFARRAY" : "VALUE.ARRAY";
    Array<ITEM> items;
    value.get(items);
    out_.append("<").append(element).append(">");
    for (Uint32 i = 0; i < items.size(); ++i) {
        writeItem(items[i]);
    }
    end(element);
}

template <typename ITEM>
void ObjectXml::writeItem(const ITEM& item) {
    out_ += "<VALUE>";
    if constexpr (std::is_convertible_v<ITEM, CIMConstObject>) {
        appendXmlText(out_, embedded(item));
    } else {
        appendXmlText(out_, itemText(item));
    }
    out_ += "</VALUE>";
}

void ObjectXml::writeItem(const CIMObjectPath& path) {
    paths_.writeReference(path);
}

// Embedded objects are no instances of the namespace: nothing says which properties they may have.
std::string ObjectXml::embedded(const CIMConstObject& object) const {
    std::string text;
    if (object.isClass()) {
        ObjectXml(text, nameSpace_).writeClass(CIMConstClass(object));
    } else {
        ObjectXml(text, nameSpace_).writeInstance(CIMConstInstance(object), [](const CIMConstProperty&) {
            return true;
        });
    }
    return text;
}

}  // namespace tool
