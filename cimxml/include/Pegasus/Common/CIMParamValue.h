#pragma once

#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

#include <memory>

namespace Pegasus {

struct CIMParamValueRep;

/// A handle to a named argument of a method call. Copies of handles share the
/// argument. A default-constructed handle is null; reading it throws
/// UninitializedObjectException.
class PEGASUS_COMMON_LINKAGE CIMParamValue {
public:
    CIMParamValue() noexcept = default;
    /// A new argument; an empty name throws UninitializedObjectException.
    CIMParamValue(String parameterName, CIMValue value, Boolean isTyped = true);

    String getParameterName() const;
    CIMValue getValue() const;
    /// Whether the type was told along with the value.
    Boolean isTyped() const;

    void setParameterName(String& parameterName);
    void setValue(CIMValue& value);
    void setIsTyped(Boolean isTyped);

    /// An argument of its own with the same content.
    CIMParamValue clone() const;

    Boolean isUninitialized() const noexcept { return !_rep; }

private:
    CIMParamValueRep& rep() const;

    std::shared_ptr<CIMParamValueRep> _rep;
};

}  // namespace Pegasus
