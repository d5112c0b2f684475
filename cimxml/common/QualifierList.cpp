#include "cimxml/common/QualifierList.h"

namespace Pegasus {

bool isTrue(const QualifierList& qualifiers, const CIMName& name) {
    const Uint32 index = qualifiers.find(name);
    if (index == PEG_NOT_FOUND) {
        return false;
    }
    const CIMValue& value = qualifiers.at(index).getValue();
    return value.equal(CIMValue(true));
}

}  // namespace Pegasus
