#include "cimxml/common/NamedRep.h"

#include <string>

namespace Pegasus {

namespace {

const CIMName& checked(const CIMName& name) {
    if (name.isNull())
        throw UninitializedObjectException();
    return name;
}

}  // namespace

NamedRep::NamedRep(const CIMName& name) : _name(checked(name)) {}

void NamedRep::rename(const CIMName& name, const char* kind) {
    checked(name);
    if (_lists != 0 && !_name.equal(name)) {
        const std::string message =
            "Attempted to change the name of a " + std::string(kind) + " already in a container.";
        throw Exception(String(message.c_str()));
    }
    _name = name;
}

}  // namespace Pegasus
