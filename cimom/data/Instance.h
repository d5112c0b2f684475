#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "cimom/common/ObjectPath.h"
#include "cimom/schema/ClassView.h"

namespace cimom {

/// A property of an instance as XML text, in the pieces between which optional things are put.
struct PropertyText {
    std::string_view start;       ///< E.g. `<PROPERTY NAME="Name"`.
    std::string_view attributes;  ///< The other attributes and the bracket that ends the tag.
    std::string_view qualifiers;  ///< The instance's own QUALIFIER elements.
    std::string_view rest;        ///< The value and the end tag.
};

/// A property that refers to another object.
struct Link {
    std::size_t property = 0;  ///< It is the n-th that the instance holds.
    std::string target;        ///< Canonical path of the object.
    std::string nameSpace;     ///< Where that is; empty: where the instance is.
};

/// An instance, its properties kept as the XML text that answers need, so that an answer with ten
/// thousand instances is ten thousand copies of text and no more.
class Instance {
public:
    /// An instance of `type` with the properties of an INSTANCE element. When `path` has no keys they are
    /// taken from the key properties. Throws std::runtime_error when the class does not declare a
    /// property or a key has no value. `type` must outlive the instance.
    Instance(const ClassView& type, pugi::xml_node element, ObjectPath path);

    const ClassView& type() const { return *type_; }
    const ObjectPath& path() const { return path_; }
    std::size_t propertyCount() const { return slots_.size(); }

    /// The INSTANCENAME element.
    const std::string& nameXml() const { return nameXml_; }

    /// All property elements without qualifiers of their own, one after the other; empty when an own
    /// qualifier stands between them.
    std::string_view plainXml() const { return hasQualifiers_ ? std::string_view() : text_; }
    bool hasQualifiers() const { return hasQualifiers_; }

    /// The class's index of the n-th property that this instance holds.
    std::size_t memberOf(std::size_t n) const { return slots_[n].member; }
    PropertyText property(std::size_t n) const;

    /// The references that the instance holds, in the order of its properties.
    const std::vector<Link>& links() const { return links_; }

    /// The property that holds a link, as its class declares it.
    const MemberView& roleOf(const Link& link) const { return type_->properties[memberOf(link.property)]; }

    /// The value element of a property, the class's default where the instance does not hold it; empty
    /// when it is null or unknown.
    std::string valueXml(const std::string& propertyName) const;

    /// The scalar value of a property as text; empty when it is null or not there.
    std::string valueOf(const std::string& propertyName) const;

    /// Gives a scalar property a new value, and the path too if it is a key. Throws std::runtime_error
    /// when the class has no such property.
    void setValue(const std::string& propertyName, const std::string& value);

    /// Finds the properties' places in the class anew, after it was redefined. Throws std::runtime_error
    /// when it lost one of them.
    void reindex();

private:
    /// Where a property's pieces end in the text; it starts where the one before it ends.
    struct Slot {
        std::uint32_t member;
        std::uint32_t startEnd;
        std::uint32_t attributesEnd;
        std::uint32_t qualifiersEnd;
        std::uint32_t end;
    };

    void addProperty(pugi::xml_node element);
    void addLink(pugi::xml_node reference);
    void takeKeys(pugi::xml_node element);
    void replaceText(std::size_t slot, std::uint32_t from, const std::string& replacement);
    int findSlot(const std::string& propertyName) const;

    const ClassView* type_;
    ObjectPath path_;
    std::string nameXml_;
    std::string text_;
    std::vector<Slot> slots_;
    std::vector<Link> links_;
    bool hasQualifiers_ = false;
};

}  // namespace cimom
