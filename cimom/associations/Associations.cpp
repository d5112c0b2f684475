#include "cimom/associations/Associations.h"

#include <algorithm>
#include <unordered_set>

#include "cimom/common/Text.h"

namespace cimom {
namespace {

bool suits(const std::string& wanted, const MemberView& role) {
    return wanted.empty() || wanted == role.key;
}

bool suits(const ClassView* wanted, const ClassView& type) {
    return wanted == nullptr || type.isOrInherits(*wanted);
}

/// Appends what is new to the list.
template <typename Object>
class EachOnce {
public:
    void add(const Object& object) {
        if (seen_.insert(&object).second) {
            objects_.push_back(&object);
        }
    }
    std::vector<const Object*> take() { return std::move(objects_); }

private:
    std::vector<const Object*> objects_;
    std::unordered_set<const Object*> seen_;
};

/// Calls `found(association, link)` for each link of an association instance that leads to the source.
template <typename Found>
void forEachLinkTo(const Instance& source, const NameSpace& nameSpace, const AssociationFilter& filter,
                   const Found& found) {
    const std::string path = source.path().canonical();
    for (const auto& instance : nameSpace.instances.all()) {
        if (instance->links().empty() || !suits(filter.associationClass, instance->type()) ||
            !instance->type().isAssociation()) {
            continue;
        }
        for (const Link& link : instance->links()) {
            const bool here = link.nameSpace.empty() || sameName(link.nameSpace, nameSpace.name);
            if (here && link.target == path && suits(filter.role, instance->roleOf(link))) {
                found(*instance, link);
            }
        }
    }
}

const ClassView* referencedClass(const MemberView& reference, const NameSpace& nameSpace) {
    return nameSpace.classes.find(reference.element.attribute("REFERENCECLASS").value());
}

/// Calls `found(association, reference)` for each reference of an association class that can lead to the
/// source.
template <typename Found>
void forEachReferenceTo(const ClassView& source, const NameSpace& nameSpace, const AssociationFilter& filter,
                        const Found& found) {
    for (const ClassView* association : nameSpace.classes.subclasses(nullptr, true)) {
        if (!suits(filter.associationClass, *association) || !association->isAssociation()) {
            continue;
        }
        for (const MemberView& reference : association->properties) {
            const ClassView* end = referencedClass(reference, nameSpace);
            if (end != nullptr && source.isOrInherits(*end) && suits(filter.role, reference)) {
                found(*association, reference);
            }
        }
    }
}

}  // namespace

std::vector<const Instance*> referencesTo(const Instance& source, const NameSpace& nameSpace,
                                          const AssociationFilter& filter) {
    EachOnce<Instance> references;
    forEachLinkTo(source, nameSpace, filter,
                  [&](const Instance& association, const Link&) { references.add(association); });
    return references.take();
}

std::vector<const Instance*> associatedWith(const Instance& source, const NameSpace& nameSpace,
                                            const AssociationFilter& filter) {
    EachOnce<Instance> others;
    forEachLinkTo(source, nameSpace, filter, [&](const Instance& association, const Link& from) {
        for (const Link& to : association.links()) {
            const bool here = to.nameSpace.empty() || sameName(to.nameSpace, nameSpace.name);
            if (to.property == from.property || !here || !suits(filter.resultRole, association.roleOf(to))) {
                continue;
            }
            const Instance* other = nameSpace.instances.find(to.target);
            if (other != nullptr && suits(filter.resultClass, other->type())) {
                others.add(*other);
            }
        }
    });
    return others.take();
}

std::vector<const ClassView*> referencesTo(const ClassView& source, const NameSpace& nameSpace,
                                           const AssociationFilter& filter) {
    EachOnce<ClassView> references;
    forEachReferenceTo(source, nameSpace, filter,
                       [&](const ClassView& association, const MemberView&) { references.add(association); });
    return references.take();
}

std::vector<const ClassView*> associatedWith(const ClassView& source, const NameSpace& nameSpace,
                                             const AssociationFilter& filter) {
    EachOnce<ClassView> others;
    forEachReferenceTo(source, nameSpace, filter, [&](const ClassView& association, const MemberView& from) {
        for (const MemberView& to : association.properties) {
            const ClassView* other = &to == &from ? nullptr : referencedClass(to, nameSpace);
            if (other != nullptr && suits(filter.resultRole, to) && suits(filter.resultClass, *other)) {
                others.add(*other);
            }
        }
    });
    return others.take();
}

}  // namespace cimom
