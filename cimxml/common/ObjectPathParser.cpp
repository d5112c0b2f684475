#include "cimxml/common/ObjectPathParser.h"

#include <algorithm>

#include "cimxml/common/HostName.h"
#include "cimxml/common/Numbers.h"
#include "cimxml/common/Utf8.h"

namespace Pegasus {

namespace {

char toUpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isReference(const std::string& text) {
    if (text.find('=') == std::string::npos) {
        return false;
    }
    try {
        return CIMObjectPath(fromUtf8(text)).getKeyBindings().size() > 0;
    } catch (const Exception&) {
        return false;
    }
}

}  // namespace

ObjectPathParser::ObjectPathParser(const String& objectName)
    // A NUL has never been more than the end of the text. NOLINTNEXTLINE(readability-redundant-string-cstr)
    : _objectName(objectName), _text(toUtf8(objectName).c_str()) {}

CIMObjectPathRep ObjectPathParser::parse() {
    const bool hasHost = takeHost();
    if (!takeNameSpace() && hasHost) {
        fail("host specified, missing namespace");
    }
    takeClassName();
    while (!atEnd()) {
        _result.keyBindings.append(takeKeyBinding());
        if (!atEnd() && _text[_position++] != ',') {
            fail("invalid key-value pair, next key-value pair has to start with comma");
        }
    }
    return std::move(_result);
}

bool ObjectPathParser::takeHost() {
    if (_text.compare(0, 2, "//") != 0) {
        return false;
    }
    _position = 2;
    const std::string host = takeUntil('/');
    if (atEnd()) {
        fail("missing slash after hostname");
    }
    if (!isValidHost(host)) {
        fail("invalid hostname");
    }
    _result.host = fromUtf8(host);
    return true;  // the slash is left to the namespace
}

bool ObjectPathParser::takeNameSpace() {
    // A colon behind the first dot belongs to a key's value.
    const std::size_t end = _text.find_first_of(":.", _position);
    if (end == std::string::npos || _text[end] == '.') {
        return false;
    }
    const String nameSpace = fromUtf8(takeUntil(':'));
    if (!CIMNamespaceName::legal(nameSpace)) {
        fail("invalid namespace name");
    }
    _result.nameSpace = nameSpace;
    ++_position;
    return true;
}

void ObjectPathParser::takeClassName() {
    const std::string name = takeUntil('.');
    const String className = fromUtf8(name);
    if (!CIMName::legal(className)) {
        fail("class name " + name + " not a legal CIM name");
    }
    _result.className = className;
    if (!atEnd()) {
        ++_position;
    }
}

CIMKeyBinding ObjectPathParser::takeKeyBinding() {
    const CIMName name = takeKeyName();
    switch (toUpperAscii(peek())) {
        case '"':
            return takeQuotedValue(name);
        case 'T':
        case 'F':
            return takeBooleanValue(name);
        default:
            return takeNumericValue(name);
    }
}

CIMName ObjectPathParser::takeKeyName() {
    const std::string text = takeUntil('=');
    if (atEnd()) {
        fail("invalid key-value pair, missing equal sign");
    }
    ++_position;
    const String name = fromUtf8(text);
    if (!CIMName::legal(name)) {
        fail("invalid key-value pair, invalid key name:" + text);
    }
    return CIMName(name);
}

CIMKeyBinding ObjectPathParser::takeQuotedValue(const CIMName& name) {
    std::string value;
    for (++_position; !atEnd() && peek() != '"'; ++_position) {
        if (peek() == '\\') {
            ++_position;
            if (peek() != '\\' && peek() != '"') {
                fail("invalid key-value pair, malformed value");
            }
        }
        value.push_back(peek());
    }
    if (atEnd()) {
        fail("invalid key-value pair, missing quote in key value");
    }
    ++_position;
    return {name, fromUtf8(value), isReference(value) ? CIMKeyBinding::REFERENCE : CIMKeyBinding::STRING};
}

CIMKeyBinding ObjectPathParser::takeBooleanValue(const CIMName& name) {
    std::string value = takeUntil(',');
    std::transform(value.begin(), value.end(), value.begin(), toUpperAscii);
    if (value != "TRUE" && value != "FALSE") {
        fail("invalid key-value pair, value should be TRUE or FALSE");
    }
    return {name, fromUtf8(value), CIMKeyBinding::BOOLEAN};
}

CIMKeyBinding ObjectPathParser::takeNumericValue(const CIMName& name) {
    const std::string value = takeUntil(',');
    if (value[0] == '-') {
        if (!parseSigned(value)) {
            fail("invalid key-value pair, invalid negative number value " + value);
        }
    } else if (!parseUnsigned(value)) {
        fail("invalid key-value pair, invalid number value " + value);
    }
    return {name, fromUtf8(value), CIMKeyBinding::NUMERIC};
}

std::string ObjectPathParser::takeUntil(char stop) {
    const std::size_t end = std::min(_text.find(stop, _position), _text.size());
    const std::string part = _text.substr(_position, end - _position);
    _position = end;
    return part;
}

void ObjectPathParser::fail(const std::string& reason) const {
    throw MalformedObjectNameException(_objectName + ", reason:\"" + fromUtf8(reason) + "\"");
}

}  // namespace Pegasus
