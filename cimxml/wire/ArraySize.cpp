#include "cimxml/wire/ArraySize.h"

#include "cimxml/wire/Scalars.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

Pegasus::Uint32 readArraySize(pugi::xml_node node) {
    // Far above any array of a schema, and small enough that nobody's memory hangs on it.
    constexpr Pegasus::Uint32 largest = 65536;
    const char* text = attribute(node, "ARRAYSIZE");
    const Pegasus::Uint32 size = text == nullptr ? 0 : parseInteger<Pegasus::Uint32>(text).value_or(0);
    return size > largest ? 0 : size;
}

}  // namespace cimxml
