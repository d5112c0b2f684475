#include <Pegasus/Common/CIMName.h>

#include "cimxml/common/NameSyntax.h"

namespace Pegasus {

namespace {

bool startsWithSlash(const String& name) {
    return name[0] == '/';
}

String normalized(const String& name) {
    if (!CIMNamespaceName::legal(name)) {
        throw InvalidNamespaceNameException(name);
    }
    return startsWithSlash(name) ? name.subString(1) : name;
}

}  // namespace

CIMNamespaceName::CIMNamespaceName(const String& name) : _name(normalized(name)) {}

CIMNamespaceName::CIMNamespaceName(const char* name) : CIMNamespaceName(String(name)) {}

CIMNamespaceName& CIMNamespaceName::operator=(const String& name) {
    _name = normalized(name);
    return *this;
}

Boolean CIMNamespaceName::legal(const String& name) {
    const Char16* const text = name.getChar16Data();
    bool isComponentStart = true;
    for (Uint32 i = startsWithSlash(name) ? 1 : 0; i < name.size(); ++i) {
        if (isComponentStart) {
            if (!isNameStart(text[i])) {
                return false;
            }
            isComponentStart = false;
        } else if (text[i] == '/') {
            isComponentStart = true;
        } else if (!isNamePart(text[i])) {
            return false;
        }
    }
    return !isComponentStart;
}

Boolean operator==(const CIMNamespaceName& x, const CIMNamespaceName& y) {
    return x.equal(y);
}

Boolean operator!=(const CIMNamespaceName& x, const CIMNamespaceName& y) {
    return !x.equal(y);
}

}  // namespace Pegasus
