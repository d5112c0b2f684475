#pragma once

#include <Pegasus/Common/CIMQualifier.h>

#include "cimxml/common/NamedRep.h"

namespace Pegasus {

/// What the handles of a qualifier share.
class CIMQualifierRep : public NamedRep {
public:
    CIMQualifierRep(const CIMName& qualifierName, const CIMValue& itsValue, const CIMFlavor& itsFlavor,
                    bool isPropagated)
        : NamedRep(qualifierName), value(itsValue), flavor(itsFlavor), propagated(isPropagated) {}

    bool identical(const CIMQualifierRep& other) const {
        return this == &other || (name().equal(other.name()) && value.equal(other.value) &&
                                  flavor.equal(other.flavor) && propagated == other.propagated);
    }

    CIMValue value;
    CIMFlavor flavor;
    bool propagated;
};

}  // namespace Pegasus
