#include "cimom/data/InstanceDraft.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"
#include "cimom/schema/ValueCheck.h"

namespace cimom {
namespace {

/// The value element among what a property element holds.
pugi::xml_node sentValueOf(pugi::xml_node property) {
    pugi::xml_node child = firstElement(property);
    while (child && std::string_view(child.name()) == "QUALIFIER") {
        child = nextElement(child);
    }
    return child;
}

/// What tells that a text is an embedded object, which each instance may decide for itself.
std::string embeddedAttribute(pugi::xml_node property) {
    std::string text;
    for (const char* name : {"EmbeddedObject", "EMBEDDEDOBJECT"}) {
        if (const pugi::xml_attribute attribute = property.attribute(name); attribute && text.empty()) {
            appendAttribute(text, "EmbeddedObject", attribute.value());
        }
    }
    return text;
}

void requireSameKind(pugi::xml_node property, const MemberView& member) {
    const std::string type = property.attribute("TYPE").value();
    if (std::string_view(property.name()) != member.element.name() ||
        (!type.empty() && type != member.type())) {
        throw CimError(CimStatus::InvalidParameter, "the property '" + member.name +
                                                        "' is declared otherwise: as " +
                                                        member.element.name() + " of type " + member.type());
    }
}

}  // namespace

InstanceDraft::InstanceDraft(const ClassView& type) : type_(type) {
    for (const MemberView& member : type.properties) {
        if (sentValueOf(member.element)) {
            setDefault(member.name);
        }
    }
}

InstanceDraft::InstanceDraft(const Instance& instance) : type_(instance.type()), path_(instance.path()) {
    for (std::size_t n = 0; n < instance.propertyCount(); ++n) {
        const PropertyText text = instance.property(n);
        // The bracket that ends the tag, and the end tag, are written anew.
        const std::string_view attributes = text.attributes.substr(0, text.attributes.size() - 1);
        const std::string_view value = text.rest.substr(0, text.rest.rfind("</"));
        put(instance.memberOf(n), std::string(attributes), std::string(value));
    }
}

std::size_t InstanceDraft::memberOf(const std::string& property) const {
    const int index = type_.findProperty(property);
    if (index < 0) {
        throw CimError(CimStatus::NoSuchProperty,
                       "the class '" + type_.name + "' has no property '" + property + "'");
    }
    return static_cast<std::size_t>(index);
}

void InstanceDraft::put(std::size_t member, const std::string& attributes, const std::string& value) {
    const auto known = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.member == member; });
    if (known == entries_.end()) {
        entries_.push_back({member, attributes, value});
    } else {
        *known = {member, attributes, value};
    }
}

void InstanceDraft::take(pugi::xml_node property) {
    const std::size_t index = memberOf(property.attribute("NAME").value());
    const MemberView& member = type_.properties[index];
    requireSameKind(property, member);
    set(member.name, sentValueOf(property), CimStatus::InvalidParameter);
    if (const std::string embedded = embeddedAttribute(property); !embedded.empty()) {
        const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                        [&](const Entry& known) { return known.member == index; });
        entry->attributes = embedded;
    }
}

bool InstanceDraft::changesKey(const MemberView& member, pugi::xml_node value) const {
    const auto key = std::find_if(path_.keys.begin(), path_.keys.end(),
                                  [&](const KeyBinding& known) { return sameName(known.name, member.name); });
    return key != path_.keys.end() &&
           (!value || makeKeyBinding(member.name, member.type(), value).canonical != key->canonical);
}

void InstanceDraft::set(const std::string& property, pugi::xml_node value, CimStatus mismatch) {
    const std::size_t index = memberOf(property);
    const MemberView& member = type_.properties[index];
    const bool isArray = std::string_view(member.element.name()) == "PROPERTY.ARRAY";
    const ValueRule rule{"the property '" + member.name + "'", member.type(), isArray, mismatch};
    const std::string checked = value ? checkedValue(rule, value) : std::string();
    if (changesKey(member, value)) {
        throw CimError(CimStatus::InvalidParameter,
                       "the key property '" + member.name + "' cannot be changed");
    }
    put(index, "", checked);
}

void InstanceDraft::setDefault(const std::string& property) {
    const MemberView& member = type_.properties[memberOf(property)];
    set(member.name, sentValueOf(member.element), CimStatus::InvalidParameter);
}

Instance InstanceDraft::build() const {
    std::string xml = "<INSTANCE>";
    for (const Entry& entry : entries_) {
        const MemberView& member = type_.properties[entry.member];
        const std::string element = member.element.name();
        xml.append("<").append(element);
        appendAttribute(xml, "NAME", member.name);
        xml.append(entry.attributes).append(">").append(entry.value).append("</").append(element).append(">");
    }
    pugi::xml_document document;
    if (const auto defect = parseXml(xml + "</INSTANCE>", document)) {
        throw CimError(CimStatus::InvalidParameter, "the instance cannot be kept: " + defect->what);
    }
    try {
        return Instance(type_, firstElement(document), path_);
    } catch (const CimError&) {
        throw;
    } catch (const std::runtime_error& error) {
        throw CimError(CimStatus::InvalidParameter, error.what());
    }
}

}  // namespace cimom
