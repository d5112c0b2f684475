#pragma once

#include <Pegasus/Common/Config.h>

#include <pugixml.hpp>

namespace cimxml {

/// Attribute ARRAYSIZE: the size of a fixed-size array; zero, which means any, when it is not there or makes
/// no sense.
Pegasus::Uint32 readArraySize(pugi::xml_node node);

}  // namespace cimxml
