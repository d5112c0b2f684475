#pragma once

#include <Pegasus/Common/CIMName.h>

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace cimxml {

/// Every CIM name of an answer once. An answer repeats a few dozen names a hundred thousand times; names of
/// equal spelling then share one text, and are checked once.
class NameTable {
public:
    /// The name; valid as long as the table. Throws Pegasus::InvalidNameException for a text that is none.
    const Pegasus::CIMName& find(std::string_view text);

private:
    std::unordered_map<std::string_view, Pegasus::CIMName> names_;
    std::deque<std::string> texts_;
};

}  // namespace cimxml
