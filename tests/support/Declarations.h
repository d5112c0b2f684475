#pragma once

#include <initializer_list>
#include <string>

namespace NQELVSK20 {

// CIM-XML declarations (DSP0201) for the repositories of embedded servers, written as a test needs them.

/// A whole declaration text of the given CLASS and INSTANCE elements.
std::string Declarations(std::initializer_list<std::string> objects);

/// A CLASS element; `superclass` may be empty, `members` are qualifiers, properties and methods, in that
/// order.
std::string ClassXml(const std::string& name, const std::string& superclass, const std::string& members = "");

/// An INSTANCE element with its properties.
std::string InstanceXml(const std::string& className, const std::string& properties);

/// A PROPERTY element without qualifiers; with `value` null, without a value.
std::string PropertyXml(const std::string& name, const std::string& type, const char* value = nullptr);

/// A PROPERTY element that is a key.
std::string KeyXml(const std::string& name, const std::string& type);

/// A boolean QUALIFIER element with the value true.
std::string QualifierXml(const std::string& name);

}  // namespace NQELVSK20
