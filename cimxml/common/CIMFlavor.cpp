#include <Pegasus/Common/CIMFlavor.h>

#include "cimxml/common/FlagText.h"

namespace Pegasus {

const CIMFlavor CIMFlavor::NONE(0);
const CIMFlavor CIMFlavor::OVERRIDABLE(1);
const CIMFlavor CIMFlavor::ENABLEOVERRIDE(1);
const CIMFlavor CIMFlavor::TOSUBCLASS(2);
const CIMFlavor CIMFlavor::TOSUBELEMENTS(2);
const CIMFlavor CIMFlavor::TOINSTANCE(4);
const CIMFlavor CIMFlavor::TRANSLATABLE(8);
const CIMFlavor CIMFlavor::DISABLEOVERRIDE(16);
const CIMFlavor CIMFlavor::RESTRICTED(32);
const CIMFlavor CIMFlavor::DEFAULTS(1 | 2);

String CIMFlavor::toString() const {
    return flagText({{hasFlavor(OVERRIDABLE), "OVERRIDABLE"},
                     {hasFlavor(TOSUBCLASS), "TOSUBCLASS"},
                     {hasFlavor(TOINSTANCE), "TOINSTANCE"},
                     {hasFlavor(TRANSLATABLE), "TRANSLATABLE"},
                     {hasFlavor(DISABLEOVERRIDE), "DISABLEOVERRIDE"},
                     {hasFlavor(RESTRICTED), "RESTRICTED"}});
}

}  // namespace Pegasus
