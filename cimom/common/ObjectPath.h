#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

namespace cimom {

/// One key of an instance path.
struct KeyBinding {
    enum class Kind { String, Numeric, Boolean, Reference };

    std::string name;  ///< Empty for the unnamed key that DSP0201 allows where a class has one key only.
    Kind kind = Kind::String;
    std::string value;      ///< The key's text; for a reference its VALUE.REFERENCE element.
    std::string canonical;  ///< The value in a form in which equal values are equal texts.
};

/// The path of a class or an instance inside its namespace.
struct ObjectPath {
    std::string className;
    std::vector<KeyBinding> keys;
    bool isInstance = false;

    /// A text that is the same for all spellings of the same path: case of names, order of keys, spelling
    /// of numbers and booleans. Host and namespace of reference keys play no part.
    std::string canonical() const;
};

/// Reads an INSTANCENAME or CLASSNAME, or one of the path elements that hold one (LOCALINSTANCEPATH,
/// INSTANCEPATH, LOCALCLASSPATH, CLASSPATH). Throws CimError (invalid parameter) for anything else.
ObjectPath readObjectPath(pugi::xml_node element);

/// The namespace that a path element names, e.g. "root/cimv2"; empty when it names none.
std::string nameSpaceOf(pugi::xml_node element);

/// A key made of a property's value element (VALUE or VALUE.REFERENCE). Throws CimError as above.
KeyBinding makeKeyBinding(const std::string& name, const std::string& cimType, pugi::xml_node value);

/// Appends the INSTANCENAME element of a path.
void appendInstanceName(std::string& out, const ObjectPath& path);

}  // namespace cimom
