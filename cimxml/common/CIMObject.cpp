#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include "cimxml/common/CIMObjectRep.h"
#include "cimxml/common/HandleAccess.h"
#include "cimxml/common/ObjectWriter.h"
#include "cimxml/common/Utf8.h"

namespace Pegasus {

CIMObjectRep& CIMConstObject::rep() const {
    return HandleAccess::deref(_rep);
}

const CIMName& CIMConstObject::getClassName() const {
    return rep().path().getClassName();
}

const CIMObjectPath& CIMConstObject::getPath() const {
    return rep().path();
}

Uint32 CIMConstObject::findQualifier(const CIMName& name) const {
    return rep().qualifiers.find(name);
}

CIMConstQualifier CIMConstObject::getQualifier(Uint32 index) const {
    return rep().qualifiers.at(index);
}

Uint32 CIMConstObject::getQualifierCount() const {
    return rep().qualifiers.size();
}

Uint32 CIMConstObject::findProperty(const CIMName& name) const {
    return rep().properties.find(name);
}

CIMConstProperty CIMConstObject::getProperty(Uint32 index) const {
    return rep().properties.at(index);
}

Uint32 CIMConstObject::getPropertyCount() const {
    return rep().properties.size();
}

Boolean CIMConstObject::identical(const CIMConstObject& x) const {
    return rep().identical(x.rep());
}

CIMObject CIMConstObject::clone() const {
    return HandleAccess::make<CIMObject>(rep().clone());
}

String CIMConstObject::toString() const {
    rep();
    std::string out;
    cimxml::ObjectWriter(cimxml::XmlOutput(out, cimxml::XmlLayout::Printed)).write(*this);
    return fromUtf8(out);
}

Boolean CIMConstObject::isClass() const {
    return _rep && _rep->isClass();
}

Boolean CIMConstObject::isInstance() const {
    return _rep && !_rep->isClass();
}

CIMObject::CIMObject(const CIMClass& x) : CIMConstObject(x) {}

CIMObject::CIMObject(const CIMInstance& x) : CIMConstObject(x) {}

void CIMObject::setPath(const CIMObjectPath& path) {
    rep().setPath(path);
}

CIMObject& CIMObject::addQualifier(const CIMQualifier& qualifier) {
    rep().qualifiers.add(qualifier, "qualifier");
    return *this;
}

CIMQualifier CIMObject::getQualifier(Uint32 index) {
    return rep().qualifiers.at(index);
}

void CIMObject::removeQualifier(Uint32 index) {
    rep().qualifiers.remove(index);
}

CIMObject& CIMObject::addProperty(const CIMProperty& x) {
    rep().addProperty(x);
    return *this;
}

CIMProperty CIMObject::getProperty(Uint32 index) {
    return rep().properties.at(index);
}

void CIMObject::removeProperty(Uint32 index) {
    rep().properties.remove(index);
}

void CIMObject::instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                               const CIMPropertyList& propertyList) {
    rep().instanceFilter(includeQualifiers, includeClassOrigin, propertyList);
}

}  // namespace Pegasus
