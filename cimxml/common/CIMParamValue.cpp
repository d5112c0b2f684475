#include <Pegasus/Common/CIMParamValue.h>

#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

/// What the handles of an argument share.
struct CIMParamValueRep {
    String name;
    CIMValue value;
    bool isTyped;
};

namespace {

void requireName(const String& name) {
    if (name.size() == 0) {
        throw UninitializedObjectException();
    }
}

}  // namespace

CIMParamValue::CIMParamValue(String parameterName, CIMValue value, Boolean isTyped) {
    requireName(parameterName);
    _rep = std::make_shared<CIMParamValueRep>(
        CIMParamValueRep{std::move(parameterName), std::move(value), isTyped});
}

CIMParamValueRep& CIMParamValue::rep() const {
    return HandleAccess::deref(_rep);
}

String CIMParamValue::getParameterName() const {
    return rep().name;
}

CIMValue CIMParamValue::getValue() const {
    return rep().value;
}

Boolean CIMParamValue::isTyped() const {
    return rep().isTyped;
}

void CIMParamValue::setParameterName(String& parameterName) {
    CIMParamValueRep& argument = rep();
    requireName(parameterName);
    argument.name = parameterName;
}

void CIMParamValue::setValue(CIMValue& value) {
    rep().value = value;
}

void CIMParamValue::setIsTyped(Boolean isTyped) {
    rep().isTyped = isTyped;
}

CIMParamValue CIMParamValue::clone() const {
    return CIMParamValue(rep().name, rep().value, rep().isTyped);
}

}  // namespace Pegasus
