#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

#include <boost/shared_ptr.hpp>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

class ICIMNamespace;

/// Turns the value of a key, as it stands in an object path (DSP0004, DSP0201), into a host value of the type
/// that the key's class declares: integers decimal or hexadecimal, with or without sign, in the type's range;
/// reals; booleans in any letter case; a char16 as the character itself; datetimes in their 25 characters.
/// Where no type is declared (unknown), the kind of value that the path tells decides: numbers become uint64,
/// sint64 or real64, the first that holds them.
///
/// False when the text is no value of the type; `out` then holds the text, so that keys that differ stay
/// different. References are bound to `nameSpace`.
bool ConvertKeyToCoreValue(const Pegasus::CIMKeyBinding& key, TCIMValue::TCIMType declared,
                           const boost::shared_ptr<ICIMNamespace>& nameSpace, TCIMValue& out);

}  // namespace NQELVSK20
