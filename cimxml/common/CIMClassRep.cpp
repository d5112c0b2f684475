#include "cimxml/common/CIMClassRep.h"

#include <algorithm>

namespace Pegasus {

namespace {

bool haveSameOrigin(const CIMMethod& x, const CIMMethod& y) {
    return x.getClassOrigin().equal(y.getClassOrigin()) && x.getPropagated() == y.getPropagated();
}

}  // namespace

std::shared_ptr<CIMObjectRep> CIMClassRep::clone() const {
    return std::shared_ptr<CIMObjectRep>(new CIMClassRep(*this));
}

bool CIMClassRep::identical(const CIMObjectRep& other) const {
    if (this == &other) {
        return true;
    }
    if (!other.isClass() || !CIMObjectRep::identical(other)) {
        return false;
    }
    const auto& otherClass = static_cast<const CIMClassRep&>(other);
    return superClassName.equal(otherClass.superClassName) && methods.identical(otherClass.methods) &&
           std::equal(methods.begin(), methods.end(), otherClass.methods.begin(), haveSameOrigin);
}

void CIMClassRep::addProperty(CIMProperty property) {
    const bool isNew = properties.find(property.getName()) == PEG_NOT_FOUND;
    if (isNew && property.getType() == CIMTYPE_REFERENCE && property.getReferenceClassName().isNull()) {
        throw TypeMismatchException();
    }
    CIMObjectRep::addProperty(std::move(property));
}

}  // namespace Pegasus
