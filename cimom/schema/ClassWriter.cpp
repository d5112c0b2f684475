#include "cimom/schema/ClassWriter.h"

#include <string_view>
#include <vector>

#include "cimom/common/Xml.h"

namespace cimom {
namespace {

void appendFlavor(std::string& out, const Flavor& flavor) {
    if (!flavor.overridable) {
        appendAttribute(out, "OVERRIDABLE", "false");
    }
    if (!flavor.toSubclass) {
        appendAttribute(out, "TOSUBCLASS", "false");
    }
    if (flavor.toInstance) {
        appendAttribute(out, "TOINSTANCE", "true");
    }
    if (flavor.translatable) {
        appendAttribute(out, "TRANSLATABLE", "true");
    }
}

/// Whether a qualifier or member is inherited and only what is the class's own is wanted.
template <typename View>
bool isHidden(const View& view, const ClassOptions& options) {
    return view.propagated && options.localOnly && !options.flat;
}

/// The tag of a qualifier, its flavor attributes and its value.
void appendQualifier(std::string& out, const QualifierView& qualifier, bool propagated) {
    out += "<QUALIFIER";
    appendAttribute(out, "NAME", qualifier.element.attribute("NAME").value());
    appendAttribute(out, "TYPE", qualifier.element.attribute("TYPE").value());
    if (propagated) {
        appendAttribute(out, "PROPAGATED", "true");
    }
    appendFlavor(out, qualifier.flavor);
    out += ">";
    appendChildren(out, qualifier.element);
    out += "</QUALIFIER>";
}

void appendQualifiers(std::string& out, const std::vector<QualifierView>& qualifiers,
                      const ClassOptions& options) {
    for (const QualifierView& qualifier : qualifiers) {
        if (options.includeQualifiers && !isHidden(qualifier, options)) {
            appendQualifier(out, qualifier, qualifier.propagated && !options.flat);
        }
    }
}

void appendMemberStart(std::string& out, const MemberView& member, const ClassOptions& options) {
    out.append("<").append(member.element.name());
    appendAttribute(out, "NAME", member.name);
    if (options.includeClassOrigin && !options.flat) {
        appendAttribute(out, "CLASSORIGIN", member.origin);
    }
    if (member.propagated && !options.flat) {
        appendAttribute(out, "PROPAGATED", "true");
    }
    for (const pugi::xml_attribute attribute : member.element.attributes()) {
        const std::string_view name = attribute.name();
        if (name != "NAME" && name != "CLASSORIGIN" && name != "PROPAGATED") {
            appendAttribute(out, name, attribute.value());
        }
    }
    out += ">";
}

void appendParameter(std::string& out, const ParameterView& parameter, const ClassOptions& options) {
    out.append("<").append(parameter.element.name());
    for (const pugi::xml_attribute attribute : parameter.element.attributes()) {
        appendAttribute(out, attribute.name(), attribute.value());
    }
    out += ">";
    appendQualifiers(out, parameter.qualifiers, options);
    out.append("</").append(parameter.element.name()).append(">");
}

/// What a member holds besides its qualifiers: a property's default value, a method's parameters.
void appendMemberContent(std::string& out, const MemberView& member, const ClassOptions& options) {
    for (const ParameterView& parameter : member.parameters) {
        appendParameter(out, parameter, options);
    }
    for (pugi::xml_node child = firstElement(member.element); child; child = nextElement(child)) {
        if (std::string_view(child.name()).substr(0, 5) == "VALUE") {
            appendElement(out, child);
        }
    }
}

void appendMember(std::string& out, const MemberView& member, const ClassOptions& options) {
    if (isHidden(member, options)) {
        return;
    }
    appendMemberStart(out, member, options);
    appendQualifiers(out, member.qualifiers, options);
    appendMemberContent(out, member, options);
    out.append("</").append(member.element.name()).append(">");
}

}  // namespace

void appendQualifier(std::string& out, const QualifierView& qualifier) {
    appendQualifier(out, qualifier, qualifier.propagated);
}

void appendClass(std::string& out, const ClassView& view, const ClassOptions& options) {
    out += "<CLASS";
    appendAttribute(out, "NAME", view.name);
    if (view.superClass != nullptr) {
        appendAttribute(out, "SUPERCLASS", view.superClass->name);
    }
    out += ">";
    appendQualifiers(out, view.qualifiers, options);
    for (const MemberView& property : view.properties) {
        if (!options.properties || options.properties->count(property.key) != 0) {
            appendMember(out, property, options);
        }
    }
    for (const MemberView& method : view.methods) {
        appendMember(out, method, options);
    }
    out += "</CLASS>";
}

}  // namespace cimom
