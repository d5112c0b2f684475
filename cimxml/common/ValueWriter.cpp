#include "cimxml/common/ValueWriter.h"

#include <cmath>

#include "cimxml/common/CIMValueRep.h"
#include "cimxml/common/ObjectWriter.h"
#include "cimxml/common/PathWriter.h"
#include "cimxml/common/Utf8.h"
#include "cimxml/common/ValueText.h"

namespace cimxml {

using namespace Pegasus;

namespace {

std::string xmlText(Boolean value) {
    std::string text;
    appendBoolean(text, value);
    return text;
}

template <typename Number>
std::enable_if_t<std::is_integral_v<Number>, std::string> xmlText(Number value) {
    return std::to_string(value);
}

/// As many digits as bring the same number back; what is no number by the names that DSP0201 gives it.
template <typename Number>
std::enable_if_t<std::is_floating_point_v<Number>, std::string> xmlText(Number value) {
    if (std::isnan(value)) {
        return "NaN";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-INF" : "INF";
    }
    std::string text;
    appendReal(text, value, std::is_same_v<Number, Real32> ? kReal32Digits : kReal64Digits);
    return text;
}

std::string xmlText(const String& value) {
    return toUtf8(value);
}

std::string xmlText(const CIMDateTime& value) {
    return toUtf8(value.toString());
}

/// Appends the elements of a value's content.
struct ContentWriter {
    XmlOutput& out;

    void operator()(const std::monostate&) const {}

    void operator()(const CIMObjectPath& path) const { PathWriter(out).writeReference(path); }

    template <typename T>
    void operator()(const Array<T>& items) const {
        const char* name = std::is_same_v<T, CIMObjectPath> ? "VALUE.REFARRAY>" : "VALUE.ARRAY>";
        out.append("<");
        out.line(name);
        for (Uint32 i = 0; i < items.size(); ++i) {
            (*this)(items[i]);
        }
        out.append("</");
        out.line(name);
    }

    template <typename T>
    void operator()(const T& item) const {
        out.append("<VALUE>");
        writeText(item);
        out.line("</VALUE>");
    }

private:
    template <typename T>
    void writeText(const T& item) const {
        if constexpr (std::is_convertible_v<T, CIMConstObject>) {
            std::string text;
            ObjectWriter(XmlOutput(text, out.layout())).write(item);
            out.text(text);
        } else {
            out.text(xmlText(item));
        }
    }

    // A blank alone stays one, as in OpenPegasus.
    void writeText(const Char16& item) const { out.escaped(toUtf8(String(&item, 1))); }
};

}  // namespace

void ValueWriter::write(const CIMValue& value) {
    ValueAccess::visit(value, ContentWriter{out_});
}

void ValueWriter::writeType(const char* typeAttribute, CIMType type) {
    const bool isEmbedded = type == CIMTYPE_OBJECT || type == CIMTYPE_INSTANCE;
    out_.attribute(typeAttribute, isEmbedded ? "string" : cimTypeToString(type));
    if (isEmbedded) {
        out_.attribute("EmbeddedObject", cimTypeToString(type));
    }
    if (isEmbedded && out_.isPrinted()) {
        out_.attribute("EMBEDDEDOBJECT", cimTypeToString(type));
    }
}

}  // namespace cimxml
