#pragma once

#include <Pegasus/Common/CIMMethod.h>

#include "cimxml/common/CIMParameterRep.h"
#include "cimxml/common/NamedRep.h"
#include "cimxml/common/QualifierList.h"

namespace Pegasus {

/// What the handles of a method share.
class CIMMethodRep : public NamedRep {
public:
    CIMMethodRep(const CIMName& methodName, CIMType itsType, const CIMName& itsClassOrigin, bool isPropagated)
        : NamedRep(methodName), type(itsType), classOrigin(itsClassOrigin), propagated(isPropagated) {}

    bool identical(const CIMMethodRep& other) const {
        return this == &other ||
               (name().equal(other.name()) && type == other.type && qualifiers.identical(other.qualifiers) &&
                parameters.identical(other.parameters));
    }

    CIMType type;
    CIMName classOrigin;
    bool propagated;
    QualifierList qualifiers;
    NamedList<CIMParameter> parameters;
};

}  // namespace Pegasus
