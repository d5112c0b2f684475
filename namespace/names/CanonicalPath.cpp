#include "namespace/names/CanonicalPath.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <vector>

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
    std::vector<std::string> parts;
    for (Pegasus::Uint32 i = 0; i < keys.size(); ++i) {
        const std::string value = CanonicalValue(keys[i]);
        // The length keeps a value from passing for the keys that follow it.
        parts.push_back(LowerCase(ToText(keys[i].getName())) + "=" + std::to_string(value.size()) + ":" +
                        value);
    }
    std::sort(parts.begin(), parts.end());
    std::string form = LowerCase(ToText(path.getClassName()));
    for (const std::string& part : parts) {
        form += "," + part;
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
