#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

#include <limits>

#include "cimxml/common/Numbers.h"
#include "cimxml/common/Utf8.h"

namespace Pegasus {

namespace {

CIMKeyBinding::Type keyType(CIMType type) {
    switch (type) {
        case CIMTYPE_BOOLEAN:
            return CIMKeyBinding::BOOLEAN;
        case CIMTYPE_CHAR16:
        case CIMTYPE_STRING:
        case CIMTYPE_DATETIME:
            return CIMKeyBinding::STRING;
        case CIMTYPE_REFERENCE:
            return CIMKeyBinding::REFERENCE;
        case CIMTYPE_OBJECT:
        case CIMTYPE_INSTANCE:
            throw TypeMismatchException();
        default:
            return CIMKeyBinding::NUMERIC;
    }
}

/// A null value of scalar boolean type where the text is no such number.
template <class T, class Parsed>
CIMValue toValue(const std::optional<Parsed>& number) {
    using Limits = std::numeric_limits<T>;
    if (!number) {
        return CIMValue();
    }
    if constexpr (std::numeric_limits<Parsed>::is_integer) {
        if (*number < Parsed{Limits::lowest()} || *number > Parsed{Limits::max()}) {
            return CIMValue();
        }
    }
    return CIMValue(static_cast<T>(*number));
}

CIMValue toBoolean(const String& text) {
    if (String::equalNoCase(text, "TRUE")) {
        return CIMValue(true);
    }
    return String::equalNoCase(text, "FALSE") ? CIMValue(false) : CIMValue();
}

/// The value of the given type that the key's text stands for; a null boolean
/// where it stands for none.
CIMValue toValue(const String& text, CIMType type) {
    switch (type) {
        case CIMTYPE_BOOLEAN:
            return toBoolean(text);
        case CIMTYPE_UINT8:
            return toValue<Uint8>(parseUnsigned(toUtf8(text)));
        case CIMTYPE_UINT16:
            return toValue<Uint16>(parseUnsigned(toUtf8(text)));
        case CIMTYPE_UINT32:
            return toValue<Uint32>(parseUnsigned(toUtf8(text)));
        case CIMTYPE_UINT64:
            return toValue<Uint64>(parseUnsigned(toUtf8(text)));
        case CIMTYPE_SINT8:
            return toValue<Sint8>(parseSigned(toUtf8(text)));
        case CIMTYPE_SINT16:
            return toValue<Sint16>(parseSigned(toUtf8(text)));
        case CIMTYPE_SINT32:
            return toValue<Sint32>(parseSigned(toUtf8(text)));
        case CIMTYPE_SINT64:
            return toValue<Sint64>(parseSigned(toUtf8(text)));
        case CIMTYPE_REAL32:
            return toValue<Real32>(parseReal(toUtf8(text)));
        case CIMTYPE_REAL64:
            return toValue<Real64>(parseReal(toUtf8(text)));
        case CIMTYPE_CHAR16:
            return CIMValue(text[0]);
        case CIMTYPE_STRING:
            return CIMValue(text);
        case CIMTYPE_DATETIME:
            return CIMValue(CIMDateTime(text));
        case CIMTYPE_REFERENCE:
            return CIMValue(CIMObjectPath(text));
        case CIMTYPE_OBJECT:
        case CIMTYPE_INSTANCE:
            break;
    }
    return CIMValue();
}

bool equalPaths(const String& x, const String& y) {
    try {
        return CIMObjectPath(x) == CIMObjectPath(y);
    } catch (const Exception&) {
        return x == y;
    }
}

bool equalNumbers(const String& x, const String& y) {
    const std::string left = toUtf8(x);
    const std::string right = toUtf8(y);
    if (const auto a = parseUnsigned(left), b = parseUnsigned(right); a && b) {
        return a == b;
    }
    if (const auto a = parseSigned(left), b = parseSigned(right); a && b) {
        return a == b;
    }
    return left == right;
}

}  // namespace

CIMKeyBinding::CIMKeyBinding(const CIMName& name, const String& value, Type type)
    : _name(name), _value(value), _type(type) {}

CIMKeyBinding::CIMKeyBinding(const CIMName& name, const CIMValue& value) : _name(name) {
    if (value.isArray()) {
        throw TypeMismatchException();
    }
    _type = keyType(value.getType());
    _value = value.toString();
}

Boolean CIMKeyBinding::equal(CIMValue value) {
    try {
        return !value.isArray() && !value.isNull() && _type == keyType(value.getType()) &&
               value.equal(toValue(_value, value.getType()));
    } catch (const Exception&) {
        return false;
    }
}

Boolean operator==(const CIMKeyBinding& x, const CIMKeyBinding& y) {
    if (x.getType() != y.getType() || !x.getName().equal(y.getName())) {
        return false;
    }
    switch (x.getType()) {
        case CIMKeyBinding::REFERENCE:
            return equalPaths(x.getValue(), y.getValue());
        case CIMKeyBinding::BOOLEAN:
            return String::equalNoCase(x.getValue(), y.getValue());
        case CIMKeyBinding::NUMERIC:
            return equalNumbers(x.getValue(), y.getValue());
        case CIMKeyBinding::STRING:
            break;
    }
    return x.getValue() == y.getValue();
}

}  // namespace Pegasus
