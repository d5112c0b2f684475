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

/// Walks over a tree, without recursion, as far as the first node that is nested too deep.
class DepthCheck : public pugi::xml_tree_walker {
public:
    explicit DepthCheck(unsigned limit) : limit_(static_cast<int>(limit)) {}

    bool for_each(pugi::xml_node& node) override {
        if (depth() < limit_) {
            return true;
        }
        throw XmlError(node.offset_debug(),
                       ": elements are nested more than " + std::to_string(limit_) + " deep");
    }

private:
    int limit_;
};

}  // namespace

void parseInPlace(pugi::xml_document& document, char* text, std::size_t size, unsigned options,
                  unsigned maxDepth) {
    const auto result = document.load_buffer_inplace(
        text, size, pugi::parse_default | pugi::parse_embed_pcdata | options, pugi::encoding_utf8);
    if (!result) {
        throw XmlError(result.offset, std::string(": expected ") + expectation(result.status));
    }
    DepthCheck check(maxDepth);
    document.traverse(check);
}

}  // namespace cimxml
