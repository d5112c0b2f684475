#pragma once

#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

#include <memory>

namespace Pegasus {

class CIMQualifier;
class CIMQualifierRep;

/// A read-only handle to a qualifier. Copies of handles share the qualifier.
/// A default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstQualifier {
public:
    CIMConstQualifier() noexcept = default;
    /// A new qualifier; a null name throws UninitializedObjectException.
    CIMConstQualifier(const CIMName& name, const CIMValue& value,
                      const CIMFlavor& flavor = CIMFlavor(CIMFlavor::NONE), Boolean propagated = false);

    const CIMName& getName() const;
    CIMType getType() const;
    Boolean isArray() const;
    const CIMValue& getValue() const;
    const CIMFlavor& getFlavor() const;
    Uint32 getPropagated() const;

    Boolean isUninitialized() const noexcept { return !_rep; }

    /// Whether name (without regard to case), value, flavor and propagation agree.
    Boolean identical(const CIMConstQualifier& x) const;

    /// A qualifier of its own with the same content.
    CIMQualifier clone() const;

protected:
    explicit CIMConstQualifier(std::shared_ptr<CIMQualifierRep> rep) noexcept : _rep(std::move(rep)) {}
    CIMQualifierRep& rep() const;

private:
    friend struct HandleAccess;

    std::shared_ptr<CIMQualifierRep> _rep;
};

/// A handle to a qualifier: a name and a value that say something about the
/// element they stand on.
class PEGASUS_COMMON_LINKAGE CIMQualifier : public CIMConstQualifier {
public:
    using CIMConstQualifier::CIMConstQualifier;
    CIMQualifier() noexcept = default;

    /// A null name throws UninitializedObjectException; another name than the
    /// present one, once the qualifier stands on an element, throws Exception.
    void setName(const CIMName& name);
    void setValue(const CIMValue& value);
    void setFlavor(const CIMFlavor& flavor);
    void unsetFlavor(const CIMFlavor& flavor);
    void setPropagated(Boolean propagated);

private:
    friend struct HandleAccess;
};

}  // namespace Pegasus
