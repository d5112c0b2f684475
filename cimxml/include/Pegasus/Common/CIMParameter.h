#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

#include <memory>

namespace Pegasus {

class CIMParameter;
class CIMParameterRep;

/// A read-only handle to a method's parameter. Copies of handles share the
/// parameter. A default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstParameter {
public:
    CIMConstParameter() noexcept = default;
    /// A new parameter. A null name throws UninitializedObjectException. An
    /// array size without the array flag, or a reference class without the
    /// reference type or the other way round, throw TypeMismatchException.
    CIMConstParameter(const CIMName& name, CIMType type, Boolean isArray = false, Uint32 arraySize = 0,
                      const CIMName& referenceClassName = CIMName());

    const CIMName& getName() const;
    CIMType getType() const;
    Boolean isArray() const;
    Uint32 getArraySize() const;
    const CIMName& getReferenceClassName() const;

    /// The qualifier's index, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    Boolean isUninitialized() const noexcept { return !_rep; }

    /// Whether name, type, reference class and qualifiers agree.
    Boolean identical(const CIMConstParameter& x) const;

    /// A parameter of its own with the same content.
    CIMParameter clone() const;

protected:
    explicit CIMConstParameter(std::shared_ptr<CIMParameterRep> rep) noexcept : _rep(std::move(rep)) {}
    CIMParameterRep& rep() const;

private:
    friend struct HandleAccess;

    std::shared_ptr<CIMParameterRep> _rep;
};

/// A handle to a parameter of a method's declaration.
class PEGASUS_COMMON_LINKAGE CIMParameter : public CIMConstParameter {
public:
    using CIMConstParameter::CIMConstParameter;
    CIMParameter() noexcept = default;

    /// A null name throws UninitializedObjectException; another name than the
    /// present one, once the parameter belongs to a method, throws Exception.
    void setName(const CIMName& name);

    /// A null qualifier throws UninitializedObjectException, a second one of
    /// the same name AlreadyExistsException.
    CIMParameter& addQualifier(const CIMQualifier& x);
    using CIMConstParameter::getQualifier;
    CIMQualifier getQualifier(Uint32 index);
    void removeQualifier(Uint32 index);

private:
    friend struct HandleAccess;
};

}  // namespace Pegasus
