#include <Pegasus/Common/CIMName.h>

#include <algorithm>

#include "cimxml/common/NameSyntax.h"

namespace Pegasus {

namespace {

const String& checked(const String& name) {
    if (!CIMName::legal(name)) {
        throw InvalidNameException(name);
    }
    return name;
}

}  // namespace

CIMName::CIMName(const String& name) : _name(checked(name)) {}

CIMName::CIMName(const char* name) : _name(name) {
    checked(_name);
}

CIMName& CIMName::operator=(const String& name) {
    _name = checked(name);
    return *this;
}

Boolean CIMName::legal(const String& name) {
    const Char16* const first = name.getChar16Data();
    return isNameStart(*first) && std::all_of(first, first + name.size(), isNamePart);
}

Boolean operator==(const CIMName& x, const CIMName& y) {
    return x.equal(y);
}

Boolean operator!=(const CIMName& x, const CIMName& y) {
    return !x.equal(y);
}

}  // namespace Pegasus
