#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMScope.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

#include <memory>

namespace Pegasus {

class CIMQualifierDecl;
class CIMQualifierDeclRep;

/// A read-only handle to a qualifier declaration. Copies of handles share the
/// declaration. A default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstQualifierDecl {
public:
    CIMConstQualifierDecl() noexcept = default;
    /// A new declaration; a null name throws UninitializedObjectException. The
    /// flavor is completed with TOSUBCLASS unless it has RESTRICTED and with
    /// OVERRIDABLE unless it has DISABLEOVERRIDE.
    CIMConstQualifierDecl(const CIMName& name, const CIMValue& value, const CIMScope& scope,
                          const CIMFlavor& flavor = CIMFlavor(CIMFlavor::DEFAULTS), Uint32 arraySize = 0);

    const CIMName& getName() const;
    CIMType getType() const;
    Boolean isArray() const;
    const CIMValue& getValue() const;
    const CIMScope& getScope() const;
    const CIMFlavor& getFlavor() const;
    Uint32 getArraySize() const;

    Boolean isUninitialized() const noexcept { return !_rep; }

    /// Whether name (without regard to case), value, scope, flavor and array size agree.
    Boolean identical(const CIMConstQualifierDecl& x) const;

    /// A declaration of its own with the same content.
    CIMQualifierDecl clone() const;

protected:
    explicit CIMConstQualifierDecl(std::shared_ptr<CIMQualifierDeclRep> rep) noexcept
        : _rep(std::move(rep)) {}
    CIMQualifierDeclRep& rep() const;

private:
    friend struct HandleAccess;

    std::shared_ptr<CIMQualifierDeclRep> _rep;
};

/// A handle to the declaration of a qualifier: its type, default value, the
/// elements it may stand on and how it is inherited.
class PEGASUS_COMMON_LINKAGE CIMQualifierDecl : public CIMConstQualifierDecl {
public:
    using CIMConstQualifierDecl::CIMConstQualifierDecl;
    CIMQualifierDecl() noexcept = default;

    /// A null name throws UninitializedObjectException.
    void setName(const CIMName& name);
    void setValue(const CIMValue& value);

private:
    friend struct HandleAccess;
};

}  // namespace Pegasus
