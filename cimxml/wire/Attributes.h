#pragma once

#include <array>
#include <cstddef>
#include <pugixml.hpp>

namespace cimxml {

/// The attributes of an element, looked at once: the readers ask for most of them, and each question to the
/// tree walks over all.
class Attributes {
public:
    /// Throws WireError BadXml when there are two of one name, which XML does not allow. Those behind the
    /// first eight, which nothing asks for, are compared with these only.
    // NOLINTNEXTLINE(google-explicit-constructor): readers take an element or its attributes
    Attributes(pugi::xml_node element);

    pugi::xml_node element() const { return element_; }

    /// Value of an attribute, or nullptr when it is not there; valid as long as the document.
    const char* find(const char* name) const;

private:
    void requireNew(const char* name) const;
    const char* findFurther(const char* name) const;

    struct Attribute {
        const char* name;
        const char* value;
    };

    pugi::xml_node element_;
    std::array<Attribute, 8> attributes_;  // as many as an element of DSP0201 has
    std::size_t size_ = 0;
    pugi::xml_attribute further_;  ///< The first one that had no room; null: there is none.
};

}  // namespace cimxml
