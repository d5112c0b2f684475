#include "cimxml/wire/XmlDocument.h"

#include "cimxml/wire/XmlParse.h"

namespace cimxml {

XmlScan XmlDocument::admit(std::string_view text, DecodeContext& context) {
    const XmlScan scan = scanXml(text, context.nodesLeft);
    context.nodesLeft -= scan.nodes;
    return scan;
}

XmlDocument::XmlDocument(std::string text, DecodeContext& context) : text_(std::move(text)) {
    parse(admit(text_, context), context);
}

XmlDocument::XmlDocument(std::string text, const XmlScan& scan, const DecodeContext& context)
    : text_(std::move(text)) {
    parse(scan, context);
}

void XmlDocument::parse(const XmlScan& scan, const DecodeContext& context) {
    // Blanks between elements are dropped, those that are a value kept. A value interrupted by a comment or
    // a CDATA section may have blanks on either side: then everything is kept.
    const unsigned blanks = scan.mixed ? pugi::parse_ws_pcdata : pugi::parse_ws_pcdata_single;
    parseInPlace(document_, text_.data(), text_.size(), blanks, context.limits.xmlDepth);
}

}  // namespace cimxml
