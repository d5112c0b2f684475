#include "cimom/data/InstanceWriter.h"

#include "cimom/common/Xml.h"

namespace cimom {

const InstanceWriter::Selection& InstanceWriter::selectionFor(const ClassView& type) {
    const auto [entry, isNew] = selections_.try_emplace(&type);
    Selection& selection = entry->second;
    if (isNew) {
        for (const MemberView& member : type.properties) {
            const bool listed = !options_.properties || options_.properties->count(member.key) != 0;
            const bool inLimit =
                options_.limitedTo == nullptr || options_.limitedTo->findProperty(member.name) >= 0;
            const bool wanted = listed && inLimit && !(options_.declaredOnly && member.propagated);
            selection.wanted.push_back(wanted);
            selection.defaults.push_back(options_.localOnly ? std::string() : defaultText(member));
            selection.all = selection.all && wanted;
        }
    }
    return selection;
}

std::size_t InstanceWriter::roomFor(const std::vector<const Instance*>& instances) {
    constexpr std::size_t kElementsAround = 100;
    std::size_t bytes = 0;
    for (const Instance* instance : instances) {
        bytes += instance->nameXml().size() + instance->plainXml().size() + kElementsAround;
    }
    return bytes;
}

void InstanceWriter::append(std::string& out, const Instance& instance) {
    const Selection& selection = selectionFor(instance.type());
    out += "<INSTANCE";
    appendAttribute(out, "CLASSNAME", instance.type().name);
    out += ">";
    const bool plain = selection.all && options_.localOnly && !options_.includeClassOrigin &&
                       !options_.includeQualifiers && !instance.hasQualifiers();
    if (plain) {
        out += instance.plainXml();
    } else {
        appendQualifiers(out, instance.type().qualifiers);
        appendProperties(out, instance, selection);
    }
    out += "</INSTANCE>";
}

void InstanceWriter::appendProperties(std::string& out, const Instance& instance,
                                      const Selection& selection) const {
    std::vector<bool> held(selection.wanted.size());
    for (std::size_t n = 0; n < instance.propertyCount(); ++n) {
        held[instance.memberOf(n)] = true;
        if (selection.wanted[instance.memberOf(n)]) {
            appendHeld(out, instance, n);
        }
    }
    for (std::size_t member = 0; member < held.size() && !options_.localOnly; ++member) {
        if (selection.wanted[member] && !held[member]) {
            out += selection.defaults[member];
        }
    }
}

void InstanceWriter::appendHeld(std::string& out, const Instance& instance, std::size_t n) const {
    const MemberView& member = instance.type().properties[instance.memberOf(n)];
    const PropertyText text = instance.property(n);
    out += text.start;
    if (options_.includeClassOrigin) {
        appendAttribute(out, "CLASSORIGIN", member.origin);
    }
    out += text.attributes;
    if (options_.includeQualifiers) {
        out += text.qualifiers;
    }
    appendQualifiers(out, member.qualifiers);
    out += text.rest;
}

std::string InstanceWriter::defaultText(const MemberView& member) const {
    std::string out;
    out.append("<").append(member.element.name());
    appendAttribute(out, "NAME", member.name);
    if (options_.includeClassOrigin) {
        appendAttribute(out, "CLASSORIGIN", member.origin);
    }
    for (const pugi::xml_attribute attribute : member.element.attributes()) {
        const std::string_view name = attribute.name();
        if (name != "NAME" && name != "CLASSORIGIN" && name != "PROPAGATED") {
            appendAttribute(out, name, attribute.value());
        }
    }
    out += ">";
    appendQualifiers(out, member.qualifiers);
    for (pugi::xml_node child = firstElement(member.element); child; child = nextElement(child)) {
        if (std::string_view(child.name()) != "QUALIFIER") {
            appendElement(out, child);
        }
    }
    out.append("</").append(member.element.name()).append(">");
    return out;
}

void InstanceWriter::appendQualifiers(std::string& out, const std::vector<QualifierView>& qualifiers) const {
    for (const QualifierView& qualifier : qualifiers) {
        if (options_.includeQualifiers && qualifier.flavor.toInstance) {
            appendQualifier(out, qualifier);
        }
    }
}

}  // namespace cimom
