#pragma once

#include <pugixml.hpp>
#include <string>

namespace cimom::test {

/// Declarations for SmallNameSpace: the association Bond, which refers to two Bases as Upper and Lower, and
/// below it TightBond. Bond: m-a, m-z, of which there is no z; TightBond: m-b, a-b.
extern const char* const kSmallAssociations;

/// Ids in the paths of a list of objects or of names, in order; of a list of classes, their names.
std::string objectsOf(pugi::xml_node result);

}  // namespace cimom::test
