#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

#include <memory>

namespace Pegasus {

class CIMProperty;
class CIMPropertyRep;

/// A read-only handle to a property. Copies of handles share the property. A
/// default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMConstProperty {
public:
    CIMConstProperty() noexcept = default;
    /// A new property. A null name throws UninitializedObjectException. A
    /// non-zero array size other than the value's, an array of references, or
    /// a reference class for a value that is no reference throw
    /// TypeMismatchException.
    CIMConstProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize = 0,
                     const CIMName& referenceClassName = CIMName(), const CIMName& classOrigin = CIMName(),
                     Boolean propagated = false);

    const CIMName& getName() const;
    const CIMValue& getValue() const;
    CIMType getType() const;
    Boolean isArray() const;
    Uint32 getArraySize() const;
    const CIMName& getReferenceClassName() const;
    const CIMName& getClassOrigin() const;
    Boolean getPropagated() const;

    /// The qualifier's index, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    /// Whether all of both agree, names without regard to case.
    Boolean identical(const CIMConstProperty& x) const;

    /// A property of its own with the same content.
    CIMProperty clone() const;

    Boolean isUninitialized() const noexcept { return !_rep; }

protected:
    explicit CIMConstProperty(std::shared_ptr<CIMPropertyRep> rep) noexcept : _rep(std::move(rep)) {}
    CIMPropertyRep& rep() const;

private:
    friend struct HandleAccess;

    std::shared_ptr<CIMPropertyRep> _rep;
};

/// A handle to a property of a class or an instance.
class PEGASUS_COMMON_LINKAGE CIMProperty : public CIMConstProperty {
public:
    using CIMConstProperty::CIMConstProperty;
    CIMProperty() noexcept = default;

    /// A null name throws UninitializedObjectException; another name than the
    /// present one, once the property belongs to an object, throws Exception.
    void setName(const CIMName& name);

    /// A value of another type, array flag or fixed array size than the
    /// present one throws TypeMismatchException.
    void setValue(const CIMValue& value);

    void setClassOrigin(const CIMName& classOrigin);
    void setPropagated(Boolean propagated);

    /// A null qualifier throws UninitializedObjectException, a second one of
    /// the same name AlreadyExistsException.
    CIMProperty& addQualifier(const CIMQualifier& x);
    using CIMConstProperty::getQualifier;
    CIMQualifier getQualifier(Uint32 index);
    void removeQualifier(Uint32 index);

private:
    friend struct HandleAccess;
};

}  // namespace Pegasus
