#include "tests/cimxml/wire_Outcome.h"

#include <Pegasus/Client/CIMClientException.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include <map>
#include <sstream>
#include <stdexcept>

#include "cimxml/common/Utf8.h"
#include "cimxml/wire/Scalars.h"

namespace cimxml_test {

using namespace Pegasus;

namespace {

// ---- results in text ----

std::string text(const String& value) {
    return toUtf8(value);
}

std::string text(const CIMName& name) {
    return name.isNull() ? "(none)" : text(name.getString());
}

std::string typeText(CIMType type, bool array) {
    return std::string(cimTypeToString(type)) + (array ? "[]" : "");
}

/// Control characters of a value are shown as numbers, so that a value is one line.
std::string visible(const std::string& value) {
    std::ostringstream out;
    for (const char c : value) {
        if (static_cast<unsigned char>(c) < 0x20) {
            out << "{" << static_cast<int>(c) << "}";
        } else {
            out << c;
        }
    }
    return out.str();
}

template <typename T>
std::string elementsText(const CIMValue& value) {
    Array<T> elements;
    value.get(elements);
    std::string out = "[";
    for (Uint32 i = 0; i < elements.size(); ++i) {
        out += (i > 0 ? "|" : "") + visible(text(CIMValue(elements[i]).toString()));
    }
    return out + "]";
}

void describe(std::ostream& out, const CIMConstObject& object, const std::string& indent);

template <typename T>
void describeEmbedded(std::ostream& out, const CIMValue& value, const std::string& indent) {
    Array<T> objects;
    if (value.isArray()) {
        value.get(objects);
    } else {
        T object;
        value.get(object);
        objects.append(object);
    }
    for (Uint32 i = 0; i < objects.size(); ++i) {
        describe(out, objects[i], indent + "  ");
    }
}

std::string valueText(const CIMValue& value) {
    if (value.isNull()) {
        return "null";
    }
    if (!value.isArray()) {
        return visible(text(value.toString()));
    }
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            return elementsText<Boolean>(value);
        case CIMTYPE_UINT8:
            return elementsText<Uint8>(value);
        case CIMTYPE_SINT8:
            return elementsText<Sint8>(value);
        case CIMTYPE_UINT16:
            return elementsText<Uint16>(value);
        case CIMTYPE_SINT16:
            return elementsText<Sint16>(value);
        case CIMTYPE_UINT32:
            return elementsText<Uint32>(value);
        case CIMTYPE_SINT32:
            return elementsText<Sint32>(value);
        case CIMTYPE_UINT64:
            return elementsText<Uint64>(value);
        case CIMTYPE_SINT64:
            return elementsText<Sint64>(value);
        case CIMTYPE_REAL32:
            return elementsText<Real32>(value);
        case CIMTYPE_REAL64:
            return elementsText<Real64>(value);
        case CIMTYPE_CHAR16:
            return elementsText<Char16>(value);
        case CIMTYPE_STRING:
            return elementsText<String>(value);
        case CIMTYPE_DATETIME:
            return elementsText<CIMDateTime>(value);
        case CIMTYPE_REFERENCE:
            return elementsText<CIMObjectPath>(value);
        default:
            return "?";
    }
}

/// ` = value` and a line end; an embedded object follows on lines of its own.
void describeValue(std::ostream& out, const CIMValue& value, const std::string& indent) {
    const bool embedded = value.getType() == CIMTYPE_OBJECT || value.getType() == CIMTYPE_INSTANCE;
    if (!embedded || value.isNull()) {
        out << " = " << valueText(value) << "\n";
        return;
    }
    out << " =\n";
    value.getType() == CIMTYPE_OBJECT ? describeEmbedded<CIMObject>(out, value, indent)
                                      : describeEmbedded<CIMInstance>(out, value, indent);
}

template <typename Owner>
void describeQualifiers(std::ostream& out, const Owner& owner, const std::string& indent) {
    for (Uint32 i = 0; i < owner.getQualifierCount(); ++i) {
        const CIMConstQualifier qualifier = owner.getQualifier(i);
        out << indent << "@" << typeText(qualifier.getType(), qualifier.isArray()) << " "
            << text(qualifier.getName()) << " = " << valueText(qualifier.getValue()) << " {"
            << text(qualifier.getFlavor().toString()) << "}"
            << (qualifier.getPropagated() ? " propagated" : "") << "\n";
    }
}

template <typename Element>
std::string originText(const Element& element) {
    return (element.getClassOrigin().isNull() ? "" : " from " + text(element.getClassOrigin())) +
           (element.getPropagated() ? " propagated" : "");
}

std::string sizeText(Uint32 size) {
    return size == 0 ? "" : " size " + std::to_string(size);
}

std::string referenceText(const CIMName& name) {
    return name.isNull() ? "" : " to " + text(name);
}

void describeProperty(std::ostream& out, const CIMConstProperty& property, const std::string& indent) {
    out << indent << typeText(property.getType(), property.isArray()) << " " << text(property.getName())
        << sizeText(property.getArraySize()) << referenceText(property.getReferenceClassName())
        << originText(property);
    describeValue(out, property.getValue(), indent);
    describeQualifiers(out, property, indent + "  ");
}

void describeMethod(std::ostream& out, const CIMConstMethod& method, const std::string& indent) {
    out << indent << "method " << typeText(method.getType(), false) << " " << text(method.getName())
        << originText(method) << "\n";
    describeQualifiers(out, method, indent + "  ");
    for (Uint32 i = 0; i < method.getParameterCount(); ++i) {
        const CIMConstParameter parameter = method.getParameter(i);
        out << indent << "  parameter " << typeText(parameter.getType(), parameter.isArray()) << " "
            << text(parameter.getName()) << sizeText(parameter.getArraySize())
            << referenceText(parameter.getReferenceClassName()) << "\n";
        describeQualifiers(out, parameter, indent + "    ");
    }
}

std::string headText(const CIMConstObject& object) {
    if (object.isClass()) {
        const CIMConstClass cimClass(object);
        return "class " + text(cimClass.getClassName()) +
               (cimClass.getSuperClassName().isNull() ? "" : " : " + text(cimClass.getSuperClassName()));
    }
    return "instance " + text(object.getClassName()) + " at " + text(object.getPath().toString());
}

void describe(std::ostream& out, const CIMConstObject& object, const std::string& indent) {
    if (object.isUninitialized()) {
        out << indent << "nothing\n";
        return;
    }
    out << indent << headText(object) << "\n";
    describeQualifiers(out, object, indent + "  ");
    for (Uint32 i = 0; i < object.getPropertyCount(); ++i) {
        describeProperty(out, object.getProperty(i), indent + "  ");
    }
    const CIMConstClass cimClass = object.isClass() ? CIMConstClass(object) : CIMConstClass();
    for (Uint32 i = 0; !cimClass.isUninitialized() && i < cimClass.getMethodCount(); ++i) {
        describeMethod(out, cimClass.getMethod(i), indent + "  ");
    }
}

template <typename Element, typename Describe>
void describeAll(std::ostream& out, const Array<Element>& elements, Describe describeOne) {
    out << elements.size() << (elements.size() == 1 ? " result\n" : " results\n");
    for (Uint32 i = 0; i < elements.size(); ++i) {
        describeOne(elements[i]);
    }
}

// ---- calls ----

class Call {
public:
    explicit Call(const std::vector<std::string>& lines) {
        std::istringstream first(lines.at(0));
        first >> operation_ >> nameSpace_;
        std::getline(first >> std::ws, object_);
        if (nameSpace_ == "(none)") {
            nameSpace_.clear();
        }
        for (std::size_t i = 1; i < lines.size(); ++i) {
            readLine(lines[i]);
        }
    }

