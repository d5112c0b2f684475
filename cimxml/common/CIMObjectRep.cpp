#include "cimxml/common/CIMObjectRep.h"

#include <utility>

namespace Pegasus {

namespace {

void requireClassName(const CIMName& className) {
    if (className.isNull()) {
        throw UninitializedObjectException();
    }
}

}  // namespace

CIMObjectRep::CIMObjectRep(const CIMName& className) {
    requireClassName(className);
    _path.setClassName(className);
}

CIMObjectRep::CIMObjectRep(CIMObjectPath path) : _path(std::move(path)) {
    requireClassName(_path.getClassName());
}

std::shared_ptr<CIMObjectRep> CIMObjectRep::clone() const {
    return std::shared_ptr<CIMObjectRep>(new CIMObjectRep(*this));
}

bool CIMObjectRep::identical(const CIMObjectRep& other) const {
    return this == &other || (_path.identical(other._path) && qualifiers.identical(other.qualifiers) &&
                              properties.identical(other.properties));
}

void CIMObjectRep::addProperty(CIMProperty property) {
    properties.add(std::move(property), "property");
}

void CIMObjectRep::setPath(const CIMObjectPath& path) {
    requireClassName(path.getClassName());
    if (!path.getClassName().equal(_path.getClassName())) {
        throw TypeMismatchException();
    }
    _path = path;
}

void CIMObjectRep::instanceFilter(bool includeQualifiers, bool includeClassOrigin,
                                  const CIMPropertyList& propertyList) {
    if (!includeQualifiers) {
        qualifiers.clear();
    }
    for (Uint32 i = properties.size(); i > 0; --i) {
        CIMPropertyRep& property = HandleAccess::rep(properties.at(i - 1));
        if (!propertyList.useThisProperty(property.name())) {
            properties.remove(i - 1);
            continue;
        }
        if (!includeClassOrigin) {
            property.classOrigin.clear();
        }
        if (!includeQualifiers) {
            property.qualifiers.clear();
        }
    }
}

}  // namespace Pegasus
