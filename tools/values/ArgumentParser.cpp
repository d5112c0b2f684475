#include "tools/values/ArgumentParser.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "tools/common/DateTimeForm.h"
#include "tools/common/Integer.h"
#include "tools/common/Names.h"
#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"
#include "tools/common/Utf8.h"
#include "tools/values/CimTypeName.h"
#include "tools/values/ObjectPath.h"
#include "vskcore/ICIMParameterDecl.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using TType = TCIMValue::TCIMType;

/// One argument, for messages.
struct Argument {
    const std::string& name;
    TType type = TType::eUnknown;
    const std::string& text;
    const ValueMap* meanings = nullptr;

    [[noreturn]] void refuse(const std::string& expected) const {
        throw UsageError(name + " takes " + cimTypeName(type) +
                         (isArrayType(type) ? " values in brackets" : "") + ", not '" + cutTo(text, 20) +
                         "': " + expected + (meanings == nullptr ? "" : ", or one of " + meanings->texts()));
    }
};

template <typename NUMBER>
TCIMValue integerValue(const Argument& argument) {
    using NumberLimits = std::numeric_limits<NUMBER>;
    using Signed = long long;
    const auto number = parseInteger(argument.text);
    // The size of the lowest number is one more than that of the highest.
    constexpr unsigned long long highest = static_cast<unsigned long long>(NumberLimits::max());
    const bool fits =
        number && number->size <= (number->negative ? (NumberLimits::is_signed ? highest + 1 : 0) : highest);
    if (!fits) {
        argument.refuse("a whole number from " + std::to_string(NumberLimits::min()) + " to " +
                        std::to_string(NumberLimits::max()));
    }
    if (!number->negative) {
        return TCIMValue(static_cast<NUMBER>(number->size));
    }
    return TCIMValue(static_cast<NUMBER>(-static_cast<Signed>(number->size - 1) - 1));
}

template <typename NUMBER>
TCIMValue realValue(const Argument& argument) {
    const std::string& text = argument.text;
    const std::size_t start = text.size() > 1 && text[0] == '+' && text[1] != '-' ? 1 : 0;
    NUMBER number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + start, end, number);
    if (error != std::errc() || stop != end) {
        argument.refuse(error == std::errc::result_out_of_range ? "it is out of range"
                                                                : "a number is expected");
    }
    return TCIMValue(number);
}

TCIMValue booleanValue(const Argument& argument) {
    if (sameName(argument.text, "true")) {
        return TCIMValue(true);
    }
    if (!sameName(argument.text, "false")) {
        argument.refuse("true or false is expected");
    }
    return TCIMValue(false);
}

TCIMValue charValue(const Argument& argument) {
    const std::string& text = argument.text;
    const CodePoint point = text.empty() ? CodePoint() : codePointAt(text, 0);
    if (!point.valid || point.size != text.size() || point.value > 0xFFFF) {
        argument.refuse("one character is expected");
    }
    return TCIMValue(TCIMChar16(std::to_string(static_cast<unsigned>(point.value))));
}

TCIMValue dateTimeValue(const Argument& argument) {
    if (!isDateTime(argument.text)) {
        argument.refuse("25 characters, as 20240131235959.000000+060");
    }
    return TCIMValue(TCIMDateTime(argument.text));
}

/// Reads the elements of a list one after the other.
class ListReader {
public:
    explicit ListReader(const std::string& text) : text_(text), end_(text.size() - 1) {}

    std::vector<std::string> read() {
        std::vector<std::string> elements;
        skipBlanks();
        while (position_ < end_ || !elements.empty()) {
            elements.push_back(position_ < end_ && text_[position_] == '"' ? quoted() : bare());
            skipBlanks();
            if (position_ == end_) {
                break;
            }
            if (text_[position_] != ',') {
                throw UsageError("a comma is missing in '" + text_ + "' before '" + text_.substr(position_) +
                                 "'");
            }
            ++position_;
            skipBlanks();
        }
        return elements;
    }

private:
    void skipBlanks() {
        while (position_ < end_ && text_[position_] == ' ') {
            ++position_;
        }
    }

    std::string bare() {
        const std::size_t stop = std::min(text_.find(',', position_), end_);
        std::string element = text_.substr(position_, stop - position_);
        position_ = stop;
        element.erase(element.find_last_not_of(' ') + 1);
        return element;
    }

    std::string quoted() {
        std::string element;
        for (++position_; position_ < end_; ++position_) {
            if (text_[position_] == '"') {
                ++position_;
                return element;
            }
            position_ += text_[position_] == '\\' && position_ + 1 < end_ ? 1U : 0U;
            element += text_[position_];
        }
        throw UsageError("a quotation mark is missing in '" + text_ + "'");
    }

