#include "cimxml/wire/ObjectWriter.h"

#include <string_view>

#include "cimxml/wire/ValueWriter.h"
#include "cimxml/wire/XmlText.h"

namespace cimxml {

using namespace Pegasus;

namespace {

void appendName(std::string& out, const char* attributeName, const CIMName& name) {
    if (!name.isNull()) {
        appendAttribute(out, attributeName, name.getString());
    }
}

void appendTrue(std::string& out, const char* attributeName, bool value) {
    if (value) {
        appendAttribute(out, attributeName, std::string_view("true"));
    }
}

void appendFalse(std::string& out, const char* attributeName, bool value) {
    if (!value) {
        appendAttribute(out, attributeName, std::string_view("false"));
    }
}

void appendArraySize(std::string& out, Uint32 size) {
    if (size > 0) {
        appendAttribute(out, "ARRAYSIZE", std::string_view(std::to_string(size)));
    }
}

/// Name of the element for something that may be an array, a reference or neither.
std::string elementName(const char* plain, CIMType type, bool array) {
    if (type == CIMTYPE_REFERENCE) {
        return std::string(plain) + (array ? ".REFARRAY" : ".REFERENCE");
    }
    return std::string(plain) + (array ? ".ARRAY" : "");
}

}  // namespace

void ObjectWriter::write(const CIMConstObject& object) {
    if (object.isUninitialized()) {
        return;
    }
    object.isClass() ? writeClass(CIMConstClass(object)) : writeInstance(CIMConstInstance(object));
}

void ObjectWriter::writeInstance(const CIMConstInstance& instance) {
    out_ += "<INSTANCE";
    appendName(out_, "CLASSNAME", instance.getClassName());
    out_ += ">";
    writeQualifiers(instance);
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        writeProperty(instance.getProperty(i));
    }
    out_ += "</INSTANCE>";
}

void ObjectWriter::writeClass(const CIMConstClass& cimClass) {
    out_ += "<CLASS";
    appendName(out_, "NAME", cimClass.getClassName());
    appendName(out_, "SUPERCLASS", cimClass.getSuperClassName());
    out_ += ">";
    writeQualifiers(cimClass);
    for (Uint32 i = 0; i < cimClass.getPropertyCount(); ++i) {
        writeProperty(cimClass.getProperty(i));
    }
    for (Uint32 i = 0; i < cimClass.getMethodCount(); ++i) {
        writeMethod(cimClass.getMethod(i));
    }
    out_ += "</CLASS>";
}

void ObjectWriter::writeProperty(const CIMConstProperty& property) {
    const CIMType type = property.getType();
    // There is no element for an array of references as a property: DSP0201 knows such arrays as parameters.
    const std::string element =
        elementName("PROPERTY", type, property.isArray() && type != CIMTYPE_REFERENCE);
    out_ += "<" + element;
    appendName(out_, "NAME", property.getName());
    if (type == CIMTYPE_REFERENCE) {
        appendName(out_, "REFERENCECLASS", property.getReferenceClassName());
    } else {
        ValueWriter(out_).writeType("TYPE", type);
        appendArraySize(out_, property.getArraySize());
    }
    writeOrigin(property);
    out_ += ">";
    writeQualifiers(property);
    ValueWriter(out_).write(property.getValue());
    out_ += "</" + element + ">";
}

void ObjectWriter::writeMethod(const CIMConstMethod& method) {
    out_ += "<METHOD";
    appendName(out_, "NAME", method.getName());
    ValueWriter(out_).writeType("TYPE", method.getType());
    writeOrigin(method);
    out_ += ">";
    writeQualifiers(method);
    for (Uint32 i = 0; i < method.getParameterCount(); ++i) {
        writeParameter(method.getParameter(i));
    }
    out_ += "</METHOD>";
}

void ObjectWriter::writeParameter(const CIMConstParameter& parameter) {
    const std::string element = elementName("PARAMETER", parameter.getType(), parameter.isArray());
    out_ += "<" + element;
    appendName(out_, "NAME", parameter.getName());
    if (parameter.getType() == CIMTYPE_REFERENCE) {
        appendName(out_, "REFERENCECLASS", parameter.getReferenceClassName());
    } else {
        ValueWriter(out_).writeType("TYPE", parameter.getType());
    }
    appendArraySize(out_, parameter.getArraySize());
    out_ += ">";
    writeQualifiers(parameter);
    out_ += "</" + element + ">";
}

void ObjectWriter::writeQualifier(const CIMConstQualifier& qualifier) {
    const CIMFlavor& flavor = qualifier.getFlavor();
    out_ += "<QUALIFIER";
    appendName(out_, "NAME", qualifier.getName());
    ValueWriter(out_).writeType("TYPE", qualifier.getType());
    appendTrue(out_, "PROPAGATED", qualifier.getPropagated() != 0);
    appendFalse(out_, "OVERRIDABLE", flavor.hasFlavor(CIMFlavor::OVERRIDABLE));
    appendFalse(out_, "TOSUBCLASS", flavor.hasFlavor(CIMFlavor::TOSUBCLASS));
    appendTrue(out_, "TRANSLATABLE", flavor.hasFlavor(CIMFlavor::TRANSLATABLE));
    out_ += ">";
    ValueWriter(out_).write(qualifier.getValue());
    out_ += "</QUALIFIER>";
}

template <typename Owner>
void ObjectWriter::writeQualifiers(const Owner& owner) {
    for (Uint32 i = 0; i < owner.getQualifierCount(); ++i) {
        writeQualifier(owner.getQualifier(i));
    }
}

template <typename Element>
void ObjectWriter::writeOrigin(const Element& element) {
    appendName(out_, "CLASSORIGIN", element.getClassOrigin());
    appendTrue(out_, "PROPAGATED", element.getPropagated());
}

}  // namespace cimxml
