#include <Pegasus/Common/CIMQualifier.h>

#include "cimxml/common/CIMQualifierRep.h"
#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

CIMConstQualifier::CIMConstQualifier(const CIMName& name, const CIMValue& value, const CIMFlavor& flavor,
                                     Boolean propagated)
    : _rep(std::make_shared<CIMQualifierRep>(name, value, flavor, propagated)) {}

CIMQualifierRep& CIMConstQualifier::rep() const {
    return HandleAccess::deref(_rep);
}

const CIMName& CIMConstQualifier::getName() const {
    return rep().name();
}

CIMType CIMConstQualifier::getType() const {
    return rep().value.getType();
}

Boolean CIMConstQualifier::isArray() const {
    return rep().value.isArray();
}

const CIMValue& CIMConstQualifier::getValue() const {
    return rep().value;
}

const CIMFlavor& CIMConstQualifier::getFlavor() const {
    return rep().flavor;
}

Uint32 CIMConstQualifier::getPropagated() const {
    return rep().propagated;
}

Boolean CIMConstQualifier::identical(const CIMConstQualifier& x) const {
    return rep().identical(x.rep());
}

CIMQualifier CIMConstQualifier::clone() const {
    return HandleAccess::make<CIMQualifier>(std::make_shared<CIMQualifierRep>(rep()));
}

void CIMQualifier::setName(const CIMName& name) {
    rep().rename(name, "qualifier");
}

void CIMQualifier::setValue(const CIMValue& value) {
    rep().value = value;
}

void CIMQualifier::setFlavor(const CIMFlavor& flavor) {
    rep().flavor = flavor;
}

void CIMQualifier::unsetFlavor(const CIMFlavor& flavor) {
    rep().flavor.removeFlavor(flavor);
}

void CIMQualifier::setPropagated(Boolean propagated) {
    rep().propagated = propagated;
}

}  // namespace Pegasus
