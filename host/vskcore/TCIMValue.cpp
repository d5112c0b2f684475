#include "vskcore/TCIMValue.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>

#include "vskcore/CimNames.h"
#include "vskcore/HostState.h"

namespace NQELVSK20 {

namespace {

using TType = TCIMValue::TCIMType;
using TNumber = std::variant<long long, unsigned long long, double>;

bool IsArrayCode(TType::ECIMType type) {
    return type >= TType::eUnknownArray;
}

TType::ECIMType ScalarCode(TType::ECIMType type) {
    return IsArrayCode(type) ? static_cast<TType::ECIMType>(type - TType::eUnknownArray) : type;
}

template <typename TARGET>
TARGET FromReal(double real) {
    using Limits = std::numeric_limits<TARGET>;
    if constexpr (std::is_floating_point_v<TARGET>) {
        if (std::isfinite(real) && std::abs(real) > static_cast<double>(Limits::max())) {
            return real < 0 ? Limits::lowest() : Limits::max();
        }
    } else {
        if (std::isnan(real)) {
            return 0;
        }
        if (real >= static_cast<double>(Limits::max())) {
            return Limits::max();
        }
        if (real <= static_cast<double>(Limits::lowest())) {
            return Limits::lowest();
        }
    }
    return static_cast<TARGET>(real);
}

template <typename TARGET>
TARGET FromNumber(const TNumber& number) {
    return std::visit(
        [](auto content) {
            if constexpr (std::is_same_v<decltype(content), double>) {
                return FromReal<TARGET>(content);
            } else {
                return static_cast<TARGET>(content);
            }
        },
        number);
}

template <typename NUMBER>
bool Parse(std::string_view text, NUMBER& number) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end;
}

TNumber NumberOf(const std::string& text) {
    std::string_view digits = text;
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') {
        digits.remove_prefix(1);
    }
    long long integer = 0;
    unsigned long long large = 0;
    double real = 0;
    if (Parse(digits, integer)) {
        return integer;
    }
    if (Parse(digits, large)) {
        return large;
    }
    if (Parse(digits, real)) {
        return real;
    }
    return SameName(text, "true") ? 1LL : 0LL;
}

template <typename NUMBER, typename... FORM>
std::string TextOf(NUMBER number, FORM... form) {
    char text[80];  // 64 binary digits and a sign
    const auto result = std::to_chars(std::begin(text), std::end(text), number, form...);
    return std::string(text, result.ptr);
}

std::string Printed(const std::string& text, unsigned char base) {
    const auto& form = HostState().printedForm;
    return form ? form(text, base) : text;
}

}  // namespace

TCIMValue::TCIMValue() : type_(TCIMType::eUnknown) {}
TCIMValue::TCIMValue(bool value) : content_(value ? 1ULL : 0ULL), type_(TCIMType::eBoolean) {}
TCIMValue::TCIMValue(signed char value) : content_(static_cast<long long>(value)), type_(TCIMType::eSint8) {}
TCIMValue::TCIMValue(unsigned char value)
    : content_(static_cast<unsigned long long>(value)), type_(TCIMType::eUint8) {}
TCIMValue::TCIMValue(short value) : content_(static_cast<long long>(value)), type_(TCIMType::eSint16) {}
TCIMValue::TCIMValue(unsigned short value)
    : content_(static_cast<unsigned long long>(value)), type_(TCIMType::eUint16) {}
TCIMValue::TCIMValue(int value) : content_(static_cast<long long>(value)), type_(TCIMType::eSint32) {}
TCIMValue::TCIMValue(unsigned int value)
    : content_(static_cast<unsigned long long>(value)), type_(TCIMType::eUint32) {}
TCIMValue::TCIMValue(long long value) : content_(value), type_(TCIMType::eSint64) {}
TCIMValue::TCIMValue(unsigned long long value) : content_(value), type_(TCIMType::eUint64) {}
TCIMValue::TCIMValue(float value) : content_(static_cast<double>(value)), type_(TCIMType::eReal32) {}
TCIMValue::TCIMValue(double value) : content_(value), type_(TCIMType::eReal64) {}

TCIMValue::TCIMValue(const char* value) : type_(TCIMType::eString) {
    if (value != nullptr) {
        content_.emplace<std::string>(value);
    }
}