    void run(CIMClientRep& client, std::ostream& out) {
        const CIMNamespaceName nameSpace =
            nameSpace_.empty() ? CIMNamespaceName() : CIMNamespaceName(nameSpace_.c_str());
        if (operation_ == "getClass") {
            describe(out,
                     client.getClass(nameSpace, className(), flag("localOnly", true),
                                     flag("qualifiers", true), flag("origin", false), properties_),
                     "");
        } else if (operation_ == "getInstance") {
            describe(out,
                     client.getInstance(nameSpace, path(), flag("localOnly", true), flag("qualifiers", false),
                                        flag("origin", false), properties_),
                     "");
        } else if (operation_ == "enumerateClasses") {
            describeAll(
                out,
                client.enumerateClasses(nameSpace, className(), flag("deep", false), flag("localOnly", true),
                                        flag("qualifiers", true), flag("origin", false)),
                [&](const CIMClass& one) { describe(out, one, ""); });
        } else if (operation_ == "enumerateClassNames") {
            describeAll(out, client.enumerateClassNames(nameSpace, className(), flag("deep", false)),
                        [&](const CIMName& one) { out << text(one) << "\n"; });
        } else if (operation_ == "enumerateInstances") {
            describeAll(
                out,
                client.enumerateInstances(nameSpace, className(), flag("deep", true), flag("localOnly", true),
                                          flag("qualifiers", false), flag("origin", false), properties_),
                [&](const CIMInstance& one) { describe(out, one, ""); });
        } else if (operation_ == "enumerateInstanceNames") {
            describeAll(out, client.enumerateInstanceNames(nameSpace, className()),
                        [&](const CIMObjectPath& one) { out << text(one.toString()) << "\n"; });
        } else if (operation_ == "invokeMethod") {
            invoke(client, nameSpace, out);
        } else {
            throw std::runtime_error("no such operation: " + operation_);
        }
    }

private:
    void readLine(const std::string& line) {
        std::istringstream in(line);
        std::string keyword;
        in >> keyword;
        std::string rest;
        std::getline(in >> std::ws, rest);
        const std::size_t equals = keyword.find('=');
        if (keyword == "method") {
            method_ = rest;
        } else if (keyword == "in" || keyword == "untyped") {
            readParameter(rest, keyword == "in");
        } else if (keyword.rfind("properties=", 0) == 0) {
            readProperties(keyword.substr(11));
        } else if (equals != std::string::npos) {
            flags_[keyword.substr(0, equals)] = keyword.substr(equals + 1) == "true";
        } else {
            throw std::runtime_error("in a call: " + line);
        }
    }

