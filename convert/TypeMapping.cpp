#include "convert/TypeMapping.h"

namespace NQELVSK20 {

TCIMValue::TCIMType ToCoreType(Pegasus::CIMType type, bool isArray) {
    using Type = TCIMValue::TCIMType;
    if (type > Pegasus::CIMTYPE_REFERENCE) {
        return isArray ? Type::eUnknownArray : Type::eUnknown;
    }
    const int firstCode = isArray ? Type::eBooleanArray : Type::eBoolean;
    return static_cast<Type::ECIMType>(firstCode + static_cast<int>(type));
}

}  // namespace NQELVSK20
