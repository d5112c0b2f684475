#include "cimxml/common/CIMParameterRep.h"

namespace Pegasus {

CIMParameterRep::CIMParameterRep(const CIMName& parameterName, CIMType itsType, bool isItAnArray,
                                 Uint32 itsArraySize, const CIMName& itsReferenceClassName)
    : NamedRep(parameterName),
      type(itsType),
      isArray(isItAnArray),
      arraySize(itsArraySize),
      referenceClassName(itsReferenceClassName) {
    const bool isReference = type == CIMTYPE_REFERENCE;
    if ((arraySize != 0 && !isArray) || isReference == referenceClassName.isNull()) {
        throw TypeMismatchException();
    }
}

bool CIMParameterRep::identical(const CIMParameterRep& other) const {
    // As in OpenPegasus, the array flag and size do not count.
    return this == &other ||
           (name().equal(other.name()) && type == other.type &&
            referenceClassName.equal(other.referenceClassName) && qualifiers.identical(other.qualifiers));
}

}  // namespace Pegasus
