#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "cimom/data/NameSpace.h"

namespace cimom {

/// Reads declarations (CIM/DECLARATION, DSP0201) out of one text and says where in it something is wrong: as
/// std::runtime_error with source, line and reason.
class DeclarationReader {
public:
    /// What becomes of the elements of classes and qualifiers, which a namespace refers to for as long as it
    /// lives.
    enum class Elements { Borrowed, Copied };

    /// Both texts are borrowed.
    DeclarationReader(std::string_view xml, const std::string& source, Elements elements)
        : xml_(xml), source_(source), elements_(elements) {}

    /// The root element, with at least one DECLARATION in it, of the parsed text.
    pugi::xml_node parse(pugi::xml_document& document) const;

    /// Adds what a DECLGROUP declares. What stood before an error has then been added.
    void readGroup(pugi::xml_node group, NameSpace& nameSpace) const;

    /// Throws with the place of an element.
    [[noreturn]] void refuse(pugi::xml_node where, const std::string& why) const;

private:
    std::string place(std::size_t offset) const;
    [[noreturn]] void rethrowWithPlace(pugi::xml_node where, const std::exception& error) const;
    void readGroupMember(pugi::xml_node element, NameSpace& nameSpace) const;
    void readObject(pugi::xml_node object, NameSpace& nameSpace) const;
    void declareClass(pugi::xml_node element, NameSpace& nameSpace) const;
    void declareInstance(pugi::xml_node element, const ObjectPath& path, NameSpace& nameSpace) const;
    void requireAttribute(pugi::xml_node element, const char* name) const;
    pugi::xml_node kept(pugi::xml_node element, NameSpace& nameSpace) const;

    std::string_view xml_;
    const std::string& source_;
    Elements elements_;
};

/// Adds all declarations of a text to one namespace, whichever the text names. Throws as the reader does.
void readDeclarations(std::string_view xml, const std::string& source, NameSpace& nameSpace);

}  // namespace cimom
