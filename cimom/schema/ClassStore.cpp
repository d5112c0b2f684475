#include "cimom/schema/ClassStore.h"

#include <algorithm>
#include <stdexcept>

#include "cimom/common/Text.h"

namespace cimom {

const ClassView* ClassStore::findParent(pugi::xml_node element, const ClassView* redeclared) const {
    const std::string name = element.attribute("SUPERCLASS").value();
    if (name.empty()) {
        return nullptr;
    }
    const ClassView* parent = find(name);
    if (parent == nullptr) {
        throw std::runtime_error("the superclass '" + name + "' is not declared");
    }
    if (redeclared != nullptr && parent->isOrInherits(*redeclared)) {
        throw std::runtime_error("the class would inherit from itself through '" + name + "'");
    }
    return parent;
}

void ClassStore::declare(pugi::xml_node element, const QualifierTable& table) {
    ClassView* known = findMutable(element.attribute("NAME").value());
    const ClassView* parent = findParent(element, known);
    if (known != nullptr) {
        *known = ClassView::merge(element, parent, table);
        mergeAgain(*known, table);
        return;
    }
    classes_.push_back(std::make_unique<ClassView>(ClassView::merge(element, parent, table)));
    byName_[classes_.back()->key] = classes_.back().get();
}

void ClassStore::remove(const ClassView& view) {
    byName_.erase(view.key);
    classes_.erase(std::remove_if(classes_.begin(), classes_.end(),
                                  [&](const auto& known) { return known.get() == &view; }),
                   classes_.end());
}

void ClassStore::mergeAgain(const ClassView& parent, const QualifierTable& table) {
    for (const auto& view : classes_) {
        if (view->superClass == &parent) {
            *view = ClassView::merge(view->element, &parent, table);
            mergeAgain(*view, table);
        }
    }
}

ClassView* ClassStore::findMutable(const std::string& name) const {
    const auto found = byName_.find(lowered(name));
    return found == byName_.end() ? nullptr : found->second;
}

const ClassView* ClassStore::find(const std::string& name) const {
    return findMutable(name);
}

std::vector<const ClassView*> ClassStore::subclasses(const ClassView* parent, bool deep) const {
    std::vector<const ClassView*> found;
    for (const auto& view : classes_) {
        const bool direct = view->superClass == parent;
        const bool below = parent == nullptr || (view.get() != parent && view->isOrInherits(*parent));
        if (deep ? below : direct) {
            found.push_back(view.get());
        }
    }
    return found;
}

}  // namespace cimom
