#include "cimxml/wire/XmlDocument.h"

#include "cimxml/wire/WireError.h"
#include "cimxml/wire/XmlScan.h"

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

[[noreturn]] void failAtOffset(std::ptrdiff_t offset, const std::string& what) {
    throw WireError(WireError::Kind::BadXml, "XML at offset " + std::to_string(offset) + ": " + what);
}

/// Walks the whole tree without recursion, so that a text of any depth is refused in the same way.
void checkDepth(pugi::xml_node root, unsigned limit) {
    pugi::xml_node node = root;
    unsigned depth = 1;
    while (node) {
        if (depth > limit) {
            failAtOffset(node.offset_debug(),
                         "elements are nested more than " + std::to_string(limit) + " deep");
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

XmlDocument::XmlDocument(std::string text, DecodeContext& context) : text_(std::move(text)) {
    const XmlScan scan = scanXml(text_, context.nodesLeft);
    context.nodesLeft -= scan.nodes;
    // Blanks between elements are dropped, those that are a value kept. A value interrupted by a comment or
    // a CDATA section may have blanks on either side: then everything is kept.
    const unsigned blanks = scan.mixed ? pugi::parse_ws_pcdata : pugi::parse_ws_pcdata_single;
    const unsigned options = pugi::parse_default | pugi::parse_embed_pcdata | blanks;
    const auto result =
        document_.load_buffer_inplace(text_.data(), text_.size(), options, pugi::encoding_utf8);
    if (!result) {
        failAtOffset(result.offset, std::string("expected ") + expectation(result.status));
    }
    checkDepth(root(), context.limits.xmlDepth);
}

}  // namespace cimxml
