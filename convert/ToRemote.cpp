#include "convert/ToRemote.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Char16.h>

#include <iterator>
#include <string>
#include <vector>

#include "provider/contract/HostCodes.h"
#include "provider/contract/PegText.h"

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

struct Setters {
    Setter scalar;
    Setter array;
};

void LeaveUntouched(const TCIMValue&, Pegasus::CIMValue&) {}

template <class T>
constexpr Setters kSettersOf = {SetScalar<T>, SetArray<T>};

/// Indexed by the host's scalar type code.
constexpr Setters kSetters[] = {
    {LeaveUntouched, LeaveUntouched},                     // kTypeUnknown = 0
    kSettersOf<Pegasus::Boolean>,                         // kTypeBoolean
    kSettersOf<Pegasus::Uint8>,                           // kTypeUint8
    kSettersOf<Pegasus::Sint8>,                           // kTypeSint8
    kSettersOf<Pegasus::Uint16>,                          // kTypeUint16
    kSettersOf<Pegasus::Sint16>,                          // kTypeSint16
    kSettersOf<Pegasus::Uint32>,                          // kTypeUint32
    kSettersOf<Pegasus::Sint32>,                          // kTypeSint32
    kSettersOf<Pegasus::Uint64>,                          // kTypeUint64
    kSettersOf<Pegasus::Sint64>,                          // kTypeSint64
    kSettersOf<Pegasus::Real32>,                          // kTypeReal32
    kSettersOf<Pegasus::Real64>,                          // kTypeReal64
    kSettersOf<Pegasus::Char16>,                          // kTypeChar16
    kSettersOf<Pegasus::String>,                          // kTypeString
    kSettersOf<Pegasus::CIMDateTime>,                     // kTypeDateTime
    {SetScalar<Pegasus::CIMObjectPath>, LeaveUntouched},  // kTypeReference = 15
};
static_assert(std::size(kSetters) == kTypeReference + 1, "one row for each scalar code");

}  // namespace

void ConvertToRemoteValue(const TCIMValue& value, Pegasus::CIMValue& out) {
    const TCIMValue::TCIMType::ECIMType code = value.GetType();
    if (code > kTypeReference) {
        return;
    }
    const Setters& setters = kSetters[code];
    (value.IsArray() ? setters.array : setters.scalar)(value, out);
}

}  // namespace NQELVSK20
