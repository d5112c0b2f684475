#include "tools/values/ObjectPath.h"

#include <algorithm>

#include "tools/common/UsageError.h"
#include "tools/values/CimTypeName.h"

namespace tool {

namespace {

using TType = NQELVSK20::TCIMValue::TCIMType;

[[noreturn]] void refuse(const std::string& text, const std::string& reason) {
    throw UsageError("'" + text + "' is no object path: " + reason);
}

/// Reads the keys, one after the other.
class KeyReader {
public:
    KeyReader(const std::string& text, std::size_t position) : text_(text), position_(position) {}

    bool atEnd() const { return position_ == text_.size(); }

    ObjectPath::Key next() {
        const std::size_t equals = text_.find('=', position_);
        if (equals == std::string::npos || !isCimName(text_.substr(position_, equals - position_))) {
            refuse(text_, "KEY=VALUE is expected at '" + text_.substr(position_) + "'");
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
            i += text_[i] == '\\' && i + 1 < text_.size() ? 1U : 0U;
            value += text_[i];
        }
        refuse(text_, "a quotation mark is missing at the end");
    }

    void skipComma() {
        if (atEnd()) {
            return;
        }
        if (text_[position_] != ',' || position_ + 1 == text_.size()) {
            refuse(text_, "another KEY=VALUE is expected at '" + text_.substr(position_) + "'");
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
    if (scalarType(type) == TType::eBoolean) {
        return property.name + '=' + (sameName(text, "true") ? "TRUE" : "FALSE");
    }
    return property.name + '=' + (isBare(type) ? text : '"' + escaped(text) + '"');
}

void requireAllKeys(const std::vector<ObjectPath::Key>& keys, const ClassSchema& schema) {
    for (const ClassSchema::Property& property : schema.properties()) {
        const bool isThere = std::any_of(keys.begin(), keys.end(), [&](const ObjectPath::Key& key) {
            return sameName(key.name, property.name);
        });
        if (schema.isKey(property.name) && !isThere) {
            throw UsageError("the path lacks the key " + property.name);
        }
    }
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

std::string instancePath(const ObjectPath& path, const ClassSchema& schema) {
    requireAllKeys(path.keys, schema);
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
