#pragma once

#include <pugixml.hpp>
#include <string>
#include <unordered_map>
#include <vector>

namespace cimom {

/// How a qualifier travels from a class to its subclasses and instances (DSP0004, flavors).
struct Flavor {
    bool overridable = true;
    bool toSubclass = true;
    bool toInstance = false;
    bool translatable = false;
};

/// The qualifier declarations of a namespace, in order of declaration.
class QualifierTable {
public:
    /// Adds a QUALIFIER.DECLARATION or replaces that of the same name. The element must outlive the table.
    void declare(pugi::xml_node declaration);

    /// Harmless when there is none of that name.
    void remove(const std::string& name);

    /// The declaration of that name, or a null node.
    pugi::xml_node find(const std::string& name) const;

    const std::vector<pugi::xml_node>& all() const { return declarations_; }

    /// The flavor of a QUALIFIER: what its own attributes say, else what its declaration says, else the
    /// defaults of DSP0201.
    Flavor flavorOf(pugi::xml_node qualifier) const;

private:
    std::vector<pugi::xml_node> declarations_;
    std::unordered_map<std::string, std::size_t> indexByName_;
};

}  // namespace cimom
