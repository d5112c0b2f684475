#include "tools/machine/RemoteDefinitions.h"

#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMValue.h>

#include "tools/machine/RemoteText.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using Pegasus::Uint32;

std::string typeOf(Pegasus::CIMType type, bool isArray) {
    return std::string(Pegasus::cimTypeToString(type)) + (isArray ? "[]" : "");
}

// What qualifiers are made of (DSP0004): other types come as text.
TCIMValue toCore(const Pegasus::CIMValue& value) {
    if (value.isNull()) {
        return TCIMValue();
    }
    if (value.getType() == Pegasus::CIMTYPE_BOOLEAN && !value.isArray()) {
        Pegasus::Boolean boolean = false;
        value.get(boolean);
        return TCIMValue(static_cast<bool>(boolean));
    }
    if (value.getType() == Pegasus::CIMTYPE_STRING && value.isArray()) {
        Pegasus::Array<Pegasus::String> texts;
        value.get(texts);
        std::vector<TCIMValue> elements;
        for (Uint32 i = 0; i < texts.size(); ++i) {
            elements.emplace_back(remoteText(texts[i]));
        }
        return TCIMValue(TCIMValue::TCIMType::eStringArray, texts.size(), elements);
    }
    return TCIMValue(remoteText(value.toString()));
}

template <typename ELEMENT>
QualifierValues remoteQualifiersOf(const ELEMENT& element) {
    QualifierValues qualifiers;
    for (Uint32 i = 0; i < element.getQualifierCount(); ++i) {
        const Pegasus::CIMConstQualifier qualifier = element.getQualifier(i);
        qualifiers.push_back({remoteText(qualifier.getName()), toCore(qualifier.getValue())});
    }
    return qualifiers;
}

/// Compares a node's definition with another's.
class Comparison {
public:
    Comparison(const Pegasus::CIMClass& first, const Pegasus::CIMClass& other)
        : first_(first), other_(other) {}

    std::vector<std::string> run() {
        compare("superclass", remoteText(first_.getSuperClassName()), remoteText(other_.getSuperClassName()));
        compareQualifiers("", first_, other_);
        compareProperties();
        compareMethods();
        return differences_;
    }

private:
    void compare(const std::string& what, const std::string& first, const std::string& other) {
        if (!sameName(first, other)) {
            differences_.push_back(what + " is " + shown(other) + ", not " + shown(first));
        }
    }

    static std::string shown(const std::string& text) { return text.empty() ? "none" : text; }

    void miss(const std::string& what) { differences_.push_back("has no " + what); }
    void add(const std::string& what) { differences_.push_back("has " + what + " besides"); }

    template <typename ELEMENT>
    void compareQualifiers(const std::string& owner, const ELEMENT& first, const ELEMENT& other) {
        for (Uint32 i = 0; i < first.getQualifierCount(); ++i) {
            const Pegasus::CIMConstQualifier qualifier = first.getQualifier(i);
            const std::string what = owner + "qualifier " + remoteText(qualifier.getName());
            const Uint32 at = other.findQualifier(qualifier.getName());
            if (at == Pegasus::PEG_NOT_FOUND) {
                miss(what);
            } else if (other.getQualifier(at).getValue() != qualifier.getValue()) {
                differences_.push_back(what + " is " +
                                       remoteText(other.getQualifier(at).getValue().toString()) + ", not " +
                                       remoteText(qualifier.getValue().toString()));
            }
        }
        for (Uint32 i = 0; i < other.getQualifierCount(); ++i) {
            if (first.findQualifier(other.getQualifier(i).getName()) == Pegasus::PEG_NOT_FOUND) {
                add(owner + "qualifier " + remoteText(other.getQualifier(i).getName()));
            }
        }
    }

    void compareProperties() {
        for (Uint32 i = 0; i < first_.getPropertyCount(); ++i) {
            const Pegasus::CIMConstProperty property = first_.getProperty(i);
            const std::string what = "property " + remoteText(property.getName());
            const Uint32 at = other_.findProperty(property.getName());
            if (at == Pegasus::PEG_NOT_FOUND) {
                miss(what);
                continue;
            }
            const Pegasus::CIMConstProperty same = other_.getProperty(at);
            compare(what, typeOf(property.getType(), property.isArray()),
                    typeOf(same.getType(), same.isArray()));
            compareQualifiers(what + ": ", property, same);
        }
        for (Uint32 i = 0; i < other_.getPropertyCount(); ++i) {
            if (first_.findProperty(other_.getProperty(i).getName()) == Pegasus::PEG_NOT_FOUND) {
                add("property " + remoteText(other_.getProperty(i).getName()));
            }
        }
    }

