#include "tools/values/ObjectPath.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <system_error>

#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"
#include "tools/common/Utf8.h"
#include "tools/values/ArgumentParser.h"
#include "tools/values/CimTypeName.h"

namespace tool {

namespace {

using TType = NQELVSK20::TCIMValue::TCIMType;

constexpr std::size_t kLongestPiece = 20;

std::string piece(const std::string& text) {
    return "'" + cutTo(text, kLongestPiece) + "'";
}

[[noreturn]] void refuse(const std::string& text, const std::string& reason) {
    throw UsageError(piece(text) + " is no object path: " + reason);
}

// A character that is printed by its number: the digits behind `letter`, if these are that many.
std::optional<char32_t> numbered(const std::string& text, char letter, std::size_t digits) {
    unsigned number = 0;
    const char* const begin = text.data() + 1;
    if (text.front() != letter || text.size() < digits + 1) {
        return std::nullopt;
    }
    const auto [stop, error] = std::from_chars(begin, begin + digits, number, 16);
    return error == std::errc() && stop == begin + digits ? std::optional<char32_t>(number) : std::nullopt;
}

// Appends what stands for the text behind a backslash: what safeText writes for a character that is not safe,
// or the character itself. Returns how much of the text that is.
std::size_t appendEscaped(const std::string& text, std::string& value) {
    static const std::map<char, char> controls = {{'n', '\n'}, {'r', '\r'}, {'t', '\t'}};
    if (const auto control = controls.find(text.front()); control != controls.end()) {
        value += control->second;
        return 1;
    }
    for (const auto& [letter, digits] : {std::pair<char, std::size_t>{'x', 2}, {'u', 4}}) {
        if (const auto number = numbered(text, letter, digits)) {
            value += toUtf8(*number);
            return digits + 1;
        }
    }
    value += text.front();
    return 1;
}

/// Reads the keys, one after the other.
class KeyReader {
public:
    KeyReader(const std::string& text, std::size_t position) : text_(text), position_(position) {}

    bool atEnd() const { return position_ == text_.size(); }

    ObjectPath::Key next() {
        const std::size_t equals = text_.find('=', position_);
        if (equals == std::string::npos || !isCimName(text_.substr(position_, equals - position_))) {
            refuse(text_, "KEY=VALUE is expected at " + piece(text_.substr(position_)));
        }
        ObjectPath::Key key{text_.substr(position_, equals - position_), {}};
        position_ = equals + 1;
        key.text = !atEnd() && text_[position_] == '"' ? quoted() : bare();
        skipComma();
        return key;
    }

private:
    std::string bare() {
        const std::size_t end = std::min(text_.find(',', position_), text_.size());
        const std::string value = text_.substr(position_, end - position_);
        position_ = end;
        return value;
    }

    std::string quoted() {
        std::string value;
        for (std::size_t i = position_ + 1; i < text_.size(); ++i) {
            if (text_[i] == '"') {
                position_ = i + 1;
                return value;
            }
            if (text_[i] == '\\' && i + 1 < text_.size()) {
                i += appendEscaped(text_.substr(i + 1), value);
            } else {
                value += text_[i];
            }
        }
        refuse(text_, "a quotation mark is missing at the end");
    }

    void skipComma() {
        if (atEnd()) {
            return;
        }
        if (text_[position_] != ',' || position_ + 1 == text_.size()) {
            refuse(text_, "KEY=VALUE is expected at " + piece(text_.substr(position_)));
        }
        ++position_;
    }

    const std::string& text_;
    std::size_t position_;
};

std::size_t classBegin(const std::string& text, std::size_t classEnd) {
    std::size_t begin = 0;
    if (text.compare(0, 2, "//") == 0) {
        const std::size_t slash = text.find('/', 2);
        begin = slash == std::string::npos ? text.size() : slash + 1;
    }
    const std::size_t colon = classEnd == 0 ? std::string::npos : text.rfind(':', classEnd - 1);
    return colon != std::string::npos && colon >= begin ? colon + 1 : begin;
}

// The full stop before the keys: neither one of a host nor one inside a quoted value.
std::size_t classEnd(const std::string& text) {
    const std::size_t slash = text.compare(0, 2, "//") == 0 ? text.find('/', 2) : 0;
    return slash == std::string::npos ? text.size() : std::min(text.find('.', slash), text.size());
}

bool isBare(TType type) {
    const TType::ECIMType scalar = scalarType(type);
    return scalar >= TType::eBoolean && scalar <= TType::eReal64;
}

std::string escaped(const std::string& text) {
    std::string result;
    for (const char letter : text) {
        result += letter == '"' || letter == '\\' ? "\\" : "";
        result += letter;
    }
    return result;
}

std::string keyText(const ClassSchema::Property& property, const std::string& text) {
    const TType type = property.declaration->GetType(NQELVSK20::TContext());
    if (isBare(type)) {
        parseScalar("the key " + property.name, scalarType(type), text);
    }
    if (scalarType(type) == TType::eBoolean) {
        return property.name + '=' + (sameName(text, "true") ? "TRUE" : "FALSE");
    }
    return property.name + '=' + (isBare(type) ? text : '"' + escaped(text) + '"');
}

// Null when the path has all keys of the class.
const ClassSchema::Property* missingKey(const ObjectPath& path, const ClassSchema& schema) {
    for (const ClassSchema::Property& property : schema.properties()) {
        const bool isThere = std::any_of(path.keys.begin(), path.keys.end(), [&](const ObjectPath::Key& key) {
            return sameName(key.name, property.name);
        });
        if (schema.isKey(property.name) && !isThere) {
            return &property;
        }
    }
    return nullptr;
}

}  // namespace

ObjectPath ObjectPath::parse(const std::string& text) {
    const std::size_t end = classEnd(text);
    const std::size_t begin = std::min(classBegin(text, end), end);
    ObjectPath path;
    path.className = text.substr(begin, end - begin);
    if (!isCimName(path.className)) {
        refuse(text, "CLASS.KEY=VALUE,... is expected");
    }
    if (end == text.size()) {
        return path;
    }
    KeyReader reader(text, end + 1);
    do {
        path.keys.push_back(reader.next());
    } while (!reader.atEnd());
    return path;
}

bool ObjectPath::isSame(const ObjectPath& other) const {
    return sameName(className, other.className) && keys.size() == other.keys.size() &&
           std::all_of(keys.begin(), keys.end(), [&](const Key& key) {
               return std::any_of(other.keys.begin(), other.keys.end(), [&](const Key& its) {
                   return sameName(key.name, its.name) && key.text == its.text;
               });
           });
}

bool lacksKey(const ObjectPath& path, const ClassSchema& schema) {
    return missingKey(path, schema) != nullptr;
}

std::string instancePath(const ObjectPath& path, const ClassSchema& schema) {
    if (const ClassSchema::Property* missing = missingKey(path, schema)) {
        throw UsageError("the path lacks the key " + missing->name);
    }
    std::vector<ObjectPath::Key> keys = path.keys;
    std::sort(keys.begin(), keys.end(),
              [](const auto& one, const auto& other) { return NameLess()(one.name, other.name); });
    const std::string& className = schema.cimClass().GetName(NQELVSK20::TContext());
    std::string text = className;
    for (const ObjectPath::Key& key : keys) {
        const ClassSchema::Property* property = schema.findProperty(key.name);
        if (property == nullptr || !schema.isKey(key.name)) {
            throw UsageError(className + " has no key " + key.name);
        }
        text += (&key == &keys.front() ? "." : ",") + keyText(*property, key.text);
    }
    return text;
}

}  // namespace tool