    void readProperties(const std::string& list) {
        Array<CIMName> names;
        std::istringstream in(list);
        for (std::string name; std::getline(in, name, ',');) {
            names.append(CIMName(name.c_str()));
        }
        properties_ = CIMPropertyList(names);
    }

    /// TYPE NAME = TEXT, the elements of an array separated by "|".
    void readParameter(const std::string& line, bool typed) {
        std::istringstream in(line);
        std::string type;
        std::string name;
        std::string equals;
        std::string value;
        in >> type >> name >> equals;
        std::getline(in >> std::ws, value);
        parameters_.append(CIMParamValue(String(name.c_str()), parameterValue(type, value), typed));
    }

    static CIMValue parameterValue(const std::string& type, const std::string& value) {
        if (value == "null") {
            return CIMValue(cimxml::parseType(type).value_or(CIMTYPE_STRING), false);
        }
        if (type == "string[]") {
            Array<String> elements;
            std::istringstream in(value);
            for (std::string element; std::getline(in, element, '|');) {
                elements.append(String(element.c_str()));
            }
            return CIMValue(elements);
        }
        if (type == "instance") {
            CIMInstance instance(CIMName("CIM_Embedded"));
            instance.addProperty(CIMProperty(CIMName("Text"), CIMValue(String(value.c_str()))));
            return CIMValue(instance);
        }
        if (type == "reference[]") {
            return CIMValue(Array<CIMObjectPath>(1, CIMObjectPath(String(value.c_str()))));
        }
        return scalarValue(cimxml::parseType(type).value(), value);
    }

