#include "cimxml/common/ObjectWriter.h"

#include "cimxml/common/ValueWriter.h"

namespace cimxml {

using namespace Pegasus;

namespace {

/// Name of the element for something that may be an array, a reference or neither.
std::string elementName(const char* plain, CIMType type, bool array) {
    if (type == CIMTYPE_REFERENCE) {
        return std::string(plain) + (array ? ".REFARRAY" : ".REFERENCE");
    }
    return std::string(plain) + (array ? ".ARRAY" : "");
}

/// Whether the value is an embedded instance, or an array that begins with one.
bool holdsInstance(const CIMValue& value) {
    Array<CIMObject> objects(1);
    value.isArray() ? value.get(objects) : value.get(objects[0]);
    return objects.size() > 0 && objects[0].isInstance();
}

/// Whether OpenPegasus prints a property with this value as one of strings. The types of embedded instances
/// say more than those of objects do, which may be classes.
bool looksLikeText(const CIMValue& value) {
    if (value.getType() == CIMTYPE_INSTANCE) {
        return value.isArray() && (value.isNull() || value.getArraySize() == 0);
    }
    return value.getType() == CIMTYPE_OBJECT && !holdsInstance(value);
}

}  // namespace

void ObjectWriter::write(const CIMConstObject& object) {
    if (object.isUninitialized()) {
        return;
    }
    object.isClass() ? writeClass(CIMConstClass(object)) : writeInstance(CIMConstInstance(object));
}

void ObjectWriter::writeInstance(const CIMConstInstance& instance) {
    beginElement("INSTANCE", "CLASSNAME", instance.getClassName());
    out_.blank();
    out_.line(">");
    writeQualifiers(instance);
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        writeProperty(instance.getProperty(i));
    }
    endElement("INSTANCE");
}

void ObjectWriter::writeClass(const CIMConstClass& cimClass) {
    beginElement("CLASS", "NAME", cimClass.getClassName());
    out_.blank();
    if (!cimClass.getSuperClassName().isNull()) {
        writeName("SUPERCLASS", cimClass.getSuperClassName());
        out_.blank();
    }
    out_.line(">");
    writeQualifiers(cimClass);
    for (Uint32 i = 0; i < cimClass.getPropertyCount(); ++i) {
        writeProperty(cimClass.getProperty(i));
    }
    for (Uint32 i = 0; i < cimClass.getMethodCount(); ++i) {
        writeMethod(cimClass.getMethod(i));
    }
    endElement("CLASS");
}

void ObjectWriter::writeProperty(const CIMConstProperty& property) {
    const std::string element = elementName("PROPERTY", property.getType(), property.isArray());
    const bool isText = out_.isPrinted() && looksLikeText(property.getValue());
    // OpenPegasus prints the type last, but not of an array or a reference.
    const bool typeLast = out_.isPrinted() && element == "PROPERTY";
    beginElement(element, "NAME", property.getName());
    out_.blank();
    if (typeLast) {
        writeOrigin(property);
    }
    writeType(property, isText ? CIMTYPE_STRING : property.getType());
    if (!typeLast) {
        writeOrigin(property);
    }
    out_.line(">");
    writeQualifiers(property);
    if (isText && property.getType() == CIMTYPE_OBJECT) {
        writeObjectQualifier(property);
    }
    ValueWriter(out_).write(property.getValue());
    endElement(element);
}

void ObjectWriter::writeMethod(const CIMConstMethod& method) {
    beginElement("METHOD", "NAME", method.getName());
    ValueWriter(out_).writeType("TYPE", method.getType());
    writeOrigin(method);
    out_.line(">");
    writeQualifiers(method);
    for (Uint32 i = 0; i < method.getParameterCount(); ++i) {
        writeParameter(method.getParameter(i));
    }
    endElement("METHOD");
}

void ObjectWriter::writeParameter(const CIMConstParameter& parameter) {
    const std::string element = elementName("PARAMETER", parameter.getType(), parameter.isArray());
    beginElement(element, "NAME", parameter.getName());
    writeType(parameter, parameter.getType());
    out_.line(">");
    writeQualifiers(parameter);
    endElement(element);
}

void ObjectWriter::writeQualifier(const CIMConstQualifier& qualifier) {
    const CIMFlavor& flavor = qualifier.getFlavor();
    beginElement("QUALIFIER", "NAME", qualifier.getName());
    ValueWriter(out_).writeType("TYPE", qualifier.getType());
    writeUnlessDefault("PROPAGATED", qualifier.getPropagated() != 0, false);
    writeUnlessDefault("OVERRIDABLE", flavor.hasFlavor(CIMFlavor::OVERRIDABLE), true);
    writeUnlessDefault("TOSUBCLASS", flavor.hasFlavor(CIMFlavor::TOSUBCLASS), true);
    writeUnlessDefault("TRANSLATABLE", flavor.hasFlavor(CIMFlavor::TRANSLATABLE), false);
    out_.line(">");
    ValueWriter(out_).write(qualifier.getValue());
    endElement("QUALIFIER");
}

void ObjectWriter::writeObjectQualifier(const CIMConstProperty& property) {
    const CIMName name("EmbeddedObject");
    if (property.findQualifier(name) == PEG_NOT_FOUND) {
        writeQualifier(CIMQualifier(name, CIMValue(true)));
    }
}

template <typename Owner>
void ObjectWriter::writeQualifiers(const Owner& owner) {
    for (Uint32 i = 0; i < owner.getQualifierCount(); ++i) {
        writeQualifier(owner.getQualifier(i));
    }
}

template <typename Element>
void ObjectWriter::writeOrigin(const Element& element) {
    writeName("CLASSORIGIN", element.getClassOrigin());
    writeUnlessDefault("PROPAGATED", element.getPropagated(), false);
}

template <typename Element>
void ObjectWriter::writeType(const Element& element, CIMType type) {
    if (type == CIMTYPE_REFERENCE) {
        writeName("REFERENCECLASS", element.getReferenceClassName());
    } else {
        ValueWriter(out_).writeType("TYPE", type);
    }
    if (element.getArraySize() > 0) {
        out_.attribute("ARRAYSIZE", std::to_string(element.getArraySize()));
    }
}

void ObjectWriter::beginElement(const std::string& element, const char* nameAttribute, const CIMName& name) {
    out_.append("<" + element);
    writeName(nameAttribute, name);
}

void ObjectWriter::endElement(const std::string& element) {
    out_.line("</" + element + ">");
}

void ObjectWriter::writeName(const char* attribute, const CIMName& name) {
    if (!name.isNull()) {
        out_.attribute(attribute, name.getString());
    }
}

void ObjectWriter::writeUnlessDefault(const char* attribute, bool value, bool defaultValue) {
    if (value != defaultValue) {
        out_.attribute(attribute, value ? "true" : "false");
    }
}

}  // namespace cimxml
