#include "cimom/schema/ClassView.h"

#include <algorithm>
#include <string_view>

#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

bool isTrue(pugi::xml_node qualifier) {
    // A boolean qualifier without a value takes the value true (DSP0004).
    const pugi::xml_node value = firstElement(qualifier);
    return !value || sameName(trimmed(textOf(value)), "true");
}

std::vector<QualifierView> readQualifiers(pugi::xml_node owner, const QualifierTable& table) {
    std::vector<QualifierView> qualifiers;
    for (const pugi::xml_node element : owner.children("QUALIFIER")) {
        qualifiers.push_back(
            {lowered(element.attribute("NAME").value()), element, table.flavorOf(element), false});
    }
    return qualifiers;
}

template <typename View>
auto findByKey(View& views, const std::string& key) {
    return std::find_if(views.begin(), views.end(), [&](const auto& view) { return view.key == key; });
}

bool isPropagated(pugi::xml_node element) {
    return sameName(trimmed(element.attribute("PROPAGATED").value()), "true");
}

/// Takes out what a declaration only repeats from its superclass.
void dropRepeated(std::vector<QualifierView>& qualifiers, const std::vector<QualifierView>& inherited) {
    const auto repeated = [&](const QualifierView& qualifier) {
        const auto original = findByKey(inherited, qualifier.key);
        return isPropagated(qualifier.element) && original != inherited.end() && original->flavor.toSubclass;
    };
    qualifiers.erase(std::remove_if(qualifiers.begin(), qualifiers.end(), repeated), qualifiers.end());
}

void inheritQualifiers(std::vector<QualifierView>& qualifiers, const std::vector<QualifierView>& inherited) {
    dropRepeated(qualifiers, inherited);
    for (const QualifierView& candidate : inherited) {
        if (candidate.flavor.toSubclass && findByKey(qualifiers, candidate.key) == qualifiers.end()) {
            qualifiers.push_back(candidate);
            qualifiers.back().propagated = true;
        }
    }
}

MemberView inheritedMember(const MemberView& parent) {
    MemberView member = parent;
    member.propagated = true;
    member.qualifiers.clear();
    inheritQualifiers(member.qualifiers, parent.qualifiers);
    return member;
}

std::vector<ParameterView> readParameters(pugi::xml_node method, const QualifierTable& table) {
    std::vector<ParameterView> parameters;
    for (pugi::xml_node child = firstElement(method); child; child = nextElement(child)) {
        if (std::string_view(child.name()).substr(0, 9) == "PARAMETER") {
            parameters.push_back({child.attribute("NAME").value(), child, readQualifiers(child, table)});
        }
    }
    return parameters;
}

MemberView declaredMember(pugi::xml_node element, const std::string& className, const QualifierTable& table) {
    MemberView member;
    member.name = element.attribute("NAME").value();
    member.key = lowered(member.name);
    member.element = element;
    member.origin = className;
    member.qualifiers = readQualifiers(element, table);
    member.parameters = readParameters(element, table);
    return member;
}

bool hasKeyQualifier(const MemberView& member) {
    const auto key = findByKey(member.qualifiers, "key");
    return key != member.qualifiers.end() && isTrue(key->element);
}

/// Puts a member into the list, in the place of the one that it overrides, if any.
void addMember(std::vector<MemberView>& members, MemberView member) {
    const auto overridden = findByKey(members, member.key);
    if (overridden == members.end()) {
        members.push_back(std::move(member));
        return;
    }
    if (isPropagated(member.element)) {
        return;
    }
    member.origin = overridden->origin;
    inheritQualifiers(member.qualifiers, overridden->qualifiers);
    *overridden = std::move(member);
}

std::vector<MemberView> inheritedMembers(const std::vector<MemberView>& parents) {
    std::vector<MemberView> members;
    std::transform(parents.begin(), parents.end(), std::back_inserter(members), inheritedMember);
    return members;
}

}  // namespace

bool ParameterView::isArray() const {
    const std::string_view kind = element.name();
    return kind == "PARAMETER.ARRAY" || kind == "PARAMETER.REFARRAY";
}

std::string ParameterView::type() const {
    const pugi::xml_attribute declared = element.attribute("TYPE");
    return declared ? declared.value() : "reference";
}

bool ParameterView::flag(const std::string& qualifierKey, bool otherwise) const {
    const auto found = findByKey(qualifiers, qualifierKey);
    return found == qualifiers.end() ? otherwise : isTrue(found->element);
}

std::string MemberView::type() const {
    const std::string_view kind = element.name();
    return kind == "PROPERTY.REFERENCE" ? "reference" : element.attribute("TYPE").value();
}

int ClassView::findProperty(const std::string& propertyName) const {
    const auto found = findByKey(properties, lowered(propertyName));
    return found == properties.end() ? -1 : static_cast<int>(found - properties.begin());
}

const MemberView* ClassView::findMethod(const std::string& methodName) const {
    const auto found = findByKey(methods, lowered(methodName));
    return found == methods.end() ? nullptr : &*found;
}

bool ClassView::flag(const std::string& qualifierKey) const {
    const auto found = findByKey(qualifiers, qualifierKey);
    return found != qualifiers.end() && isTrue(found->element);
}

bool ClassView::isOrInherits(const ClassView& ancestor) const {
    const ClassView* view = this;
    while (view != nullptr && view != &ancestor) {
        view = view->superClass;
    }
    return view != nullptr;
}

ClassView ClassView::merge(pugi::xml_node declared, const ClassView* parent, const QualifierTable& table) {
    ClassView view;
    view.name = declared.attribute("NAME").value();
    view.key = lowered(view.name);
    view.superClass = parent;
    view.element = declared;
    view.qualifiers = readQualifiers(declared, table);
    if (parent != nullptr) {
        inheritQualifiers(view.qualifiers, parent->qualifiers);
        view.properties = inheritedMembers(parent->properties);
        view.methods = inheritedMembers(parent->methods);
    }
    for (pugi::xml_node child = firstElement(declared); child; child = nextElement(child)) {
        if (isPropertyElement(child)) {
            addMember(view.properties, declaredMember(child, view.name, table));
        } else if (std::string_view(child.name()) == "METHOD") {
            addMember(view.methods, declaredMember(child, view.name, table));
        }
    }
    for (MemberView& property : view.properties) {
        property.isKey = hasKeyQualifier(property);
    }
    return view;
}

bool isPropertyElement(pugi::xml_node element) {
    const std::string_view name = element.name();
    return name == "PROPERTY" || name == "PROPERTY.ARRAY" || name == "PROPERTY.REFERENCE";
}

}  // namespace cimom
