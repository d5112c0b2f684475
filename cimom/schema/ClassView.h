#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "cimom/schema/QualifierTable.h"

namespace cimom {

/// A qualifier of a class or member, with where it comes from.
struct QualifierView {
    std::string key;         ///< Lower-case name.
    pugi::xml_node element;  ///< The QUALIFIER as declared.
    Flavor flavor;
    bool propagated = false;  ///< Inherited from the superclass.
};

/// A parameter of a method.
struct ParameterView {
    std::string name;
    pugi::xml_node element;  ///< One of the four kinds of PARAMETER.
    std::vector<QualifierView> qualifiers;

    bool isArray() const;
    std::string type() const;  ///< CIM type; "reference" for references and arrays of them.
    /// Whether the boolean qualifier is there and true, or `otherwise` when it is not there.
    bool flag(const std::string& qualifierKey, bool otherwise) const;
};

/// A property or method of a class, its own or inherited.
struct MemberView {
    std::string name;
    std::string key;          ///< Lower-case name.
    pugi::xml_node element;   ///< The nearest declaration along the superclass chain.
    std::string origin;       ///< The class that introduced the member.
    bool propagated = false;  ///< Declared by a superclass only.
    bool isKey = false;
    std::vector<QualifierView> qualifiers;
    std::vector<ParameterView> parameters;  ///< Of a method.

    /// CIM type, e.g. "uint16"; "reference" for references; empty for a method without result.
    std::string type() const;
};

/// A class as it is seen from outside: its own declaration merged with all that it inherits.
///
/// The elements belong to the documents that the namespace keeps for as long as it lives.
struct ClassView {
    std::string name;
    std::string key;  ///< Lower-case name.
    const ClassView* superClass = nullptr;
    pugi::xml_node element;  ///< The CLASS as declared.
    std::vector<QualifierView> qualifiers;
    std::vector<MemberView> properties;  ///< Inherited ones first, in the order of their declaration.
    std::vector<MemberView> methods;     ///< Likewise.

    /// Index of a property, or -1. The name is compared without regard to case.
    int findProperty(const std::string& propertyName) const;

    /// The method of that name, or null; owned by this object.
    const MemberView* findMethod(const std::string& methodName) const;

    /// Whether this class is `ancestor` or inherits from it.
    bool isOrInherits(const ClassView& ancestor) const;

    /// Whether the class has a boolean qualifier, and it is true. The key is its name in lower case.
    bool flag(const std::string& qualifierKey) const;
    bool isAssociation() const { return flag("association"); }

    /// Merges the declaration `declared` with the members of `parent`, which may be null. What the
    /// declaration marks as propagated is the parent's, if that has it.
    static ClassView merge(pugi::xml_node declared, const ClassView* parent, const QualifierTable& table);
};

/// Whether an element is one of the three kinds of PROPERTY.
bool isPropertyElement(pugi::xml_node element);

}  // namespace cimom
