#include "convert/ToRemote.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Char16.h>

#include <iterator>
#include <string>
#include <vector>

#include "connection/PegText.h"

namespace NQELVSK20 {
namespace {

constexpr unsigned char kDecimal = 10;

/// The content of a host value as a remote scalar. Numbers and booleans go through the host's conversion to
/// exactly that type.
template <class T>
T ToRemote(const TCIMValue& value) {
    return value.operator T();
}

template <>
Pegasus::Char16 ToRemote(const TCIMValue& value) {
    return Pegasus::Char16(value.operator unsigned short());
}

template <>
Pegasus::String ToRemote(const TCIMValue& value) {
    return FromText(value.ToString(kDecimal));
}

template <>
Pegasus::CIMDateTime ToRemote(const TCIMValue& value) {
    return Pegasus::CIMDateTime(FromText(value.ToString(kDecimal)));
}

template <>
Pegasus::CIMObjectPath ToRemote(const TCIMValue& value) {
    return Pegasus::CIMObjectPath(FromText(value.ToString(kDecimal)));
}

template <class T>
T ElementToRemote(const TCIMValue& element) {
    return ToRemote<T>(element);
}

// Unlike a scalar, a string inside an array is taken as it is, not in its printed form.
template <>
Pegasus::String ElementToRemote(const TCIMValue& element) {
    return FromText(element.operator std::string());
}

template <class T>
void SetScalar(const TCIMValue& value, Pegasus::CIMValue& out) {
    out.set(ToRemote<T>(value));
}

template <class T>
void SetArray(const TCIMValue& value, Pegasus::CIMValue& out) {
    const std::vector<TCIMValue>& elements = value;
    Pegasus::Array<T> remote;
    remote.reserveCapacity(static_cast<Pegasus::Uint32>(elements.size()));
    for (const TCIMValue& element : elements) {
        remote.append(ElementToRemote<T>(element));
    }
    out.set(remote);
}

using Setter = void (*)(const TCIMValue& value, Pegasus::CIMValue& out);

struct Conversion {
    Setter scalar;
    Setter array;
};

void LeaveUntouched(const TCIMValue&, Pegasus::CIMValue&) {}

template <class T>
constexpr Conversion kConversionOf = {SetScalar<T>, SetArray<T>};

/// Indexed by the host's scalar type code.
constexpr Conversion kConversions[] = {
    {LeaveUntouched, LeaveUntouched},                     // eUnknown = 0
    kConversionOf<Pegasus::Boolean>,                      // eBoolean
    kConversionOf<Pegasus::Uint8>,                        // eUint8
    kConversionOf<Pegasus::Sint8>,                        // eSint8
    kConversionOf<Pegasus::Uint16>,                       // eUint16
    kConversionOf<Pegasus::Sint16>,                       // eSint16
    kConversionOf<Pegasus::Uint32>,                       // eUint32
    kConversionOf<Pegasus::Sint32>,                       // eSint32
    kConversionOf<Pegasus::Uint64>,                       // eUint64
    kConversionOf<Pegasus::Sint64>,                       // eSint64
    kConversionOf<Pegasus::Real32>,                       // eReal32
    kConversionOf<Pegasus::Real64>,                       // eReal64
    kConversionOf<Pegasus::Char16>,                       // eChar16
    kConversionOf<Pegasus::String>,                       // eString
    kConversionOf<Pegasus::CIMDateTime>,                  // eDateTime
    {SetScalar<Pegasus::CIMObjectPath>, LeaveUntouched},  // eReference = 15
};
static_assert(std::size(kConversions) == TCIMValue::TCIMType::eReference + 1, "one row for each scalar code");

}  // namespace

void ConvertToRemoteValue(const TCIMValue& value, Pegasus::CIMValue& out) {
    const TCIMValue::TCIMType::ECIMType code = value.GetType();
    if (code > TCIMValue::TCIMType::eReference) {
        return;
    }
    const Conversion& conversion = kConversions[code];
    (value.IsArray() ? conversion.array : conversion.scalar)(value, out);
}

}  // namespace NQELVSK20
