#include "cimxml/wire/XmlParse.h"

#include <string>

#include "cimxml/wire/XmlError.h"

namespace cimxml {

namespace {

const char* expectation(pugi::xml_parse_status status) {
    switch (status) {
        case pugi::status_bad_pi:
            return "the end of a processing instruction";
        case pugi::status_bad_comment:
            return "the end of a comment";
        case pugi::status_bad_cdata:
            return "the end of a CDATA section";
        case pugi::status_bad_doctype:
            return "a document type declaration";
        case pugi::status_bad_pcdata:
            return "text";
        case pugi::status_bad_start_element:
            return "a start tag";
        case pugi::status_bad_attribute:
            return "an attribute";
        case pugi::status_bad_end_element:
            return "an end tag";
        case pugi::status_end_element_mismatch:
            return "the end tag of the element that is open";
        case pugi::status_no_document_element:
            return "an element";
        default:
            return "markup";
    }
}

/// Walks the whole tree without recursion, so that a text of any depth is refused in the same way.
void checkDepth(pugi::xml_node root, unsigned limit) {
    pugi::xml_node node = root.first_child();
    unsigned depth = 1;
    while (node) {
        if (depth > limit) {
            throw XmlError(node.offset_debug(),
                           ": elements are nested more than " + std::to_string(limit) + " deep");
        }
        if (const pugi::xml_node child = node.first_child()) {
            node = child;
            ++depth;
            continue;
        }
        while (node != root && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        node = node == root ? pugi::xml_node() : node.next_sibling();
    }
}

}  // namespace

void parseInPlace(pugi::xml_document& document, char* text, std::size_t size, unsigned options,
                  unsigned maxDepth) {
    const auto result = document.load_buffer_inplace(
        text, size, pugi::parse_default | pugi::parse_embed_pcdata | options, pugi::encoding_utf8);
    if (!result) {
        throw XmlError(result.offset, std::string(": expected ") + expectation(result.status));
    }
    checkDepth(document, maxDepth);
}

}  // namespace cimxml
