#include "cimom/data/Instance.h"

#include <algorithm>
#include <stdexcept>

#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

std::uint32_t sizeOf(const std::string& text) {
    return static_cast<std::uint32_t>(text.size());
}

void appendOtherAttributes(std::string& out, pugi::xml_node element, const MemberView& member) {
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const std::string_view name = attribute.name();
        if (name != "NAME" && name != "CLASSORIGIN" && name != "PROPAGATED") {
            appendAttribute(out, name, attribute.value());
        }
    }
    for (const char* inherited : {"TYPE", "EmbeddedObject"}) {
        const pugi::xml_attribute declared = member.element.attribute(inherited);
        if (declared && !element.attribute(inherited)) {
            appendAttribute(out, inherited, declared.value());
        }
    }
    out += ">";
}

void appendOwnQualifiers(std::string& out, pugi::xml_node element) {
    for (const pugi::xml_node qualifier : element.children("QUALIFIER")) {
        appendElement(out, qualifier);
    }
}

pugi::xml_node valueElementOf(pugi::xml_node element) {
    pugi::xml_node child = firstElement(element);
    while (child && std::string_view(child.name()).substr(0, 5) != "VALUE") {
        child = nextElement(child);
    }
    return child;
}

pugi::xml_node findPropertyElement(pugi::xml_node instance, const MemberView& member) {
    for (pugi::xml_node child = firstElement(instance); child; child = nextElement(child)) {
        if (isPropertyElement(child) && sameName(child.attribute("NAME").value(), member.name)) {
            return child;
        }
    }
    return {};
}

}  // namespace

Instance::Instance(const ClassView& type, pugi::xml_node element, ObjectPath path)
    : type_(&type), path_(std::move(path)) {
    path_.className = type.name;
    path_.isInstance = true;
    for (pugi::xml_node child = firstElement(element); child; child = nextElement(child)) {
        if (isPropertyElement(child)) {
            addProperty(child);
        }
    }
    if (path_.keys.empty()) {
        takeKeys(element);
    }
    appendInstanceName(nameXml_, path_);
}

void Instance::addProperty(pugi::xml_node element) {
    const std::string name = element.attribute("NAME").value();
    const int index = type_->findProperty(name);
    if (index < 0) {
        throw std::runtime_error("the class '" + type_->name + "' has no property '" + name + "'");
    }
    if (findSlot(name) >= 0) {
        throw std::runtime_error("the property '" + name + "' appears twice");
    }
    const MemberView& member = type_->properties[static_cast<std::size_t>(index)];
    Slot slot{};
    slot.member = static_cast<std::uint32_t>(index);
    text_.append("<").append(element.name());
    appendAttribute(text_, "NAME", member.name);
    slot.startEnd = sizeOf(text_);
    appendOtherAttributes(text_, element, member);
    slot.attributesEnd = sizeOf(text_);
    appendOwnQualifiers(text_, element);
    slot.qualifiersEnd = sizeOf(text_);
    hasQualifiers_ = hasQualifiers_ || slot.qualifiersEnd != slot.attributesEnd;
    if (const pugi::xml_node value = valueElementOf(element)) {
        appendElement(text_, value);
    }
    text_.append("</").append(element.name()).append(">");
    slot.end = sizeOf(text_);
    addLink(firstElement(element.child("VALUE.REFERENCE")));
    slots_.push_back(slot);
}

void Instance::addLink(pugi::xml_node reference) {
    if (reference) {
        links_.push_back({slots_.size(), readObjectPath(reference).canonical(), nameSpaceOf(reference)});
    }
}

void Instance::takeKeys(pugi::xml_node element) {
    for (const MemberView& member : type_->properties) {
        if (!member.isKey) {
            continue;
        }
        const pugi::xml_node value = valueElementOf(findPropertyElement(element, member));
        if (!value) {
            throw std::runtime_error("the key property '" + member.name + "' has no value");
        }
        path_.keys.push_back(makeKeyBinding(member.name, member.type(), value));
    }
    // One order for all, by name, as OpenPegasus has it: clients that print keys as sent then agree with
    // those that sort them.
    std::sort(path_.keys.begin(), path_.keys.end(),
              [](const KeyBinding& a, const KeyBinding& b) { return lowered(a.name) < lowered(b.name); });
}

