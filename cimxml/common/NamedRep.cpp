#include "cimxml/common/NamedRep.h"

#include <string>

namespace Pegasus {

namespace {

const CIMName& checked(const CIMName& name) {
    if (name.isNull()) {
        throw UninitializedObjectException();
    }
    return name;
}

Uint32 fold(Uint16 c) {
    return c >= 'A' && c <= 'Z' ? c - 'A' + Uint32{'a'} : c & 0xFFu;
}

}  // namespace

NamedRep::NamedRep(const CIMName& name) : _name(checked(name)), _tag(tagOf(name)) {}

Uint32 NamedRep::tagOf(const CIMName& name) noexcept {
    // Names in one list mostly differ in length or at their ends.
    const String& text = name.getString();
    const Char16* const p = text.getChar16Data();
    const Uint32 size = text.size();
    const Uint32 last = size == 0 ? 0 : size - 1;
    return (size & 0xFF) | fold(p[0]) << 8 | fold(p[last / 2]) << 16 | fold(p[last]) << 24;
}

void NamedRep::rename(const CIMName& name, const char* kind) {
    checked(name);
    if (_lists != 0 && !_name.equal(name)) {
        const std::string message =
            "Attempted to change the name of a " + std::string(kind) + " already in a container.";
        throw Exception(String(message.c_str()));
    }
    _name = name;
    _tag = tagOf(name);
}

}  // namespace Pegasus