TCIMValue::TCIMValue(const std::string& value)
    : content_(std::in_place_type<std::string>, value), type_(TCIMType::eString) {}
TCIMValue::TCIMValue(const TCIMChar16& value)
    : content_(static_cast<unsigned long long>(value.GetCode())), type_(TCIMType::eChar16) {}
TCIMValue::TCIMValue(const TCIMDateTime& value)
    : content_(std::in_place_type<std::string>, value.ToString()), type_(TCIMType::eDateTime) {}
TCIMValue::TCIMValue(TCIMReference& value)
    : content_(std::make_shared<const TCIMReference>(value)), type_(TCIMType::eReference) {}

TCIMValue::TCIMValue(TCIMType type, unsigned int arraySize) : type_(type) {
    if (arraySize != 0) {
        content_.emplace<Elements>(arraySize, NullOf(ScalarCode(type)));
    }
}

TCIMValue::TCIMValue(TCIMType type, unsigned int arraySize, const std::vector<TCIMValue>& elements)
    : content_(std::in_place_type<Elements>, elements), type_(type) {
    if (arraySize != 0) {
        std::get<Elements>(content_).resize(arraySize, NullOf(ScalarCode(type)));
    }
}

TCIMValue::TCIMValue(const TCIMValue& other) = default;
TCIMValue::TCIMValue(TCIMValue&& other) noexcept = default;
TCIMValue::~TCIMValue() = default;

TCIMValue& TCIMValue::operator=(const TCIMValue& other) {
    return *this = TCIMValue(other);
}

TCIMValue& TCIMValue::operator=(TCIMValue&& other) noexcept {
    // The other may be one of this array's elements, which die with the content that is replaced last.
    type_ = other.type_;
    referencedClass_ = std::move(other.referencedClass_);
    Content content = std::move(other.content_);
    content_ = std::move(content);
    return *this;
}

TCIMValue TCIMValue::NullOf(TCIMType::ECIMType type) {
    TCIMValue value;
    value.type_ = type;
    return value;
}

/// The value that the conversions look at: this one, or the first element (of the first element...).
const TCIMValue& TCIMValue::First() const {
    static const TCIMValue null;
    const TCIMValue* value = this;
    while (const auto* elements = std::get_if<Elements>(&value->content_)) {
        value = elements->empty() ? &null : &elements->front();
    }
    return *value;
}

TNumber TCIMValue::ToNumber() const {
    return std::visit(
        [](const auto& content) -> TNumber {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_arithmetic_v<T>) {
                return content;
            } else if constexpr (std::is_same_v<T, std::string>) {
                return NumberOf(content);
            } else {
                return 0LL;  // null; a reference's path is never a number
            }
        },
        First().content_);
}

template <typename TARGET>
TARGET TCIMValue::ToArithmetic() const {
    return FromNumber<TARGET>(ToNumber());
}

TCIMValue::operator bool() const {
    return std::visit([](auto number) { return number < 0 || number > 0; }, ToNumber());
}

TCIMValue::operator signed char() const {
    return ToArithmetic<signed char>();
}

TCIMValue::operator unsigned char() const {
    return ToArithmetic<unsigned char>();
}

TCIMValue::operator short() const {
    return ToArithmetic<short>();
}

TCIMValue::operator unsigned short() const {
    return ToArithmetic<unsigned short>();
}

TCIMValue::operator int() const {
    return ToArithmetic<int>();
}

TCIMValue::operator unsigned int() const {
    return ToArithmetic<unsigned int>();
}

TCIMValue::operator long long() const {
    return ToArithmetic<long long>();
}

TCIMValue::operator unsigned long long() const {
    return ToArithmetic<unsigned long long>();
}

TCIMValue::operator float() const {
    return ToArithmetic<float>();
}

TCIMValue::operator double() const {
    return ToArithmetic<double>();
}

TCIMValue::operator std::string() const {
    const TCIMValue& value = First();
    const auto* text = std::get_if<std::string>(&value.content_);
    return text != nullptr ? *text : value.ToString(10);
}

TCIMValue::operator TCIMChar16() const {
    return TCIMChar16(std::to_string(ToArithmetic<unsigned short>()));
}

