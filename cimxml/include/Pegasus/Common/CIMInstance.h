#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

namespace Pegasus {

class CIMConstClass;

/// A read-only handle to an instance. Copies of handles share the instance. A
/// default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstInstance : public CIMConstObject {
public:
    CIMConstInstance() noexcept = default;
    /// The same instance; an object that is none throws DynamicCastFailedException.
    explicit CIMConstInstance(const CIMConstObject& x);
    /// A new instance; a null name throws UninitializedObjectException.
    CIMConstInstance(const CIMName& className);

    /// The path that the class's key properties give: the class's own keys, as
    /// `cimClass` names them. A key property that the instance lacks throws
    /// Exception.
    CIMObjectPath buildPath(const CIMConstClass& cimClass) const;

    CIMInstance clone() const;

protected:
    friend struct HandleAccess;
    using CIMConstObject::CIMConstObject;
};

/// A handle to an instance.
class PEGASUS_COMMON_LINKAGE CIMInstance : public CIMConstInstance {
public:
    CIMInstance() noexcept = default;
    /// The same instance; an object that is none throws DynamicCastFailedException.
    explicit CIMInstance(const CIMObject& x);
    /// A new instance; a null name throws UninitializedObjectException.
    CIMInstance(const CIMName& className);

    /// A path without class name throws UninitializedObjectException, one of
    /// another class TypeMismatchException.
    void setPath(const CIMObjectPath& path);

    /// A null qualifier or property throws UninitializedObjectException, a
    /// second one of the same name AlreadyExistsException.
    CIMInstance& addQualifier(const CIMQualifier& qualifier);
    using CIMConstInstance::getQualifier;
    CIMQualifier getQualifier(Uint32 index);
    void removeQualifier(Uint32 index);

    CIMInstance& addProperty(const CIMProperty& x);
    using CIMConstInstance::getProperty;
    CIMProperty getProperty(Uint32 index);
    void removeProperty(Uint32 index);

    /// Takes away the properties that the list does not ask for and, unless
    /// they are to be included, qualifiers and class origins.
    void instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                        const CIMPropertyList& propertyList);

private:
    friend struct HandleAccess;
    using CIMConstInstance::CIMConstInstance;
};

}  // namespace Pegasus
