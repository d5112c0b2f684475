#include "cimxml/common/CIMPropertyRep.h"

namespace Pegasus {

namespace {

/// Properties hold no arrays of references (DSP0004, properties).
bool isReferenceArray(const CIMValue& value) {
    return value.isArray() && value.getType() == CIMTYPE_REFERENCE;
}

}  // namespace

CIMPropertyRep::CIMPropertyRep(const CIMName& propertyName, CIMValue itsValue, Uint32 itsArraySize,
                               const CIMName& itsReferenceClassName, const CIMName& itsClassOrigin,
                               bool isPropagated)
    : NamedRep(propertyName),
      classOrigin(itsClassOrigin),
      propagated(isPropagated),
      _value(std::move(itsValue)),
      _arraySize(itsArraySize),
      _referenceClassName(itsReferenceClassName) {
    const bool hasWrongSize = _arraySize != 0 && (!_value.isArray() || _value.getArraySize() != _arraySize);
    const bool refersWrongly = !_referenceClassName.isNull() && _value.getType() != CIMTYPE_REFERENCE;
    if (hasWrongSize || refersWrongly || isReferenceArray(_value)) {
        throw TypeMismatchException();
    }
}

bool CIMPropertyRep::identical(const CIMPropertyRep& other) const {
    return this == &other ||
           (name().equal(other.name()) && _value.equal(other._value) &&
            _referenceClassName.equal(other._referenceClassName) && qualifiers.identical(other.qualifiers) &&
            classOrigin.equal(other.classOrigin) && propagated == other.propagated);
}

void CIMPropertyRep::setValue(const CIMValue& value) {
    const bool hasWrongSize = _arraySize != 0 && _arraySize != value.getArraySize();
    if (!value.typeCompatible(_value) || hasWrongSize || isReferenceArray(value)) {
        throw TypeMismatchException();
    }
    _value = value;
}

}  // namespace Pegasus
