#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

#include <memory>

namespace Pegasus {

class CIMValue;
struct CIMObjectPathRep;

/// One key of an instance's path: name, value as text, and kind of value.
class PEGASUS_COMMON_LINKAGE CIMKeyBinding {
public:
    enum Type { BOOLEAN, STRING, NUMERIC, REFERENCE };

    /// No name, no value, type BOOLEAN.
    CIMKeyBinding() = default;
    CIMKeyBinding(const CIMName& name, const String& value, Type type);
    /// From a scalar value; an array or an embedded object throws TypeMismatchException.
    CIMKeyBinding(const CIMName& name, const CIMValue& value);

    const CIMName& getName() const noexcept { return _name; }
    void setName(const CIMName& name) { _name = name; }

    /// The value without quotes and escapes.
    const String& getValue() const noexcept { return _value; }
    void setValue(const String& value) { _value = value; }

    Type getType() const noexcept { return _type; }
    void setType(Type type) { _type = type; }

    /// Whether this key's text stands for `value`.
    Boolean equal(CIMValue value);

private:
    CIMName _name;
    String _value;
    Type _type = BOOLEAN;
};

/// Names without regard to case; references as paths, numbers by value,
/// booleans without regard to case, strings exactly.
PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMKeyBinding& x, const CIMKeyBinding& y);

/// The path of a class or an instance:
///
///     //host/namespace:Class.key1=number,key2="text"
///
/// Keys are kept sorted by name. Copies share their parts until one of them
/// is changed. Texts in another form throw MalformedObjectNameException.
class PEGASUS_COMMON_LINKAGE CIMObjectPath {
public:
    CIMObjectPath() noexcept = default;
    CIMObjectPath(const String& objectName);
    CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                  const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());

    CIMObjectPath& operator=(const String& objectName);

    void clear() noexcept { _rep.reset(); }

    void set(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
             const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());
    void set(const String& objectName);

    /// The parts; each reference is valid until this object changes.
    const String& getHost() const;
    void setHost(const String& host);
    const CIMNamespaceName& getNameSpace() const;
    void setNameSpace(const CIMNamespaceName& nameSpace);
    const CIMName& getClassName() const;
    void setClassName(const CIMName& className);
    const Array<CIMKeyBinding>& getKeyBindings() const;
    void setKeyBindings(const Array<CIMKeyBinding>& keyBindings);

    String toString() const;

    /// Whether both name the same object.
    Boolean identical(const CIMObjectPath& x) const;

    /// The same number for identical paths.
    Uint32 makeHashCode() const;

private:
    const CIMObjectPathRep& rep() const;
    CIMObjectPathRep& ownRep();

    std::shared_ptr<CIMObjectPathRep> _rep;  // null: a path without any part
};

PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMObjectPath& x, const CIMObjectPath& y);
PEGASUS_COMMON_LINKAGE Boolean operator!=(const CIMObjectPath& x, const CIMObjectPath& y);

}  // namespace Pegasus
