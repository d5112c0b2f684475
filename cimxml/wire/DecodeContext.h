#pragma once

#include <cstddef>
#include <string>

#include "cimxml/wire/Limits.h"
#include "cimxml/wire/NameTable.h"

namespace cimxml {

/// What the readers of one answer share: its limits as they are used up, and its names.
struct DecodeContext {
    explicit DecodeContext(const Limits& theLimits) : limits(theLimits), nodesLeft(theLimits.xmlNodes) {}

    Limits limits;
    std::size_t nodesLeft;       ///< Nodes that the documents still to be parsed may have.
    unsigned embeddedLevel = 0;  ///< Embedded objects around the one that is being read.
    NameTable names;
    std::size_t unreadable = 0;   ///< Places in values' texts where U+FFFD was put, embedded ones too.
    std::string firstUnreadable;  ///< The name of the element that the first of them is in.
    std::string texts;            ///< Room for a reader to put texts together in, which keeps its memory.
};

}  // namespace cimxml
