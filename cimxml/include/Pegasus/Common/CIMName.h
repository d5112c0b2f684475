#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The name of a class, property, method, parameter or qualifier (DSP0004,
/// CIM element names). Compared without regard to case. Making one out of
/// anything but a legal name throws InvalidNameException; only the default
/// constructor and clear() give the null name.
class PEGASUS_COMMON_LINKAGE CIMName {
public:
    CIMName() noexcept = default;
    CIMName(const String& name);
    CIMName(const char* name);

    CIMName& operator=(const String& name);

    const String& getString() const noexcept { return _name; }
    Boolean isNull() const noexcept { return _name.size() == 0; }
    void clear() noexcept { _name.clear(); }
    Boolean equal(const CIMName& other) const { return String::equalNoCase(_name, other._name); }

    /// A letter, "_" or a non-ASCII character, followed by any number of those
    /// and digits.
    static Boolean legal(const String& name);

private:
    String _name;
};

PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMName& x, const CIMName& y);
PEGASUS_COMMON_LINKAGE Boolean operator!=(const CIMName& x, const CIMName& y);

/// A namespace name: components like CIM names with "/" between. One leading
/// "/" is accepted and dropped. Compared without regard to case. Anything
/// else throws InvalidNamespaceNameException.
class PEGASUS_COMMON_LINKAGE CIMNamespaceName {
public:
    CIMNamespaceName() noexcept = default;
    CIMNamespaceName(const String& name);
    CIMNamespaceName(const char* name);

    CIMNamespaceName& operator=(const String& name);

    const String& getString() const noexcept { return _name; }
    Boolean isNull() const noexcept { return _name.size() == 0; }
    void clear() noexcept { _name.clear(); }
    Boolean equal(const CIMNamespaceName& other) const { return String::equalNoCase(_name, other._name); }

    static Boolean legal(const String& name);

private:
    String _name;
};

PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMNamespaceName& x, const CIMNamespaceName& y);
PEGASUS_COMMON_LINKAGE Boolean operator!=(const CIMNamespaceName& x, const CIMNamespaceName& y);

}  // namespace Pegasus
