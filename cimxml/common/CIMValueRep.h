#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMValue.h>

#include <memory>
#include <utility>
#include <variant>

#include "cimxml/common/ValueType.h"

namespace Pegasus {

/// The content of a value. It never changes, so that values can share it.
class CIMValueRep {
public:
    /// std::monostate for null.
    using Content =
        std::variant<std::monostate, Boolean, Uint8, Sint8, Uint16, Sint16, Uint32, Sint32, Uint64, Sint64,
                     Real32, Real64, Char16, String, CIMDateTime, CIMObjectPath, CIMObject, CIMInstance,
                     Array<Boolean>, Array<Uint8>, Array<Sint8>, Array<Uint16>, Array<Sint16>, Array<Uint32>,
                     Array<Sint32>, Array<Uint64>, Array<Sint64>, Array<Real32>, Array<Real64>, Array<Char16>,
                     Array<String>, Array<CIMDateTime>, Array<CIMObjectPath>, Array<CIMObject>,
                     Array<CIMInstance>>;

    template <class T>
    explicit CIMValueRep(T x)
        : content(std::in_place_type<T>, std::move(x)),
          type(ValueType<T>::type),
          isArray(ValueType<T>::isArray) {}

    /// Null of the given type; an array declares its size all the same.
    CIMValueRep(CIMType nullType, bool isNullArray, Uint32 nullArraySize)
        : type(nullType), isArray(isNullArray), nullSize(isNullArray ? nullArraySize : 0) {}

    /// The content of a value; lives as long as the value keeps it.
    static const CIMValueRep& of(const CIMValue& value) {
        static const CIMValueRep null(CIMTYPE_BOOLEAN, false, 0);
        return value._rep ? *value._rep : null;
    }

    bool isNull() const noexcept { return std::holds_alternative<std::monostate>(content); }

    const Content content;
    const CIMType type;
    const bool isArray;
    const Uint32 nullSize = 0;
};

}  // namespace Pegasus