TCIMValue::operator TCIMDateTime() const {
    const auto* text = std::get_if<std::string>(&First().content_);
    return text != nullptr ? TCIMDateTime(*text) : TCIMDateTime();
}

TCIMValue::operator TCIMReference() const {
    const TCIMValue& value = First();
    if (const auto* reference = std::get_if<std::shared_ptr<const TCIMReference>>(&value.content_)) {
        return **reference;
    }
    TCIMReference reference(nullptr, {});
    if (const auto* text = std::get_if<std::string>(&value.content_)) {
        reference.SetPath(*text);
    }
    return reference;
}

TCIMValue::operator std::vector<TCIMValue>&() {
    // Where there are no elements, whatever a caller added to the stand-in must not meet the next caller.
    thread_local Elements none;
    if (auto* elements = std::get_if<Elements>(&content_)) {
        return *elements;
    }
    none.clear();
    return none;
}

TCIMValue::operator const std::vector<TCIMValue>&() const {
    static const Elements none;
    const auto* elements = std::get_if<Elements>(&content_);
    return elements != nullptr ? *elements : none;
}

bool TCIMValue::IsNull() const {
    return std::holds_alternative<std::monostate>(content_);
}

bool TCIMValue::IsArray() const {
    return IsArrayCode(type_) || std::holds_alternative<Elements>(content_);
}

bool TCIMValue::IsReference() const {
    return ElementType() == TCIMType::eReference;
}

TCIMValue::TCIMType TCIMValue::GetType() const {
    return type_;
}

TCIMValue::TCIMType::ECIMType TCIMValue::ElementType() const {
    return ScalarCode(type_);
}

std::string TCIMValue::ToString(unsigned char base) const {
    const int radix = base >= 2 && base <= 36 ? base : 10;
    if (const auto* elements = std::get_if<Elements>(&content_)) {
        std::string text;
        for (const TCIMValue& element : *elements) {
            if (&element != &elements->front()) {
                text += ',';
            }
            text += element.ToString(base);
        }
        return text;
    }
    if (IsNull()) {
        return {};
    }
    switch (type_) {
        case TCIMType::eBoolean:
            return *this ? "true" : "false";
        case TCIMType::eChar16:
            return TextOf(std::get<unsigned long long>(content_));
        case TCIMType::eReal32:
            return TextOf(static_cast<float>(std::get<double>(content_)));
        case TCIMType::eReal64:
            return TextOf(std::get<double>(content_));
        case TCIMType::eReference:
            return std::get<std::shared_ptr<const TCIMReference>>(content_)->GetPath();
        case TCIMType::eString:
        case TCIMType::eDateTime:
            return Printed(std::get<std::string>(content_), base);
        default:
            break;
    }
    const auto* integer = std::get_if<long long>(&content_);
    return integer != nullptr ? TextOf(*integer, radix)
                              : TextOf(std::get<unsigned long long>(content_), radix);
}

void TCIMValue::Set(const std::string& text) {
    *this = TCIMValue(text);
}

boost::shared_ptr<ICIMClass> TCIMValue::GetReferencedClass() const {
    return referencedClass_.lock();
}

void TCIMValue::SetReferencedClass(boost::shared_ptr<ICIMClass> referencedClass) {
    if (!IsReference()) {
        *this = NullOf(IsArray() ? TCIMType::eReferenceArray : TCIMType::eReference);
    }
    referencedClass_ = referencedClass;
}

bool TCIMValue::operator!=(const TCIMValue& other) const {
    if (ElementType() != other.ElementType() || IsArray() != other.IsArray() ||
        content_.index() != other.content_.index()) {
        return true;
    }
    if (const auto* elements = std::get_if<Elements>(&content_)) {
        const Elements& others = std::get<Elements>(other.content_);
        return !std::equal(elements->begin(), elements->end(), others.begin(), others.end(),
                           [](const TCIMValue& one, const TCIMValue& another) { return !(one != another); });
    }
    if (const auto* reference = std::get_if<std::shared_ptr<const TCIMReference>>(&content_)) {
        return !(**reference == *std::get<std::shared_ptr<const TCIMReference>>(other.content_));
    }
    return std::visit(
        [&other](const auto& content) {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, std::string>) {
                return content != std::get<T>(other.content_);
            }
            return false;  // both null
        },
        content_);
}

}  // namespace NQELVSK20