    void compareMethods() {
        for (Uint32 i = 0; i < first_.getMethodCount(); ++i) {
            const Pegasus::CIMConstMethod method = first_.getMethod(i);
            const std::string what = "method " + remoteText(method.getName());
            const Uint32 at = other_.findMethod(method.getName());
            if (at == Pegasus::PEG_NOT_FOUND) {
                miss(what);
            } else {
                compare(what, signatureOf(method), signatureOf(other_.getMethod(at)));
                compareQualifiers(what + ": ", method, Pegasus::CIMConstMethod(other_.getMethod(at)));
            }
        }
        for (Uint32 i = 0; i < other_.getMethodCount(); ++i) {
            if (first_.findMethod(other_.getMethod(i).getName()) == Pegasus::PEG_NOT_FOUND) {
                add("method " + remoteText(other_.getMethod(i).getName()));
            }
        }
    }

    static std::string signatureOf(const Pegasus::CIMConstMethod& method) {
        std::string parameters;
        for (Uint32 i = 0; i < method.getParameterCount(); ++i) {
            const Pegasus::CIMConstParameter parameter = method.getParameter(i);
            parameters += (i == 0 ? "" : ", ") + typeOf(parameter.getType(), parameter.isArray()) + ' ' +
                          remoteText(parameter.getName());
        }
        return typeOf(method.getType(), false) + " (" + parameters + ')';
    }

    const Pegasus::CIMConstClass first_;
    const Pegasus::CIMConstClass other_;
    std::vector<std::string> differences_;
};

}  // namespace

void RemoteDefinitions::add(std::size_t node, const Pegasus::CIMClass& definition) {
    definitions_[remoteText(definition.getClassName())][node] = definition;
}

const Pegasus::CIMClass* RemoteDefinitions::find(std::size_t node, const std::string& className) const {
    const auto found = definitions_.find(className);
    if (found == definitions_.end()) {
        return nullptr;
    }
    const auto given = found->second.find(node);
    return given == found->second.end() ? nullptr : &given->second;
}

const Pegasus::CIMClass* RemoteDefinitions::firstOf(const std::string& className) const {
    const auto found = definitions_.find(className);
    return found == definitions_.end() ? nullptr : &found->second.begin()->second;
}

QualifierValues RemoteDefinitions::ofMethod(const std::string& className, const std::string& method) const {
    const Pegasus::CIMClass* const definition = firstOf(className);
    const Uint32 at = definition == nullptr ? Pegasus::PEG_NOT_FOUND
                                            : definition->findMethod(Pegasus::CIMName(method.c_str()));
    return at == Pegasus::PEG_NOT_FOUND ? QualifierValues() : remoteQualifiersOf(definition->getMethod(at));
}

QualifierValues RemoteDefinitions::ofParameter(const std::string& className, const std::string& method,
                                               const std::string& parameter) const {
    const Pegasus::CIMClass* const definition = firstOf(className);
    const Uint32 at = definition == nullptr ? Pegasus::PEG_NOT_FOUND
                                            : definition->findMethod(Pegasus::CIMName(method.c_str()));
    if (at == Pegasus::PEG_NOT_FOUND) {
        return {};
    }
    const Pegasus::CIMConstMethod declared = definition->getMethod(at);
    const Uint32 place = declared.findParameter(Pegasus::CIMName(parameter.c_str()));
    return place == Pegasus::PEG_NOT_FOUND ? QualifierValues()
                                           : remoteQualifiersOf(declared.getParameter(place));
}

std::vector<std::string> RemoteDefinitions::differencesOf(const std::string& className) const {
    std::vector<std::string> texts;
    const auto found = definitions_.find(className);
    if (found == definitions_.end()) {
        return texts;
    }
    const ByNode& byNode = found->second;
    for (const auto& [node, definition] : byNode) {
        if (node != byNode.begin()->first) {
            for (const std::string& difference : Comparison(byNode.begin()->second, definition).run()) {
                texts.push_back("node " + std::to_string(node + 1) + ": " + difference);
            }
        }
    }
    return texts;
}

}  // namespace tool
