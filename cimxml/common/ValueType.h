#pragma once

#include <Pegasus/Common/CIMValue.h>

namespace Pegasus {

/// Which CIM type a C++ type stands for.
template <class T>
struct ValueType;

template <CIMType Type>
struct ScalarType {
    static constexpr CIMType type = Type;
    static constexpr bool isArray = false;
};

// clang-format off
template <> struct ValueType<Boolean> : ScalarType<CIMTYPE_BOOLEAN> {};
template <> struct ValueType<Uint8> : ScalarType<CIMTYPE_UINT8> {};
template <> struct ValueType<Sint8> : ScalarType<CIMTYPE_SINT8> {};
template <> struct ValueType<Uint16> : ScalarType<CIMTYPE_UINT16> {};
template <> struct ValueType<Sint16> : ScalarType<CIMTYPE_SINT16> {};
template <> struct ValueType<Uint32> : ScalarType<CIMTYPE_UINT32> {};
template <> struct ValueType<Sint32> : ScalarType<CIMTYPE_SINT32> {};
template <> struct ValueType<Uint64> : ScalarType<CIMTYPE_UINT64> {};
template <> struct ValueType<Sint64> : ScalarType<CIMTYPE_SINT64> {};
template <> struct ValueType<Real32> : ScalarType<CIMTYPE_REAL32> {};
template <> struct ValueType<Real64> : ScalarType<CIMTYPE_REAL64> {};
template <> struct ValueType<Char16> : ScalarType<CIMTYPE_CHAR16> {};
template <> struct ValueType<String> : ScalarType<CIMTYPE_STRING> {};
template <> struct ValueType<CIMDateTime> : ScalarType<CIMTYPE_DATETIME> {};
template <> struct ValueType<CIMObjectPath> : ScalarType<CIMTYPE_REFERENCE> {};
template <> struct ValueType<CIMObject> : ScalarType<CIMTYPE_OBJECT> {};
template <> struct ValueType<CIMInstance> : ScalarType<CIMTYPE_INSTANCE> {};
// clang-format on

template <class T>
struct ValueType<Array<T>> {
    static constexpr CIMType type = ValueType<T>::type;
    static constexpr bool isArray = true;
};

}  // namespace Pegasus
