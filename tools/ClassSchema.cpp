#include "tools/ClassSchema.h"

#include <algorithm>

#include "tools/Qualifiers.h"

namespace tool {

namespace {

using namespace NQELVSK20;

template <typename MEMBER>
const MEMBER* find(const std::vector<MEMBER>& members, const std::string& name) {
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const MEMBER& member) { return sameName(member.name, name); });
    return found == members.end() ? nullptr : &*found;
}

template <typename MEMBER, typename DECLARATION>
void add(std::vector<MEMBER>& members, const boost::shared_ptr<DECLARATION>& declaration,
         const std::string& origin) {
    const std::string& name = declaration->GetName(TContext());
    if (find(members, name) == nullptr) {
        members.push_back({declaration, name, origin});
    }
}

bool isTrue(const ICIMQualifier* qualifier) {
    return qualifier != nullptr && qualifier->GetValue(TContext()).operator bool();
}

}  // namespace

ClassSchema::ClassSchema(Chain chain) : chain_(std::move(chain)) {
    for (const auto& cimClass : chain_) {
        addMembersOf(*cimClass);
    }
}

void ClassSchema::addMembersOf(const ICIMClass& cimClass) {
    const std::string& origin = cimClass.GetName(TContext());
    cimClass.EnumeratePropertyDecls(
        [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
            add(properties_, declaration, origin);
            addFacts(*declaration, declaration->GetName(TContext()));
            return true;
        },
        TContext());
    cimClass.EnumerateMethodDecls(
        [&](const boost::shared_ptr<ICIMMethodDecl>& declaration) {
            add(methods_, declaration, origin);
            return true;
        },
        TContext());
}

void ClassSchema::addFacts(const ICIMPropertyDecl& declaration, const std::string& name) {
    const QualifierList qualifiers = qualifiersOf(declaration);
    if (auto map = valueMapIn(qualifiers)) {
        valueMaps_.emplace(name, std::move(*map));  // the nearest class's stays
    }
    if (isTrue(findQualifier(qualifiers, "Key"))) {
        keys_.insert(name);
    }
}

const ClassSchema::Property* ClassSchema::findProperty(const std::string& name) const {
    return find(properties_, name);
}

const ClassSchema::Method* ClassSchema::findMethod(const std::string& name) const {
    return find(methods_, name);
}

const ValueMap* ClassSchema::valueMapOf(const std::string& property) const {
    const auto found = valueMaps_.find(property);
    return found == valueMaps_.end() ? nullptr : &found->second;
}

bool ClassSchema::isKey(const std::string& property) const {
    return keys_.count(property) != 0;
}

}  // namespace tool
