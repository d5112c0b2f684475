#include "namespace/names/CanonicalPath.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include "namespace/names/Names.h"
#include "provider/contract/PegText.h"

namespace NQELVSK20 {

namespace {

std::string CanonicalForm(const Pegasus::CIMObjectPath& path);

std::string CanonicalValue(const Pegasus::CIMKeyBinding& key) {
    const std::string value = ToText(key.getValue());
    switch (key.getType()) {
        case Pegasus::CIMKeyBinding::REFERENCE:
            return CanonicalForm(Pegasus::CIMObjectPath(key.getValue()));
        case Pegasus::CIMKeyBinding::BOOLEAN:
            return LowerCase(value);
        default:
            return value;
    }
}

std::string CanonicalForm(const Pegasus::CIMObjectPath& path) {
    const Pegasus::Array<Pegasus::CIMKeyBinding>& keys = path.getKeyBindings();
    std::string form = LowerCase(ToText(path.getClassName()));
    for (Pegasus::Uint32 i = 0; i < keys.size(); ++i) {  // the remote library has sorted them by name
        const std::string value = CanonicalValue(keys[i]);
        // The length keeps a value from passing for the keys that follow it.
        form += "," + LowerCase(ToText(keys[i].getName())) + "=" + std::to_string(value.size()) + ":" + value;
    }
    return form;
}

}  // namespace

std::string CanonicalPath(const std::string& path) {
    try {
        return CanonicalForm(Pegasus::CIMObjectPath(FromText(path)));
    } catch (const Pegasus::Exception&) {
        return {};
    }
}

}  // namespace NQELVSK20