PropertyText Instance::property(std::size_t n) const {
    const Slot& slot = slots_[n];
    const std::size_t begin = n == 0 ? 0 : slots_[n - 1].end;
    const std::string_view text = text_;
    const auto piece = [&](std::size_t from, std::size_t to) { return text.substr(from, to - from); };
    return {piece(begin, slot.startEnd), piece(slot.startEnd, slot.attributesEnd),
            piece(slot.attributesEnd, slot.qualifiersEnd), piece(slot.qualifiersEnd, slot.end)};
}

int Instance::findSlot(const std::string& propertyName) const {
    const int index = type_->findProperty(propertyName);
    const auto found = std::find_if(slots_.begin(), slots_.end(), [&](const Slot& slot) {
        return index >= 0 && slot.member == static_cast<std::uint32_t>(index);
    });
    return found == slots_.end() ? -1 : static_cast<int>(found - slots_.begin());
}

std::string Instance::valueXml(const std::string& propertyName) const {
    if (const int slot = findSlot(propertyName); slot >= 0) {
        const std::string_view rest = property(static_cast<std::size_t>(slot)).rest;
        return std::string(rest.substr(0, rest.rfind("</")));
    }
    std::string xml;
    if (const int index = type_->findProperty(propertyName); index >= 0) {
        const pugi::xml_node declared = type_->properties[static_cast<std::size_t>(index)].element;
        if (const pugi::xml_node value = valueElementOf(declared)) {
            appendElement(xml, value);
        }
    }
    return xml;
}

std::string Instance::valueOf(const std::string& propertyName) const {
    pugi::xml_document document;
    const std::string xml = valueXml(propertyName);
    if (xml.empty() || parseXml(xml, document) || !document.child("VALUE")) {
        return {};
    }
    return textOf(document.child("VALUE"));
}

void Instance::setValue(const std::string& propertyName, const std::string& value) {
    std::string xml = "<VALUE>";
    appendEscaped(xml, value);
    xml += "</VALUE>";
    const int index = type_->findProperty(propertyName);
    if (index < 0) {
        throw std::runtime_error("the class '" + type_->name + "' has no property '" + propertyName + "'");
    }
    const MemberView& member = type_->properties[static_cast<std::size_t>(index)];
    pugi::xml_document document;
    parseXml(xml, document);
    if (const int found = findSlot(propertyName); found >= 0) {
        const Slot slot = slots_[static_cast<std::size_t>(found)];
        replaceText(static_cast<std::size_t>(found), slot.qualifiersEnd,
                    xml + "</" + member.element.name() + ">");
    } else {
        pugi::xml_document holder;
        pugi::xml_node element = holder.append_child("PROPERTY");
        element.append_attribute("NAME") = member.name.c_str();
        element.append_copy(firstElement(document));
        addProperty(element);
    }
    for (KeyBinding& key : path_.keys) {
        if (sameName(key.name, propertyName)) {
            key = makeKeyBinding(key.name, member.type(), firstElement(document));
            nameXml_.clear();
            appendInstanceName(nameXml_, path_);
        }
    }
}

void Instance::replaceText(std::size_t slot, std::uint32_t from, const std::string& replacement) {
    const std::uint32_t oldEnd = slots_[slot].end;
    text_.replace(from, oldEnd - from, replacement);
    // Unsigned arithmetic wraps, so that a shift to the left comes out right too.
    const std::uint32_t shift = from + sizeOf(replacement) - oldEnd;
    slots_[slot].end += shift;
    for (std::size_t i = slot + 1; i < slots_.size(); ++i) {
        slots_[i].startEnd += shift;
        slots_[i].attributesEnd += shift;
        slots_[i].qualifiersEnd += shift;
        slots_[i].end += shift;
    }
}

void Instance::reindex() {
    for (std::size_t n = 0; n < slots_.size(); ++n) {
        const std::string_view start = property(n).start;
        const auto quote = start.find('"');
        const std::string name(start.substr(quote + 1, start.rfind('"') - quote - 1));
        const int index = type_->findProperty(name);
        if (index < 0) {
            throw std::runtime_error("an instance of '" + type_->name + "' holds the property '" + name +
                                     "', which the new definition lacks");
        }
        slots_[n].member = static_cast<std::uint32_t>(index);
    }
}

}  // namespace cimom
