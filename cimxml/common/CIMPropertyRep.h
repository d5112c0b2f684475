#pragma once

#include <Pegasus/Common/CIMProperty.h>

#include "cimxml/common/NamedRep.h"
#include "cimxml/common/QualifierList.h"

namespace Pegasus {

/// What the handles of a property share.
class CIMPropertyRep : public NamedRep {
public:
    CIMPropertyRep(const CIMName& propertyName, CIMValue itsValue, Uint32 itsArraySize,
                   const CIMName& itsReferenceClassName, const CIMName& itsClassOrigin, bool isPropagated);

    bool identical(const CIMPropertyRep& other) const;

    const CIMValue& value() const noexcept { return _value; }
    /// A value that does not fit the property throws TypeMismatchException.
    void setValue(const CIMValue& value);

    /// The fixed array size; 0 for none.
    Uint32 arraySize() const noexcept { return _arraySize; }
    const CIMName& referenceClassName() const noexcept { return _referenceClassName; }

    CIMName classOrigin;
    bool propagated;
    QualifierList qualifiers;

private:
    CIMValue _value;
    Uint32 _arraySize;
    CIMName _referenceClassName;
};

}  // namespace Pegasus
