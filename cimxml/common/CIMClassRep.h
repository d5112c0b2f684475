#pragma once

#include <Pegasus/Common/CIMClass.h>

#include <memory>

#include "cimxml/common/CIMMethodRep.h"
#include "cimxml/common/CIMObjectRep.h"

namespace Pegasus {

/// What the handles of a class share.
class CIMClassRep : public CIMObjectRep {
public:
    /// A null class name throws UninitializedObjectException.
    CIMClassRep(const CIMName& className, const CIMName& itsSuperClassName)
        : CIMObjectRep(className), superClassName(itsSuperClassName) {}

    bool isClass() const override { return true; }
    std::shared_ptr<CIMObjectRep> clone() const override;
    bool identical(const CIMObjectRep& other) const override;
    /// A reference property without reference class throws TypeMismatchException.
    void addProperty(CIMProperty property) override;

    CIMName superClassName;
    NamedList<CIMMethod> methods;

private:
    CIMClassRep(const CIMClassRep&) = default;
};

}  // namespace Pegasus
