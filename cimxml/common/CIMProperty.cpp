#include <Pegasus/Common/CIMProperty.h>

#include "cimxml/common/CIMPropertyRep.h"
#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

CIMConstProperty::CIMConstProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize,
                                   const CIMName& referenceClassName, const CIMName& classOrigin,
                                   Boolean propagated)
    : _rep(std::make_shared<CIMPropertyRep>(name, value, arraySize, referenceClassName, classOrigin,
                                            propagated)) {}

CIMPropertyRep& CIMConstProperty::rep() const {
    return HandleAccess::deref(_rep);
}

const CIMName& CIMConstProperty::getName() const {
    return rep().name();
}

const CIMValue& CIMConstProperty::getValue() const {
    return rep().value();
}

CIMType CIMConstProperty::getType() const {
    return rep().value().getType();
}

Boolean CIMConstProperty::isArray() const {
    return rep().value().isArray();
}

Uint32 CIMConstProperty::getArraySize() const {
    return rep().arraySize();
}

const CIMName& CIMConstProperty::getReferenceClassName() const {
    return rep().referenceClassName();
}

const CIMName& CIMConstProperty::getClassOrigin() const {
    return rep().classOrigin;
}

Boolean CIMConstProperty::getPropagated() const {
    return rep().propagated;
}

Uint32 CIMConstProperty::findQualifier(const CIMName& name) const {
    return rep().qualifiers.find(name);
}

CIMConstQualifier CIMConstProperty::getQualifier(Uint32 index) const {
    return rep().qualifiers.at(index);
}

Uint32 CIMConstProperty::getQualifierCount() const {
    return rep().qualifiers.size();
}

Boolean CIMConstProperty::identical(const CIMConstProperty& x) const {
    return rep().identical(x.rep());
}

CIMProperty CIMConstProperty::clone() const {
    return HandleAccess::make<CIMProperty>(std::make_shared<CIMPropertyRep>(rep()));
}

void CIMProperty::setName(const CIMName& name) {
    rep().rename(name, "property");
}

void CIMProperty::setValue(const CIMValue& value) {
    rep().setValue(value);
}

void CIMProperty::setClassOrigin(const CIMName& classOrigin) {
    rep().classOrigin = classOrigin;
}

void CIMProperty::setPropagated(Boolean propagated) {
    rep().propagated = propagated;
}

CIMProperty& CIMProperty::addQualifier(const CIMQualifier& x) {
    rep().qualifiers.add(x, "qualifier");
    return *this;
}

CIMQualifier CIMProperty::getQualifier(Uint32 index) {
    return rep().qualifiers.at(index);
}

void CIMProperty::removeQualifier(Uint32 index) {
    rep().qualifiers.remove(index);
}

}  // namespace Pegasus
