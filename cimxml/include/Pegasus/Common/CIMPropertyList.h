#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

namespace Pegasus {

/// The properties that a request asks for. The null list asks for all, the
/// empty list for none.
class PEGASUS_COMMON_LINKAGE CIMPropertyList {
public:
    /// The null list.
    CIMPropertyList() = default;
    /// A list of these names, duplicates included; a null name throws
    /// UninitializedObjectException.
    CIMPropertyList(const Array<CIMName>& propertyNames);

    void set(const Array<CIMName>& propertyNames);
    void clear();

    Boolean isNull() const noexcept { return _isNull; }
    Uint32 size() const noexcept { return _names.size(); }
    const CIMName& operator[](Uint32 index) const { return _names[index]; }
    Array<CIMName> getPropertyNameArray() const { return _names; }

    /// Replaces the names by these, each once; the null list stops being null.
    /// An empty array keeps the names there are. An illegal name throws
    /// InvalidNameException.
    void append(Array<String>& propertyListArray);

    Boolean contains(const CIMName& name) const;
    /// Whether the list asks for this property: always, for the null list.
    Boolean useThisProperty(const CIMName& name) const;

    /// "NULL", "EMPTY", or the names with commas between.
    String toString() const;

private:
    Array<CIMName> _names;
    Boolean _isNull = true;
};

}  // namespace Pegasus