    static CIMValue scalarValue(CIMType type, const std::string& value) {
        switch (type) {
            case CIMTYPE_BOOLEAN:
                return CIMValue(cimxml::parseBoolean(value).value());
            case CIMTYPE_UINT32:
                return CIMValue(cimxml::parseInteger<Uint32>(value).value());
            case CIMTYPE_SINT64:
                return CIMValue(cimxml::parseInteger<Sint64>(value).value());
            case CIMTYPE_UINT8:
                return CIMValue(cimxml::parseInteger<Uint8>(value).value());
            case CIMTYPE_REAL32:
                return CIMValue(cimxml::parseReal<Real32>(value).value());
            case CIMTYPE_REAL64:
                return CIMValue(cimxml::parseReal<Real64>(value).value());
            case CIMTYPE_CHAR16:
                return CIMValue(cimxml::parseChar16(value).value());
            case CIMTYPE_DATETIME:
                return CIMValue(cimxml::parseDateTime(value).value());
            case CIMTYPE_REFERENCE:
                return CIMValue(CIMObjectPath(String(value.c_str())));
            case CIMTYPE_STRING:
                return CIMValue(String(value.c_str()));
            default:
                throw std::runtime_error("no parameter of that type in wire cases");
        }
    }

    void invoke(CIMClientRep& client, const CIMNamespaceName& nameSpace, std::ostream& out) {
        Array<CIMParamValue> results;
        const CIMValue value =
            client.invokeMethod(nameSpace, path(), CIMName(method_.c_str()), parameters_, results);
        out << "return " << typeText(value.getType(), value.isArray());
        describeValue(out, value, "");
        for (Uint32 i = 0; i < results.size(); ++i) {
            const CIMValue result = results[i].getValue();
            out << "out " << typeText(result.getType(), result.isArray()) << " "
                << text(results[i].getParameterName()) << (results[i].isTyped() ? "" : " untyped");
            describeValue(out, result, "");
        }
    }

    bool flag(const std::string& name, bool absent) const {
        const auto found = flags_.find(name);
        return found == flags_.end() ? absent : found->second;
    }

    CIMName className() const { return object_.empty() ? CIMName() : CIMName(object_.c_str()); }
    CIMObjectPath path() const { return CIMObjectPath(String(object_.c_str())); }

    std::string operation_;
    std::string nameSpace_;
    std::string object_;
    std::string method_;
    std::map<std::string, bool> flags_;
    CIMPropertyList properties_;
    Array<CIMParamValue> parameters_;
};

std::string exceptionText(const char* name, const Exception& exception) {
    return std::string("throws ") + name + ": " + text(exception.getMessage()) + "\n";
}

}  // namespace

std::string outcomeOf(CIMClientRep& client, const std::vector<std::string>& call) {
    std::ostringstream out;
    try {
        Call(call).run(client, out);
        if (client.getWarning().size() > 0) {
            out << "warning: " << text(client.getWarning()) << "\n";
        }
        return out.str();
    } catch (const CIMException& exception) {
        out.str("");
        out << exceptionText("CIMException", exception) << "code " << static_cast<int>(exception.getCode())
            << "\n";
        for (Uint32 i = 0; i < exception.getErrorCount(); ++i) {
            describe(out, exception.getError(i), "  ");
        }
        return out.str();
    } catch (const ConnectionTimeoutException& exception) {
        return exceptionText("ConnectionTimeoutException", exception);
    } catch (const CannotConnectException& exception) {
        return exceptionText("CannotConnectException", exception);
    } catch (const CIMClientHTTPErrorException& exception) {
        return exceptionText("CIMClientHTTPErrorException", exception);
    } catch (const CIMClientMalformedHTTPException& exception) {
        return exceptionText("CIMClientMalformedHTTPException", exception);
    } catch (const CIMClientXmlException& exception) {
        return exceptionText("CIMClientXmlException", exception);
    } catch (const CIMClientResponseException& exception) {
        return exceptionText("CIMClientResponseException", exception);
    } catch (const Exception& exception) {
        return exceptionText("Exception", exception);
    }
}

}  // namespace cimxml_test
