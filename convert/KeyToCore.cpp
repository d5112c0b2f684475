#include "convert/KeyToCore.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>

#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "provider/contract/HostCodes.h"
#include "provider/contract/PegText.h"
#include "vskcore/TCIMChar16.h"
#include "vskcore/TCIMDateTime.h"
#include "vskcore/TCIMReference.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;
using Key = Pegasus::CIMKeyBinding;

/// An integer as its digits tell it, before it is asked whether a type holds it.
struct Integer {
    bool isNegative = false;
    unsigned long long magnitude = 0;
};

template <class TNumber, class... TForm>
bool ReadsWhole(std::string_view digits, TNumber& number, TForm... form) {
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, form...);
    return !digits.empty() && error == std::errc() && stop == end;
}

/// Takes a sign off the front; true for a minus.
bool TakeSign(std::string_view& text) {
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    return isNegative;
}

std::optional<Integer> ReadInteger(std::string_view text) {
    Integer integer;
    integer.isNegative = TakeSign(text);
    int base = 10;
    if (text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X") {
        text.remove_prefix(2);
        base = 16;
    }
    return ReadsWhole(text, integer.magnitude, base) ? std::optional<Integer>(integer) : std::nullopt;
}

template <class TInteger>
bool Holds(const Integer& integer) {
    constexpr auto kLargest = static_cast<unsigned long long>(std::numeric_limits<TInteger>::max());
    if (!integer.isNegative) {
        return integer.magnitude <= kLargest;
    }
    return integer.magnitude == 0 ||
           (std::numeric_limits<TInteger>::is_signed && integer.magnitude <= kLargest + 1);
}

/// The integer as a type that holds it. Negation is modular: it is exact also for the smallest number.
template <class TInteger>
TCIMValue ValueOf(const Integer& integer) {
    return TCIMValue(static_cast<TInteger>(integer.isNegative ? 0 - integer.magnitude : integer.magnitude));
}

template <class TInteger>
std::optional<TCIMValue> ToInteger(const std::string& text) {
    const auto integer = ReadInteger(text);
    return integer && Holds<TInteger>(*integer) ? std::optional<TCIMValue>(ValueOf<TInteger>(*integer))
                                                : std::nullopt;
}

template <class TReal>
std::optional<TCIMValue> ToReal(const std::string& text) {
    std::string_view digits = text;
    TReal real = 0;
    // from_chars takes a minus, but no plus.
    if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-') {
        digits.remove_prefix(1);
    }
    return ReadsWhole(digits, real) ? std::optional<TCIMValue>(TCIMValue(real)) : std::nullopt;
}

std::optional<TCIMValue> ToBoolean(const std::string& written) {
    const std::string text = LowerCase(written);
    if (text != "true" && text != "false") {
        return std::nullopt;
    }
    return TCIMValue(text == "true");
}

// By the decimal text of its code, as any char16.
std::optional<TCIMValue> ToChar16(const Pegasus::String& text) {
    if (text.size() != 1) {
        return std::nullopt;
    }
    return TCIMValue(TCIMChar16(std::to_string(static_cast<Pegasus::Uint16>(text[0]))));
}

std::optional<TCIMValue> ToDateTime(const Pegasus::String& text) {
    try {
        return TCIMValue(TCIMDateTime(ToText(Pegasus::CIMDateTime(text).toString())));
    } catch (const Pegasus::Exception&) {
        return std::nullopt;
    }
}

std::optional<TCIMValue> ToReference(const std::string& path,
                                     const boost::shared_ptr<ICIMNamespace>& nameSpace) {
    TCIMReference reference(nameSpace, TContext());
    reference.SetPath(path);
    return TCIMValue(reference);
}

std::optional<TCIMValue> ToNumber(const std::string& text) {
    if (const auto integer = ReadInteger(text)) {
        if (Holds<unsigned long long>(*integer)) {
            return ValueOf<unsigned long long>(*integer);
        }
        if (Holds<long long>(*integer)) {
            return ValueOf<long long>(*integer);
        }
    }
    return ToReal<double>(text);
}

Type TypeOfKind(Key::Type kind) {
    switch (kind) {
        case Key::BOOLEAN:
            return kTypeBoolean;
        case Key::REFERENCE:
            return kTypeReference;
        case Key::NUMERIC:
            return kTypeUnknown;
        default:
            return kTypeString;
    }
}

std::optional<TCIMValue> Convert(const Key& key, Type type,
                                 const boost::shared_ptr<ICIMNamespace>& nameSpace) {
    const std::string text = ToText(key.getValue());
    switch (type) {
        case kTypeUnknown:
            return ToNumber(text);
        case kTypeBoolean:
            return ToBoolean(text);
        case kTypeUint8:
            return ToInteger<unsigned char>(text);
        case kTypeSint8:
            return ToInteger<signed char>(text);
        case kTypeUint16:
            return ToInteger<unsigned short>(text);
        case kTypeSint16:
            return ToInteger<short>(text);
        case kTypeUint32:
            return ToInteger<unsigned int>(text);
        case kTypeSint32:
            return ToInteger<int>(text);
        case kTypeUint64:
            return ToInteger<unsigned long long>(text);
        case kTypeSint64:
            return ToInteger<long long>(text);
        case kTypeReal32:
            return ToReal<float>(text);
        case kTypeReal64:
            return ToReal<double>(text);
        case kTypeChar16:
            return ToChar16(key.getValue());
        case kTypeString:
            return TCIMValue(text);
        case kTypeDateTime:
            return ToDateTime(key.getValue());
        case kTypeReference:
            return ToReference(text, nameSpace);
        default:
            return std::nullopt;  // an array is no key
    }
}

}  // namespace

bool ConvertKeyToCoreValue(const Pegasus::CIMKeyBinding& key, TCIMValue::TCIMType declared,
                           const boost::shared_ptr<ICIMNamespace>& nameSpace, TCIMValue& out) {
    const Type type = declared == kTypeUnknown ? TypeOfKind(key.getType()) : declared;
    const auto value = Convert(key, type, nameSpace);
    out = value ? *value : TCIMValue(ToText(key.getValue()));
    return value.has_value();
}

}  // namespace NQELVSK20
