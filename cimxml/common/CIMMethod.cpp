#include <Pegasus/Common/CIMMethod.h>

#include "cimxml/common/CIMMethodRep.h"
#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

CIMConstMethod::CIMConstMethod(const CIMName& name, CIMType type, const CIMName& classOrigin,
                               Boolean propagated)
    : _rep(std::make_shared<CIMMethodRep>(name, type, classOrigin, propagated)) {}

CIMMethodRep& CIMConstMethod::rep() const {
    return HandleAccess::deref(_rep);
}

const CIMName& CIMConstMethod::getName() const {
    return rep().name();
}

CIMType CIMConstMethod::getType() const {
    return rep().type;
}

const CIMName& CIMConstMethod::getClassOrigin() const {
    return rep().classOrigin;
}

Boolean CIMConstMethod::getPropagated() const {
    return rep().propagated;
}

Uint32 CIMConstMethod::findQualifier(const CIMName& name) const {
    return rep().qualifiers.find(name);
}

CIMConstQualifier CIMConstMethod::getQualifier(Uint32 index) const {
    return rep().qualifiers.at(index);
}

Uint32 CIMConstMethod::getQualifierCount() const {
    return rep().qualifiers.size();
}

Uint32 CIMConstMethod::findParameter(const CIMName& name) const {
    return rep().parameters.find(name);
}

CIMConstParameter CIMConstMethod::getParameter(Uint32 index) const {
    return rep().parameters.at(index);
}

Uint32 CIMConstMethod::getParameterCount() const {
    return rep().parameters.size();
}

Boolean CIMConstMethod::identical(const CIMConstMethod& x) const {
    return rep().identical(x.rep());
}

CIMMethod CIMConstMethod::clone() const {
    return HandleAccess::make<CIMMethod>(std::make_shared<CIMMethodRep>(rep()));
}

void CIMMethod::setName(const CIMName& name) {
    rep().rename(name, "method");
}

void CIMMethod::setType(CIMType type) {
    rep().type = type;
}

void CIMMethod::setClassOrigin(const CIMName& classOrigin) {
    rep().classOrigin = classOrigin;
}

void CIMMethod::setPropagated(Boolean propagated) {
    rep().propagated = propagated;
}

CIMMethod& CIMMethod::addQualifier(const CIMQualifier& x) {
    rep().qualifiers.add(x, "qualifier");
    return *this;
}

CIMQualifier CIMMethod::getQualifier(Uint32 index) {
    return rep().qualifiers.at(index);
}

void CIMMethod::removeQualifier(Uint32 index) {
    rep().qualifiers.remove(index);
}

CIMMethod& CIMMethod::addParameter(const CIMParameter& x) {
    rep().parameters.add(x, "parameter");
    return *this;
}

CIMParameter CIMMethod::getParameter(Uint32 index) {
    return rep().parameters.at(index);
}

void CIMMethod::removeParameter(Uint32 index) {
    rep().parameters.remove(index);
}

}  // namespace Pegasus
