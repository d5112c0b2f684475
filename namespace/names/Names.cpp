#include "namespace/names/Names.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"

namespace NQELVSK20 {

namespace {

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || c == '_';
}

bool IsNamePart(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9');
}

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

// One pass: this runs for every name that is looked up.
std::string NormalizeName(const std::string& name) {
    std::string normalized = name;
    for (std::size_t i = 0; i < normalized.size(); ++i) {
        char& c = normalized[i];
        c = LowerCase(c);
        if (!(i == 0 ? IsNameStart(c) : IsNamePart(c))) {
            Refuse(kStatusInvalidName, kLogError, "CimHTTP: CIM name '" + name + "' is invalid");
        }
    }
    return normalized;
}

bool EqualByName(const std::string& left, const std::string& right) {
    return NormalizeName(left) == NormalizeName(right);
}

bool LessByName(const std::string& left, const std::string& right) {
    return NormalizeName(left) < NormalizeName(right);
}

std::string CanonicalPath(const std::string& path) {
    try {
        return CanonicalForm(Pegasus::CIMObjectPath(FromText(path)));
    } catch (const Pegasus::Exception&) {
        return {};
    }
}

}  // namespace NQELVSK20
