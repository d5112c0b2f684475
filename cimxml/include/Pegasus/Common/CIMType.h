#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

namespace Pegasus {

/// The CIM data types (DSP0004, intrinsic data types). The numbers are part of the API.
enum CIMType {
    CIMTYPE_BOOLEAN,
    CIMTYPE_UINT8,
    CIMTYPE_SINT8,
    CIMTYPE_UINT16,
    CIMTYPE_SINT16,
    CIMTYPE_UINT32,
    CIMTYPE_SINT32,
    CIMTYPE_UINT64,
    CIMTYPE_SINT64,
    CIMTYPE_REAL32,
    CIMTYPE_REAL64,
    CIMTYPE_CHAR16,
    CIMTYPE_STRING,
    CIMTYPE_DATETIME,
    CIMTYPE_REFERENCE,
    CIMTYPE_OBJECT,   ///< an embedded class or instance
    CIMTYPE_INSTANCE  ///< an embedded instance
};

/// The type's keyword, e.g. "uint32", as a static text.
PEGASUS_COMMON_LINKAGE const char* cimTypeToString(const CIMType type);

}  // namespace Pegasus
