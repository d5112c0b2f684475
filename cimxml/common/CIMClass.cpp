#include <Pegasus/Common/CIMClass.h>

#include <algorithm>

#include "cimxml/common/CIMClassRep.h"
#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

namespace {

const CIMConstObject& checkedClass(const CIMConstObject& x) {
    if (!x.isClass()) {
        throw DynamicCastFailedException();
    }
    return x;
}

/// Whether the qualifier is there and is a boolean that is true.
bool isTrue(const QualifierList& qualifiers, const CIMName& name) {
    const Uint32 index = qualifiers.find(name);
    return index != PEG_NOT_FOUND && qualifiers.at(index).getValue().equal(CIMValue(true));
}

bool isKey(const CIMProperty& property) {
    static const CIMName key("Key");
    return isTrue(HandleAccess::rep(property).qualifiers, key);
}

CIMProperty withoutQualifiers(const CIMProperty& x) {
    return CIMProperty(x.getName(), x.getValue(), x.getArraySize(), x.getReferenceClassName(),
                       x.getClassOrigin(), x.getPropagated());
}

}  // namespace

CIMConstClass::CIMConstClass(const CIMConstObject& x) : CIMConstObject(checkedClass(x)) {}

CIMConstClass::CIMConstClass(const CIMName& className, const CIMName& superClassName)
    : CIMConstObject(std::make_shared<CIMClassRep>(className, superClassName)) {}

CIMClassRep& CIMConstClass::classRep() const {
    return static_cast<CIMClassRep&>(rep());
}

Boolean CIMConstClass::isAssociation() const {
    static const CIMName association("Association");
    return isTrue(rep().qualifiers, association);
}

Boolean CIMConstClass::isAbstract() const {
    static const CIMName abstract("Abstract");
    return isTrue(rep().qualifiers, abstract);
}

const CIMName& CIMConstClass::getSuperClassName() const {
    return classRep().superClassName;
}

Uint32 CIMConstClass::findMethod(const CIMName& name) const {
    return classRep().methods.find(name);
}

CIMConstMethod CIMConstClass::getMethod(Uint32 index) const {
    return classRep().methods.at(index);
}

Uint32 CIMConstClass::getMethodCount() const {
    return classRep().methods.size();
}

void CIMConstClass::getKeyNames(Array<CIMName>& keyNames) const {
    const auto& properties = rep().properties;
    keyNames.clear();
    for (const CIMProperty& property : properties) {
        if (isKey(property)) {
            keyNames.append(property.getName());
        }
    }
}

Boolean CIMConstClass::hasKeys() const {
    const auto& properties = rep().properties;
    return std::any_of(properties.begin(), properties.end(), isKey);
}

CIMClass CIMConstClass::clone() const {
    return HandleAccess::make<CIMClass>(rep().clone());
}

CIMInstance CIMConstClass::buildInstance(Boolean includeQualifiers, Boolean includeClassOrigin,
                                         const CIMPropertyList& propertyList) const {
    CIMInstance instance(getClassName());
    if (includeQualifiers) {
        for (const CIMQualifier& qualifier : rep().qualifiers) {
            instance.addQualifier(qualifier.clone());
        }
    }
    for (const CIMProperty& property : rep().properties) {
        if (!propertyList.useThisProperty(property.getName())) {
            continue;
        }
        CIMProperty copy = includeQualifiers ? property.clone() : withoutQualifiers(property);
        if (!includeClassOrigin) {
            copy.setClassOrigin(CIMName());
        }
        instance.addProperty(copy);
    }
    return instance;
}

CIMClass::CIMClass(const CIMObject& x) : CIMConstClass(x) {}

CIMClass::CIMClass(const CIMName& className, const CIMName& superClassName)
    : CIMConstClass(className, superClassName) {}

void CIMClass::setPath(const CIMObjectPath& path) {
    rep().setPath(path);
}

void CIMClass::setSuperClassName(const CIMName& superClassName) {
    classRep().superClassName = superClassName;
}

CIMClass& CIMClass::addQualifier(const CIMQualifier& qualifier) {
    rep().qualifiers.add(qualifier, "qualifier");
    return *this;
}

CIMQualifier CIMClass::getQualifier(Uint32 index) {
    return rep().qualifiers.at(index);
}

void CIMClass::removeQualifier(Uint32 index) {
    rep().qualifiers.remove(index);
}

CIMClass& CIMClass::addProperty(const CIMProperty& x) {
    rep().addProperty(x);
    return *this;
}

CIMProperty CIMClass::getProperty(Uint32 index) {
    return rep().properties.at(index);
}

void CIMClass::removeProperty(Uint32 index) {
    rep().properties.remove(index);
}

CIMClass& CIMClass::addMethod(const CIMMethod& x) {
    classRep().methods.add(x, "method");
    return *this;
}

CIMMethod CIMClass::getMethod(Uint32 index) {
    return classRep().methods.at(index);
}

void CIMClass::removeMethod(Uint32 index) {
    classRep().methods.remove(index);
}

}  // namespace Pegasus
