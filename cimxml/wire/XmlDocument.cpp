#include "cimxml/wire/XmlDocument.h"

#include <cstdint>

#include "cimxml/wire/ValueTexts.h"
#include "cimxml/wire/XmlError.h"
#include "cimxml/wire/XmlParse.h"

namespace cimxml {

namespace {

void makeReadable(std::string& text, const XmlScan& scan, DecodeContext& context) {
    constexpr std::uint64_t growth = 2;  // three bytes for one, at most
    if (text.size() + growth * scan.unreadable > context.limits.bodyBytes) {
        throw XmlError(static_cast<std::ptrdiff_t>(scan.firstUnreadable),
                       ": the answer has too many bytes that are no character");
    }
    if (context.unreadable == 0) {
        context.firstUnreadable = nameOfValue(text, scan.firstUnreadable);
    }
    context.unreadable += scan.unreadable;
    text = withReadableCharacters(text);
}

}  // namespace

XmlScan XmlDocument::admit(std::string& text, DecodeContext& context) {
    const XmlScan scan = scanXml(text, context.nodesLeft);
    context.nodesLeft -= scan.nodes;
    if (scan.unreadable > 0) {
        makeReadable(text, scan, context);
    }
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
