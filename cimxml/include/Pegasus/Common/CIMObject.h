#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

#include <memory>

namespace Pegasus {

class CIMObject;
class CIMObjectRep;
class CIMClass;
class CIMInstance;

/// A read-only handle to a class or an instance. Copies of handles share the
/// object. A default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstObject {
public:
    CIMConstObject() noexcept = default;

    const CIMName& getClassName() const;
    /// The object's path; for a class, one without keys.
    const CIMObjectPath& getPath() const;

    /// The find operations return an index, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    Uint32 findProperty(const CIMName& name) const;
    CIMConstProperty getProperty(Uint32 index) const;
    Uint32 getPropertyCount() const;

    /// Whether all of both agree, names without regard to case.
    Boolean identical(const CIMConstObject& x) const;

    /// An object of its own with the same content, down to qualifiers and properties.
    CIMObject clone() const;

    Boolean isUninitialized() const noexcept { return !_rep; }

    /// The object as an XML element (DSP0201, CLASS or INSTANCE).
    String toString() const;

    Boolean isClass() const;
    Boolean isInstance() const;

protected:
    explicit CIMConstObject(std::shared_ptr<CIMObjectRep> rep) noexcept : _rep(std::move(rep)) {}
    CIMObjectRep& rep() const;

private:
    friend struct HandleAccess;

    std::shared_ptr<CIMObjectRep> _rep;
};

/// A handle to a class or an instance.
class PEGASUS_COMMON_LINKAGE CIMObject : public CIMConstObject {
public:
    CIMObject() noexcept = default;
    CIMObject(const CIMClass& x);
    CIMObject(const CIMInstance& x);

    /// A path without class name throws UninitializedObjectException, one of
    /// another class TypeMismatchException.
    void setPath(const CIMObjectPath& path);

    /// A null qualifier or property throws UninitializedObjectException, a
    /// second one of the same name AlreadyExistsException.
    CIMObject& addQualifier(const CIMQualifier& qualifier);
    using CIMConstObject::getQualifier;
    CIMQualifier getQualifier(Uint32 index);
    void removeQualifier(Uint32 index);

    CIMObject& addProperty(const CIMProperty& x);
    using CIMConstObject::getProperty;
    CIMProperty getProperty(Uint32 index);
    void removeProperty(Uint32 index);

    /// Takes away the properties that the list does not ask for and, unless
    /// they are to be included, qualifiers and class origins.
    void instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                        const CIMPropertyList& propertyList);

private:
    friend struct HandleAccess;
    using CIMConstObject::CIMConstObject;
};

}  // namespace Pegasus
