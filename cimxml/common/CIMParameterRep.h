#pragma once

#include <Pegasus/Common/CIMParameter.h>

#include "cimxml/common/NamedRep.h"
#include "cimxml/common/QualifierList.h"

namespace Pegasus {

/// What the handles of a parameter share.
class CIMParameterRep : public NamedRep {
public:
    CIMParameterRep(const CIMName& parameterName, CIMType itsType, bool isItAnArray, Uint32 itsArraySize,
                    const CIMName& itsReferenceClassName);

    bool identical(const CIMParameterRep& other) const;

    const CIMType type;
    const bool isArray;
    const Uint32 arraySize;  // the fixed size; 0 for none
    const CIMName referenceClassName;
    QualifierList qualifiers;
};

}  // namespace Pegasus
