#pragma once

#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <memory>

#include "cimxml/common/CIMPropertyRep.h"
#include "cimxml/common/NamedList.h"
#include "cimxml/common/QualifierList.h"

namespace Pegasus {

/// What the handles of an instance share, and the part of a class that it has
/// in common with an instance.
class CIMObjectRep {
public:
    /// A null class name throws UninitializedObjectException.
    explicit CIMObjectRep(const CIMName& className);
    /// A path without class name throws UninitializedObjectException.
    explicit CIMObjectRep(CIMObjectPath path);
    virtual ~CIMObjectRep() = default;
    CIMObjectRep& operator=(const CIMObjectRep&) = delete;

    virtual bool isClass() const { return false; }
    virtual std::shared_ptr<CIMObjectRep> clone() const;
    virtual bool identical(const CIMObjectRep& other) const;
    virtual void addProperty(CIMProperty property);

    const CIMObjectPath& path() const noexcept { return _path; }
    /// Without a class name throws UninitializedObjectException, with another
    /// one than the present TypeMismatchException.
    void setPath(const CIMObjectPath& path);

    void instanceFilter(bool includeQualifiers, bool includeClassOrigin, const CIMPropertyList& propertyList);

    QualifierList qualifiers;
    NamedList<CIMProperty> properties;

protected:
    CIMObjectRep(const CIMObjectRep&) = default;

private:
    CIMObjectPath _path;
};

}  // namespace Pegasus
