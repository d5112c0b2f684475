#pragma once

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>

#include "cimxml/wire/DecodeContext.h"
#include "cimxml/wire/XmlError.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

/// The many instances of a long answer, parsed a few at a time: their tree then takes some kilobytes, which
/// stay in the processor's cache and serve again for the next few, where a tree of the whole answer takes
/// three times the answer's memory.
class InstanceList {
public:
    /// Takes a long list of VALUE.NAMEDINSTANCE elements out of an answer, which was scanned and has neither
    /// comments nor CDATA sections; the answer keeps its empty IRETURNVALUE element. Nothing when there is no
    /// such list, or one shorter than four pieces.
    static std::optional<InstanceList> takeFrom(std::string& answer, std::size_t pieceBytes);

    /// Calls `visit` with each element of the list. The node lives as long as the call. Throws WireError
    /// BadXml.
    template <typename Visit>
    void forEach(const Limits& limits, Visit visit) {
        while (next(limits)) {
            try {
                for (pugi::xml_node node = firstElement(piece_); node; node = nextElement(node)) {
                    visit(node);
                }
            } catch (const XmlError& error) {
                throw error.within(pieceBegin_);
            }
        }
    }

private:
    InstanceList(std::string text, std::size_t begin, std::size_t end);
    bool next(const Limits& limits);
    std::size_t pieceEnd(std::size_t pieceBytes) const;

    std::string text_;
    std::size_t end_;             ///< Of the list.
    std::size_t pieceBegin_ = 0;  ///< Of the piece that is parsed, or the list's.
    std::size_t nextBegin_;
    pugi::xml_document piece_;
};

}  // namespace cimxml