    const std::string& text_;
    std::size_t end_;  // of the elements: where the closing bracket stands
    std::size_t position_ = 1;
};

// The number that stands behind a name; the text as it is when it is none.
std::string meaningOf(const std::string& text, const ValueMap* meanings) {
    const auto value = meanings == nullptr || parseInteger(text) ? std::nullopt : meanings->valueOf(text);
    return value.value_or(text);
}

std::string parameterNames(const ICIMMethodDecl& method) {
    std::string names;
    method.EnumerateParameterDecls(
        [&](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
            names += (names.empty() ? "" : ", ") + parameter->GetName(TContext());
            return true;
        },
        TContext());
    return names.empty() ? "it takes none" : "it takes " + names;
}

}  // namespace

std::vector<std::string> parseList(const std::string& text) {
    if (text.size() < 2 || text.front() != '[' || text.back() != ']') {
        throw UsageError("'" + text + "' is no list: [a,b] is expected");
    }
    return ListReader(text).read();
}

ArgumentParser::ArgumentParser(const ICIMMethodDecl& method, MakeReference makeReference,
                               MeaningsOf meaningsOf)
    : method_(method), makeReference_(std::move(makeReference)), meaningsOf_(std::move(meaningsOf)) {}

TContext ArgumentParser::parse(const std::vector<std::string>& arguments) const {
    TContext values;
    for (const std::string& argument : arguments) {
        const std::size_t equals = argument.find('=');
        if (equals == std::string::npos) {
            throw UsageError("'" + argument + "': NAME=VALUE is expected");
        }
        const std::string name = argument.substr(0, equals);
        const auto parameter = isCimName(name) ? method_.GetParameterDecl(name, TContext()) : nullptr;
        if (!parameter) {
            throw UsageError(method_.GetName(TContext()) + " has no parameter '" + name + "'; " +
                             parameterNames(method_));
        }
        const std::string& declared = parameter->GetName(TContext());
        const ValueMap* const meanings = meaningsOf_ ? meaningsOf_(declared) : nullptr;
        const TCIMValue given =
            value(declared, parameter->GetType(TContext()), argument.substr(equals + 1), meanings);
        if (!values.emplace(declared, given).second) {
            throw UsageError("the parameter " + declared + " is given twice");
        }
    }
    return values;
}

TCIMValue ArgumentParser::value(const std::string& name, TType type, const std::string& text,
                                const ValueMap* meanings) const {
    return isArrayType(type) ? array(name, type, text, meanings) : scalar(name, type, text, meanings);
}

TCIMValue ArgumentParser::array(const std::string& name, TType type, const std::string& text,
                                const ValueMap* meanings) const {
    const TType element = scalarType(type);
    if (element == TType::eReference) {
        Argument{name, type, text}.refuse("arrays of references cannot be sent");
    }
    if (text.empty() || text.front() != '[') {
        Argument{name, type, text}.refuse(name + "=[a,b] is expected");
    }
    std::vector<TCIMValue> elements;
    for (const std::string& part : parseList(text)) {
        elements.push_back(scalar(name, element, part, meanings));
    }
    return TCIMValue(element, 0, elements);
}

TCIMValue ArgumentParser::scalar(const std::string& name, TType type, const std::string& text,
                                 const ValueMap* meanings) const {
    if (type != TType::eReference) {
        return parseScalar(name, type, text, meanings);
    }
    ObjectPath::parse(text);  // refuses what is none
    TCIMReference reference = makeReference_(text);
    return TCIMValue(reference);
}

TCIMValue parseScalar(const std::string& name, TType type, const std::string& text,
                      const ValueMap* meanings) {
    const std::string meant = meaningOf(text, meanings);
    const Argument argument{name, type, meant, meanings};
    switch (type) {
        case TType::eBoolean:
            return booleanValue(argument);
        case TType::eUint8:
            return integerValue<unsigned char>(argument);
        case TType::eSint8:
            return integerValue<signed char>(argument);
        case TType::eUint16:
            return integerValue<unsigned short>(argument);
        case TType::eSint16:
            return integerValue<short>(argument);
        case TType::eUint32:
            return integerValue<unsigned int>(argument);
        case TType::eSint32:
            return integerValue<int>(argument);
        case TType::eUint64:
            return integerValue<unsigned long long>(argument);
        case TType::eSint64:
            return integerValue<long long>(argument);
        case TType::eReal32:
            return realValue<float>(argument);
        case TType::eReal64:
            return realValue<double>(argument);
        case TType::eChar16:
            return charValue(argument);
        case TType::eString:
            return TCIMValue(text);
        case TType::eDateTime:
            return dateTimeValue(argument);
        default:
            argument.refuse("embedded objects cannot be sent");
    }
}

}  // namespace tool
