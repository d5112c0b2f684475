#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace cimxml {

/// A name of an answer, and what was read under it last: from one instance to the next, half of the
/// properties keep their value.
struct KnownName {
    std::string text;
    Pegasus::CIMName name;
    KnownName* following = nullptr;  ///< The name that came after this one last time.

    /// The value remembered, when it was read from these texts, each with a NUL behind it, as one of this
    /// type; else null.
    const Pegasus::CIMValue* recall(const std::string& texts, Pegasus::CIMType type, bool array) const;
    void remember(const std::string& texts, const Pegasus::CIMValue& value);

private:
    std::string texts_;  // empty: no value is remembered
    Pegasus::CIMValue value_;
};

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
