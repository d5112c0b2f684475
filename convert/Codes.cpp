#include "convert/Codes.h"

#include <cstddef>
#include <string>

#include "provider/contract/PegText.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

struct Keyword {
    const char* text;
    unsigned int value;
};

constexpr Keyword kScopes[] = {{"CLASS", ICIMQualifierDecl::eScopeClass},
                               {"ASSOCIATION", ICIMQualifierDecl::eScopeAssociation},
                               {"INDICATION", ICIMQualifierDecl::eScopeIndication},
                               {"PROPERTY", ICIMQualifierDecl::eScopeProperty},
                               {"REFERENCE", ICIMQualifierDecl::eScopeReference},
                               {"METHOD", ICIMQualifierDecl::eScopeMethod},
                               {"PARAMETER", ICIMQualifierDecl::eScopeParameter},
                               {"ANY", ICIMQualifierDecl::eScopeAny}};

// Hosts rely on this table as it is: OVERRIDABLE and RESTRICTED give no bit.
constexpr Keyword kFlavors[] = {{"OVERRIDABLE", ICIMQualifierDecl::eFlavorNone},
                                {"ENABLEOVERRIDE", ICIMQualifierDecl::eFlavorEnableOverride},
                                {"TOSUBCLASS", ICIMQualifierDecl::eFlavorToSubclass},
                                {"RESTRICTED", ICIMQualifierDecl::eFlavorNone},
                                {"TRANSLATABLE", ICIMQualifierDecl::eFlavorTranslatable},
                                {"DEFAULTS", ICIMQualifierDecl::eFlavorDefaults}};

/// The value of the keyword that is the whole text, or 0: a combination's text is no keyword.
template <std::size_t N>
unsigned int ValueOf(const std::string& text, const Keyword (&keywords)[N]) {
    for (const Keyword& keyword : keywords) {
        if (text == keyword.text) {
            return keyword.value;
        }
    }
    return 0;
}

}  // namespace

TCIMValue::TCIMType ToCoreType(Pegasus::CIMType type, bool isArray) {
    using Type = TCIMValue::TCIMType;
    if (type > Pegasus::CIMTYPE_REFERENCE) {
        return isArray ? Type::eUnknownArray : Type::eUnknown;
    }
    const int firstCode = isArray ? Type::eBooleanArray : Type::eBoolean;
    return static_cast<Type::ECIMType>(firstCode + static_cast<int>(type));
}

unsigned int ToCoreScope(const Pegasus::CIMScope& scope) {
    return ValueOf(ToText(scope.toString()), kScopes);
}

unsigned int ToCoreFlavor(const Pegasus::CIMFlavor& flavor) {
    return ValueOf(ToText(flavor.toString()), kFlavors);
}

unsigned int ToCoreQualifierFlavor(const Pegasus::CIMFlavor& flavor) {
    return flavor.hasFlavor(Pegasus::CIMFlavor::OVERRIDABLE)
               ? static_cast<unsigned int>(ICIMQualifierDecl::eFlavorEnableOverride)
               : ToCoreFlavor(flavor);
}

}  // namespace NQELVSK20
