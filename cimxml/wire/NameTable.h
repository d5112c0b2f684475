#pragma once

#include <deque>
#include <string_view>
#include <unordered_map>

#include "cimxml/wire/KnownName.h"

namespace cimxml {

/// Every CIM name of an answer once. An answer repeats a few dozen names a hundred thousand times; names of
/// equal spelling then share one text, and are checked once. They come in the same order over and over, so
/// that a name is mostly found by looking at what followed the name before.
class NameTable {
public:
    /// The name; valid as long as the table. Throws Pegasus::InvalidNameException for a text that is none.
    KnownName& find(std::string_view text);

private:
    KnownName& look(std::string_view text);

    std::unordered_map<std::string_view, KnownName*> index_;
    std::deque<KnownName> names_;
    KnownName* last_ = nullptr;
};

}  // namespace cimxml
