#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>
#include <vector>

#include "cimom/schema/ClassView.h"
#include "cimom/schema/QualifierTable.h"

namespace cimom {

/// The classes of a namespace, in order of declaration.
class ClassStore {
public:
    /// Adds a CLASS declaration or puts it in the place of that of the same name; its subclasses then
    /// inherit from the new one. Throws std::runtime_error when the superclass is unknown or the class
    /// would inherit from itself. The element must outlive the store.
    void declare(pugi::xml_node element, const QualifierTable& table);

    /// Takes a class out, which neither a subclass nor an instance may have any more.
    void remove(const ClassView& view);

    /// The class of that name, or null. It stays where it is until it is taken out.
    const ClassView* find(const std::string& name) const;

    /// The subclasses of `parent`, or the top-level classes when it is null; with `deep` those below them
    /// too. Owned by the store.
    std::vector<const ClassView*> subclasses(const ClassView* parent, bool deep) const;

private:
    ClassView* findMutable(const std::string& name) const;
    const ClassView* findParent(pugi::xml_node element, const ClassView* redeclared) const;
    void mergeAgain(const ClassView& parent, const QualifierTable& table);

    std::vector<std::unique_ptr<ClassView>> classes_;
    std::unordered_map<std::string, ClassView*> byName_;
};

}  // namespace cimom
