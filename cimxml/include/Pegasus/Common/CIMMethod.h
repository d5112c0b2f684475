#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

#include <memory>

namespace Pegasus {

class CIMMethod;
class CIMMethodRep;

/// A read-only handle to a method. Copies of handles share the method. A
/// default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstMethod {
public:
    CIMConstMethod() noexcept = default;
    /// A new method; a null name throws UninitializedObjectException.
    CIMConstMethod(const CIMName& name, CIMType type, const CIMName& classOrigin = CIMName(),
                   Boolean propagated = false);

    const CIMName& getName() const;
    /// The type of the return value.
    CIMType getType() const;
    const CIMName& getClassOrigin() const;
    Boolean getPropagated() const;

    /// The find operations return an index, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    Uint32 findParameter(const CIMName& name) const;
    CIMConstParameter getParameter(Uint32 index) const;
    Uint32 getParameterCount() const;

    Boolean isUninitialized() const noexcept { return !_rep; }

    /// Whether name, type, qualifiers and parameters agree.
    Boolean identical(const CIMConstMethod& x) const;

    /// A method of its own with the same content.
    CIMMethod clone() const;

protected:
    explicit CIMConstMethod(std::shared_ptr<CIMMethodRep> rep) noexcept : _rep(std::move(rep)) {}
    CIMMethodRep& rep() const;

private:
    friend struct HandleAccess;

    std::shared_ptr<CIMMethodRep> _rep;
};

/// A handle to the declaration of a method.
class PEGASUS_COMMON_LINKAGE CIMMethod : public CIMConstMethod {
public:
    using CIMConstMethod::CIMConstMethod;
    CIMMethod() noexcept = default;

    /// A null name throws UninitializedObjectException; another name than the
    /// present one, once the method belongs to a class, throws Exception.
    void setName(const CIMName& name);
    void setType(CIMType type);
    void setClassOrigin(const CIMName& classOrigin);
    void setPropagated(Boolean propagated);

    /// A null qualifier or parameter throws UninitializedObjectException, a
    /// second one of the same name AlreadyExistsException.
    CIMMethod& addQualifier(const CIMQualifier& x);
    using CIMConstMethod::getQualifier;
    CIMQualifier getQualifier(Uint32 index);
    void removeQualifier(Uint32 index);

    CIMMethod& addParameter(const CIMParameter& x);
    using CIMConstMethod::getParameter;
    CIMParameter getParameter(Uint32 index);
    void removeParameter(Uint32 index);

private:
    friend struct HandleAccess;
};

}  // namespace Pegasus
