#include <Pegasus/Common/CIMParameter.h>

#include "cimxml/common/CIMParameterRep.h"
#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

CIMConstParameter::CIMConstParameter(const CIMName& name, CIMType type, Boolean isArray, Uint32 arraySize,
                                     const CIMName& referenceClassName)
    : _rep(std::make_shared<CIMParameterRep>(name, type, isArray, arraySize, referenceClassName)) {}

CIMParameterRep& CIMConstParameter::rep() const {
    return HandleAccess::deref(_rep);
}

const CIMName& CIMConstParameter::getName() const {
    return rep().name();
}

CIMType CIMConstParameter::getType() const {
    return rep().type;
}

Boolean CIMConstParameter::isArray() const {
    return rep().isArray;
}

Uint32 CIMConstParameter::getArraySize() const {
    return rep().arraySize;
}

const CIMName& CIMConstParameter::getReferenceClassName() const {
    return rep().referenceClassName;
}

Uint32 CIMConstParameter::findQualifier(const CIMName& name) const {
    return rep().qualifiers.find(name);
}

CIMConstQualifier CIMConstParameter::getQualifier(Uint32 index) const {
    return rep().qualifiers.at(index);
}

Uint32 CIMConstParameter::getQualifierCount() const {
    return rep().qualifiers.size();
}

Boolean CIMConstParameter::identical(const CIMConstParameter& x) const {
    return rep().identical(x.rep());
}

CIMParameter CIMConstParameter::clone() const {
    return HandleAccess::make<CIMParameter>(std::make_shared<CIMParameterRep>(rep()));
}

void CIMParameter::setName(const CIMName& name) {
    rep().rename(name, "parameter");
}

CIMParameter& CIMParameter::addQualifier(const CIMQualifier& x) {
    rep().qualifiers.add(x, "qualifier");
    return *this;
}

CIMQualifier CIMParameter::getQualifier(Uint32 index) {
    return rep().qualifiers.at(index);
}

void CIMParameter::removeQualifier(Uint32 index) {
    rep().qualifiers.remove(index);
}

}  // namespace Pegasus
