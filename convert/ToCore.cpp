#include "convert/ToCore.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Char16.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "provider/contract/HostCodes.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMQualifierDecl.h"
#include "vskcore/TCIMChar16.h"
#include "vskcore/TCIMDateTime.h"
#include "vskcore/TCIMReference.h"

namespace NQELVSK20 {
namespace {

/// The content of a value; of a null one the type's zero, which the remote library leaves untouched.
template <class T>
T Read(const Pegasus::CIMValue& value) {
    T content{};
    value.get(content);
    return content;
}

template <class TNumber>
TCIMValue ToCore(TNumber number) {
    return TCIMValue(number);
}

// A char16 goes over as the decimal text of its code, the character A as "65": kept, hosts rely on it.
TCIMValue ToCore(const Pegasus::Char16& character) {
    return TCIMValue(TCIMChar16(std::to_string(Pegasus::Uint16(character))));
}

TCIMValue ToCore(const Pegasus::String& text) {
    return TCIMValue(static_cast<const char*>(text.getCString()));
}

TCIMValue ToCore(const Pegasus::CIMDateTime& time) {
    return TCIMValue(TCIMDateTime(ToText(time.toString())));
}

template <class T>
TCIMValue ScalarToCore(const Pegasus::CIMValue& value) {
    return ToCore(Read<T>(value));
}

// Compared rather than read, so that a value of another type is false instead of an exception.
template <>
TCIMValue ScalarToCore<Pegasus::Boolean>(const Pegasus::CIMValue& value) {
    static const Pegasus::CIMValue kTrue(Pegasus::Boolean(true));
    return TCIMValue(value == kTrue);
}

template <class T>
std::vector<TCIMValue> ElementsToCore(const Pegasus::CIMValue& value) {
    const auto remote = Read<Pegasus::Array<T>>(value);
    std::vector<TCIMValue> elements;
    elements.reserve(remote.size());
    for (Pegasus::Uint32 i = 0; i < remote.size(); ++i) {
        elements.push_back(ToCore(remote[i]));
    }
    return elements;
}

struct Conversion {
    TCIMValue (*scalar)(const Pegasus::CIMValue& value);
    std::vector<TCIMValue> (*elements)(const Pegasus::CIMValue& value);
};

template <class T>
constexpr Conversion kConversionOf = {ScalarToCore<T>, ElementsToCore<T>};

/// Indexed by the remote type's number. References follow their own rule.
constexpr Conversion kConversions[] = {
    kConversionOf<Pegasus::Boolean>,     // CIMTYPE_BOOLEAN = 0
    kConversionOf<Pegasus::Uint8>,       // CIMTYPE_UINT8
    kConversionOf<Pegasus::Sint8>,       // CIMTYPE_SINT8
    kConversionOf<Pegasus::Uint16>,      // CIMTYPE_UINT16
    kConversionOf<Pegasus::Sint16>,      // CIMTYPE_SINT16
    kConversionOf<Pegasus::Uint32>,      // CIMTYPE_UINT32
    kConversionOf<Pegasus::Sint32>,      // CIMTYPE_SINT32
    kConversionOf<Pegasus::Uint64>,      // CIMTYPE_UINT64
    kConversionOf<Pegasus::Sint64>,      // CIMTYPE_SINT64
    kConversionOf<Pegasus::Real32>,      // CIMTYPE_REAL32
    kConversionOf<Pegasus::Real64>,      // CIMTYPE_REAL64
    kConversionOf<Pegasus::Char16>,      // CIMTYPE_CHAR16
    kConversionOf<Pegasus::String>,      // CIMTYPE_STRING
    kConversionOf<Pegasus::CIMDateTime>  // CIMTYPE_DATETIME = 13
};
static_assert(std::size(kConversions) == Pegasus::CIMTYPE_REFERENCE,
              "one row for each type before references");

TCIMValue ReferenceToCore(const Pegasus::CIMValue& value, const boost::shared_ptr<ICIMClass>& owningClass) {
    TCIMReference reference(nullptr, {});
    if (PointerIsSet(owningClass != nullptr, "ConvertToCoreValue")) {
        reference.SetNamespace(owningClass->GetNamespace(TContext()));
    }
    reference.SetPath(ToText(Read<Pegasus::CIMObjectPath>(value).toString()));
    return TCIMValue(reference);
}

struct Keyword {
    const char* text;
    unsigned int value;
};

constexpr Keyword kScopes[] = {{"CLASS", kScopeClass},           {"ASSOCIATION", kScopeAssociation},
                               {"INDICATION", kScopeIndication}, {"PROPERTY", kScopeProperty},
                               {"REFERENCE", kScopeReference},   {"METHOD", kScopeMethod},
                               {"PARAMETER", kScopeParameter},   {"ANY", kScopeAny}};

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

void ConvertToCoreValue(const std::string& /*name*/, const Pegasus::CIMValue& value, Pegasus::CIMType type,
                        bool isArray, TCIMValue& out, const boost::shared_ptr<ICIMClass>& owningClass) {
    if (type < Pegasus::CIMTYPE_REFERENCE) {
        const Conversion& conversion = kConversions[type];
        // The host expects the element's scalar code here, not the array code.
        out = isArray ? TCIMValue(ToCoreType(type, false), 0, conversion.elements(value))
                      : conversion.scalar(value);
    } else if (type == Pegasus::CIMTYPE_REFERENCE && !isArray) {
        out = ReferenceToCore(value, owningClass);
    }
}

TCIMValue::TCIMType ToCoreType(Pegasus::CIMType type, bool isArray) {
    if (type > Pegasus::CIMTYPE_REFERENCE) {
        return isArray ? kTypeUnknownArray : kTypeUnknown;
    }
    const int firstCode = isArray ? kTypeBooleanArray : kTypeBoolean;
    return static_cast<TypeCode>(firstCode + static_cast<int>(type));
}

unsigned int ToCoreScope(const Pegasus::CIMScope& scope) {
    return ValueOf(ToText(scope.toString()), kScopes);
}

unsigned int ToCoreFlavor(const Pegasus::CIMFlavor& flavor) {
    if (flavor.equal(Pegasus::CIMFlavor::TOSUBCLASS)) {
        return kFlavorToSubclass;
    }
    // OVERRIDABLE gives no bit: kept, hosts rely on it.
    return flavor.equal(Pegasus::CIMFlavor::TRANSLATABLE) ? kFlavorTranslatable : kFlavorNone;
}

unsigned int ToCoreQualifierFlavor(const Pegasus::CIMFlavor& flavor) {
    return flavor.hasFlavor(Pegasus::CIMFlavor::OVERRIDABLE)
               ? static_cast<unsigned int>(kFlavorEnableOverride)
               : ToCoreFlavor(flavor);
}

}  // namespace NQELVSK20
