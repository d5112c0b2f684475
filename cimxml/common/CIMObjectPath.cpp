#include <Pegasus/Common/CIMObjectPath.h>

#include <algorithm>
#include <vector>

#include "cimxml/common/CIMObjectPathRep.h"
#include "cimxml/common/HostName.h"
#include "cimxml/common/Numbers.h"
#include "cimxml/common/ObjectPathParser.h"
#include "cimxml/common/Utf8.h"

namespace Pegasus {

namespace {

void checkHost(const String& host) {
    if (host.size() != 0 && !isValidHost(toUtf8(host))) {
        throw MalformedObjectNameException(host + ", reason:\"invalid hostname\"");
    }
}

bool hasReference(const Array<CIMKeyBinding>& keys) {
    const CIMKeyBinding* const first = keys.getData();
    return std::any_of(first, first + keys.size(),
                       [](const CIMKeyBinding& key) { return key.getType() == CIMKeyBinding::REFERENCE; });
}

bool isNameLess(const CIMKeyBinding& x, const CIMKeyBinding& y) {
    return String::compareNoCase(x.getName().getString(), y.getName().getString()) < 0;
}

/// The same keys sorted by name, with references in their one text form.
Array<CIMKeyBinding> sorted(const Array<CIMKeyBinding>& keys) {
    const CIMKeyBinding* const first = keys.getData();
    if (!hasReference(keys) && std::is_sorted(first, first + keys.size(), isNameLess)) {
        return keys;
    }
    Array<CIMKeyBinding> result(keys);
    for (Uint32 i = 0; i < result.size(); ++i) {
        CIMKeyBinding& key = result[i];
        if (key.getType() == CIMKeyBinding::REFERENCE) {
            key.setValue(CIMObjectPath(key.getValue()).toString());
        }
    }
    if (result.size() > 0) {
        std::stable_sort(&result[0], &result[0] + result.size(), isNameLess);
    }
    return result;
}

bool isQuoted(CIMKeyBinding::Type type) {
    return type == CIMKeyBinding::STRING || type == CIMKeyBinding::REFERENCE;
}

void appendEscaped(std::string& out, const String& value) {
    for (const char c : toUtf8(value)) {
        if (c == '\\' || c == '"') {
            out.push_back('\\');
        }
        out.push_back(c);
    }
}

void appendKey(std::string& out, const CIMKeyBinding& key) {
    const char* const quote = isQuoted(key.getType()) ? "\"" : "";
    appendUtf8(out, key.getName().getString());
    out += "=";
    out += quote;
    appendEscaped(out, key.getValue());
    out += quote;
}

String lower(String text) {
    text.toLower();
    return text;
}

String canonicalNumber(const String& value) {
    const std::string text = toUtf8(value);
    if (const auto number = parseUnsigned(text)) {
        return fromUtf8(std::to_string(*number));
    }
    if (const auto number = parseSigned(text)) {
        return fromUtf8(std::to_string(*number));
    }
    return value;
}

Uint32 hashPath(const CIMObjectPath& path);

Uint32 hashReference(const String& value);

/// A key's value as all equal values have it.
std::string canonicalValue(const CIMKeyBinding& key) {
    switch (key.getType()) {
        case CIMKeyBinding::REFERENCE:
            return std::to_string(hashReference(key.getValue()));
        case CIMKeyBinding::BOOLEAN:
            return toUtf8(lower(key.getValue()));
        case CIMKeyBinding::NUMERIC:
            return toUtf8(canonicalNumber(key.getValue()));
        case CIMKeyBinding::STRING:
            break;
    }
    return toUtf8(key.getValue());
}

Uint32 hashText(const std::string& text) {
    Uint32 hash = 2166136261u;  // FNV-1a
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    }
    return hash;
}

Uint32 hashReference(const String& value) {
    try {
        return hashPath(CIMObjectPath(value));
    } catch (const Exception&) {
        return hashText(toUtf8(value));
    }
}

Uint32 hashPath(const CIMObjectPath& path) {
    std::string text;
    appendUtf8(text, lower(path.getHost()));
    text += '/';
    appendUtf8(text, lower(path.getNameSpace().getString()));
    text += ':';
    appendUtf8(text, lower(path.getClassName().getString()));
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i) {
        text += ',';
        appendUtf8(text, lower(keys[i].getName().getString()));
        text += '=' + canonicalValue(keys[i]);
    }
    return hashText(text);
}

}  // namespace

