#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

namespace Pegasus {

class CIMClassRep;

/// A read-only handle to a class. Copies of handles share the class. A
/// default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstClass : public CIMConstObject {
public:
    CIMConstClass() noexcept = default;
    /// The same class; an object that is none throws DynamicCastFailedException.
    explicit CIMConstClass(const CIMConstObject& x);
    /// A new class; a null class name throws UninitializedObjectException.
    CIMConstClass(const CIMName& className, const CIMName& superClassName = CIMName());

    /// Whether the qualifier of that name is there and true.
    Boolean isAssociation() const;
    Boolean isAbstract() const;

    /// Null for a root class.
    const CIMName& getSuperClassName() const;

    /// The method's index, or PEG_NOT_FOUND.
    Uint32 findMethod(const CIMName& name) const;
    CIMConstMethod getMethod(Uint32 index) const;
    Uint32 getMethodCount() const;

    /// Sets `keyNames` to the names of the properties whose Key qualifier is true.
    void getKeyNames(Array<CIMName>& keyNames) const;
    Boolean hasKeys() const;

    CIMClass clone() const;

    /// A new instance of this class with its properties and their default
    /// values, as far as the list asks for them.
    CIMInstance buildInstance(Boolean includeQualifiers, Boolean includeClassOrigin,
                              const CIMPropertyList& propertyList) const;

protected:
    friend struct HandleAccess;
    using CIMConstObject::CIMConstObject;
    CIMClassRep& classRep() const;
};

/// A handle to a class: its qualifiers, properties and methods.
class PEGASUS_COMMON_LINKAGE CIMClass : public CIMConstClass {
public:
    CIMClass() noexcept = default;
    /// The same class; an object that is none throws DynamicCastFailedException.
    explicit CIMClass(const CIMObject& x);
    /// A new class; a null class name throws UninitializedObjectException.
    CIMClass(const CIMName& className, const CIMName& superClassName = CIMName());

    /// A path without class name throws UninitializedObjectException, one of
    /// another class TypeMismatchException.
    void setPath(const CIMObjectPath& path);
    void setSuperClassName(const CIMName& superClassName);

    /// A null qualifier, property or method throws
    /// UninitializedObjectException, a second one of the same name
    /// AlreadyExistsException.
    CIMClass& addQualifier(const CIMQualifier& qualifier);
    using CIMConstClass::getQualifier;
    CIMQualifier getQualifier(Uint32 index);
    void removeQualifier(Uint32 index);

    /// A reference property must say which class it refers to, else
    /// TypeMismatchException.
    CIMClass& addProperty(const CIMProperty& x);
    using CIMConstClass::getProperty;
    CIMProperty getProperty(Uint32 index);
    void removeProperty(Uint32 index);

    CIMClass& addMethod(const CIMMethod& x);
    using CIMConstClass::getMethod;
    CIMMethod getMethod(Uint32 index);
    void removeMethod(Uint32 index);

private:
    friend struct HandleAccess;
    using CIMConstClass::CIMConstClass;
};

}  // namespace Pegasus
