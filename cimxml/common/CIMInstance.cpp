#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include "cimxml/common/CIMObjectRep.h"
#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

namespace {

const CIMConstObject& checkedInstance(const CIMConstObject& x) {
    if (!x.isInstance()) {
        throw DynamicCastFailedException();
    }
    return x;
}

}  // namespace

CIMConstInstance::CIMConstInstance(const CIMConstObject& x) : CIMConstObject(checkedInstance(x)) {}

CIMConstInstance::CIMConstInstance(const CIMName& className)
    : CIMConstObject(std::make_shared<CIMObjectRep>(className)) {}

CIMObjectPath CIMConstInstance::buildPath(const CIMConstClass& cimClass) const {
    Array<CIMName> names;
    cimClass.getKeyNames(names);
    Array<CIMKeyBinding> keys;
    for (Uint32 i = 0; i < names.size(); ++i) {
        const CIMName& name = std::as_const(names)[i];
        const Uint32 index = findProperty(name);
        if (index == PEG_NOT_FOUND) {
            throw Exception("no such property: " + name.getString());
        }
        keys.append(CIMKeyBinding(name, getProperty(index).getValue()));
    }
    return CIMObjectPath(String(), CIMNamespaceName(), getClassName(), keys);
}

CIMInstance CIMConstInstance::clone() const {
    return HandleAccess::make<CIMInstance>(rep().clone());
}

CIMInstance::CIMInstance(const CIMObject& x) : CIMConstInstance(x) {}

CIMInstance::CIMInstance(const CIMName& className) : CIMConstInstance(className) {}

void CIMInstance::setPath(const CIMObjectPath& path) {
    rep().setPath(path);
}

CIMInstance& CIMInstance::addQualifier(const CIMQualifier& qualifier) {
    rep().qualifiers.add(qualifier, "qualifier");
    return *this;
}

CIMQualifier CIMInstance::getQualifier(Uint32 index) {
    return rep().qualifiers.at(index);
}

void CIMInstance::removeQualifier(Uint32 index) {
    rep().qualifiers.remove(index);
}

CIMInstance& CIMInstance::addProperty(const CIMProperty& x) {
    rep().addProperty(x);
    return *this;
}

CIMProperty CIMInstance::getProperty(Uint32 index) {
    return rep().properties.at(index);
}

void CIMInstance::removeProperty(Uint32 index) {
    rep().properties.remove(index);
}

void CIMInstance::instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                                 const CIMPropertyList& propertyList) {
    rep().instanceFilter(includeQualifiers, includeClassOrigin, propertyList);
}

}  // namespace Pegasus
