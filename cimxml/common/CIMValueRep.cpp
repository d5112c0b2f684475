#include "cimxml/common/CIMValueRep.h"

namespace Pegasus {

const CIMValueRep& CIMValueRep::of(const CIMValue& value) {
    static const CIMValueRep null(CIMTYPE_BOOLEAN, false, 0);
    return value._rep ? *value._rep : null;
}

}  // namespace Pegasus
