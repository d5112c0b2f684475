#include "cimxml/wire/ValueWriter.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <charconv>
#include <cmath>

#include "cimxml/common/Utf8.h"
#include "cimxml/wire/ObjectWriter.h"
#include "cimxml/wire/PathWriter.h"
#include "cimxml/wire/XmlText.h"

namespace cimxml {

using namespace Pegasus;

namespace {

std::string toText(Boolean value) {
    return value ? "TRUE" : "FALSE";
}

template <typename Number>
std::enable_if_t<std::is_integral_v<Number>, std::string> toText(Number value) {
    return std::to_string(value);
}

/// As many digits as bring the same number back.
template <typename Number>
std::enable_if_t<std::is_floating_point_v<Number>, std::string> toText(Number value) {
    if (std::isnan(value)) {
        return "NaN";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-INF" : "INF";
    }
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific,
                                   std::is_same_v<Number, Real32> ? 7 : 16);
    return std::string(text, end.ptr);
}

std::string toText(const Char16& value) {
    return toUtf8(String(&value, 1));
}

std::string toText(const String& value) {
    return toUtf8(value);
}

std::string toText(const CIMDateTime& value) {
    return toUtf8(value.toString());
}

std::string toText(const CIMObject& value) {
    std::string text;
    ObjectWriter(text).write(value);
    return text;
}

std::string toText(const CIMInstance& value) {
    return toText(CIMObject(value));
}

}  // namespace

template <typename T>
void ValueWriter::writeElement(const T& element) {
    out_ += "<VALUE>";
    appendEscaped(out_, toText(element));
    out_ += "</VALUE>";
}

template <>
void ValueWriter::writeElement(const CIMObjectPath& element) {
    PathWriter(out_).writeReference(element);
}

template <typename T>
void ValueWriter::writeElements(const CIMValue& value) {
    if (!value.isArray()) {
        T element;
        value.get(element);
        writeElement(element);
        return;
    }
    Array<T> elements;
    value.get(elements);
    const char* name = value.getType() == CIMTYPE_REFERENCE ? "VALUE.REFARRAY>" : "VALUE.ARRAY>";
    out_.append("<").append(name);
    for (Uint32 i = 0; i < elements.size(); ++i) {
        writeElement(elements[i]);
    }
    out_.append("</").append(name);
}

void ValueWriter::write(const CIMValue& value) {
    if (value.isNull()) {
        return;
    }
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            writeElements<Boolean>(value);
            break;
        case CIMTYPE_UINT8:
            writeElements<Uint8>(value);
            break;
        case CIMTYPE_SINT8:
            writeElements<Sint8>(value);
            break;
        case CIMTYPE_UINT16:
            writeElements<Uint16>(value);
            break;
        case CIMTYPE_SINT16:
            writeElements<Sint16>(value);
            break;
        case CIMTYPE_UINT32:
            writeElements<Uint32>(value);
            break;
        case CIMTYPE_SINT32:
            writeElements<Sint32>(value);
            break;
        case CIMTYPE_UINT64:
            writeElements<Uint64>(value);
            break;
        case CIMTYPE_SINT64:
            writeElements<Sint64>(value);
            break;
        case CIMTYPE_REAL32:
            writeElements<Real32>(value);
            break;
        case CIMTYPE_REAL64:
            writeElements<Real64>(value);
            break;
        case CIMTYPE_CHAR16:
            writeElements<Char16>(value);
            break;
        case CIMTYPE_STRING:
            writeElements<String>(value);
            break;
        case CIMTYPE_DATETIME:
            writeElements<CIMDateTime>(value);
            break;
        case CIMTYPE_REFERENCE:
            writeElements<CIMObjectPath>(value);
            break;
        case CIMTYPE_OBJECT:
            writeElements<CIMObject>(value);
            break;
        case CIMTYPE_INSTANCE:
            writeElements<CIMInstance>(value);
            break;
    }
}

void ValueWriter::writeType(const char* typeAttribute, CIMType type) {
    const bool embedded = type == CIMTYPE_OBJECT || type == CIMTYPE_INSTANCE;
    appendAttribute(out_, typeAttribute, std::string_view(embedded ? "string" : cimTypeToString(type)));
    if (embedded) {
        appendAttribute(out_, "EmbeddedObject",
                        std::string_view(type == CIMTYPE_OBJECT ? "object" : "instance"));
    }
}

}  // namespace cimxml