CIMObjectPath::CIMObjectPath(const String& objectName) {
    set(objectName);
}

CIMObjectPath::CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                             const Array<CIMKeyBinding>& keyBindings) {
    set(host, nameSpace, className, keyBindings);
}

CIMObjectPath& CIMObjectPath::operator=(const String& objectName) {
    set(objectName);
    return *this;
}

void CIMObjectPath::set(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                        const Array<CIMKeyBinding>& keyBindings) {
    checkHost(host);
    _rep =
        std::make_shared<CIMObjectPathRep>(CIMObjectPathRep{host, nameSpace, className, sorted(keyBindings)});
}

void CIMObjectPath::set(const String& objectName) {
    CIMObjectPathRep rep = ObjectPathParser(objectName).parse();
    rep.keyBindings = sorted(rep.keyBindings);
    _rep = std::make_shared<CIMObjectPathRep>(std::move(rep));
}

const String& CIMObjectPath::getHost() const {
    return rep().host;
}

void CIMObjectPath::setHost(const String& host) {
    checkHost(host);
    ownRep().host = host;
}

const CIMNamespaceName& CIMObjectPath::getNameSpace() const {
    return rep().nameSpace;
}

void CIMObjectPath::setNameSpace(const CIMNamespaceName& nameSpace) {
    ownRep().nameSpace = nameSpace;
}

const CIMName& CIMObjectPath::getClassName() const {
    return rep().className;
}

void CIMObjectPath::setClassName(const CIMName& className) {
    ownRep().className = className;
}

const Array<CIMKeyBinding>& CIMObjectPath::getKeyBindings() const {
    return rep().keyBindings;
}

void CIMObjectPath::setKeyBindings(const Array<CIMKeyBinding>& keyBindings) {
    ownRep().keyBindings = sorted(keyBindings);
}

String CIMObjectPath::toString() const {
    const CIMObjectPathRep& path = rep();
    std::string out;
    if (path.host.size() > 0) {
        out += "//";
        appendUtf8(out, path.host);
        out += "/";
    }
    if (path.host.size() > 0 || !path.nameSpace.isNull()) {
        appendUtf8(out, path.nameSpace.getString());
        out += ":";
    }
    appendUtf8(out, path.className.getString());
    for (Uint32 i = 0; i < path.keyBindings.size(); ++i) {
        out += i == 0 ? "." : ",";
        appendKey(out, path.keyBindings[i]);
    }
    return fromUtf8(out);
}

Boolean CIMObjectPath::identical(const CIMObjectPath& x) const {
    if (_rep == x._rep) {
        return true;
    }
    const CIMObjectPathRep& left = rep();
    const CIMObjectPathRep& right = x.rep();
    const CIMKeyBinding* const keys = left.keyBindings.getData();
    return String::equalNoCase(left.host, right.host) && left.nameSpace.equal(right.nameSpace) &&
           left.className.equal(right.className) && left.keyBindings.size() == right.keyBindings.size() &&
           std::equal(keys, keys + left.keyBindings.size(), right.keyBindings.getData());
}

Uint32 CIMObjectPath::makeHashCode() const {
    return hashPath(*this);
}

const CIMObjectPathRep& CIMObjectPath::rep() const {
    static const CIMObjectPathRep empty;
    return _rep ? *_rep : empty;
}

CIMObjectPathRep& CIMObjectPath::ownRep() {
    if (_rep.use_count() != 1) {
        _rep = std::make_shared<CIMObjectPathRep>(rep());
    }
    return *_rep;
}

Boolean operator==(const CIMObjectPath& x, const CIMObjectPath& y) {
    return x.identical(y);
}

Boolean operator!=(const CIMObjectPath& x, const CIMObjectPath& y) {
    return !x.identical(y);
}

}  // namespace Pegasus
