#include <Pegasus/Common/CIMScope.h>

#include "cimxml/common/FlagText.h"

namespace Pegasus {

const CIMScope CIMScope::NONE(0);
const CIMScope CIMScope::CLASS(1);
const CIMScope CIMScope::ASSOCIATION(2);
const CIMScope CIMScope::INDICATION(4);
const CIMScope CIMScope::PROPERTY(8);
const CIMScope CIMScope::REFERENCE(16);
const CIMScope CIMScope::METHOD(32);
const CIMScope CIMScope::PARAMETER(64);
const CIMScope CIMScope::ANY(127);

String CIMScope::toString() const {
    return flagText({{hasScope(CLASS), "CLASS"},
                     {hasScope(ASSOCIATION), "ASSOCIATION"},
                     {hasScope(INDICATION), "INDICATION"},
                     {hasScope(PROPERTY), "PROPERTY"},
                     {hasScope(REFERENCE), "REFERENCE"},
                     {hasScope(METHOD), "METHOD"},
                     {hasScope(PARAMETER), "PARAMETER"}});
}

}  // namespace Pegasus
