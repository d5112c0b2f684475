#include "tools/values/ClassSchema.h"

#include "tools/values/Qualifiers.h"

namespace tool {

namespace {

using namespace NQELVSK20;

template <typename MEMBER, typename PLACES>
const MEMBER* find(const std::vector<MEMBER>& members, const PLACES& places, const std::string& name) {
    const auto found = places.find(name);
    return found == places.end() ? nullptr : &members[found->second];
}

template <typename MEMBER, typename PLACES, typename DECLARATION>
void add(std::vector<MEMBER>& members, PLACES& places, const boost::shared_ptr<DECLARATION>& declaration,
         const std::string& origin) {
    const std::string& name = declaration->GetName(TContext());
    if (places.emplace(name, members.size()).second) {
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
            add(properties_, propertyPlaces_, declaration, origin);
            addFacts(*declaration, declaration->GetName(TContext()));
            return true;
        },
        TContext());
    cimClass.EnumerateMethodDecls(
        [&](const boost::shared_ptr<ICIMMethodDecl>& declaration) {
            add(methods_, methodPlaces_, declaration, origin);
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
    return find(properties_, propertyPlaces_, name);
}

const ClassSchema::Method* ClassSchema::findMethod(const std::string& name) const {
    return find(methods_, methodPlaces_, name);
}

const ValueMap* ClassSchema::valueMapOf(const std::string& property) const {
    const auto found = valueMaps_.find(property);
    return found == valueMaps_.end() ? nullptr : &found->second;
}

bool ClassSchema::isKey(const std::string& property) const {
    return keys_.count(property) != 0;
}

}  // namespace tool
