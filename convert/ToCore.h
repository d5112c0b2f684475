#pragma once

#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

class ICIMClass;

/// Turns the remote value of an element into a host value.
///
/// `type` and `isArray` are those that the element declares; a value of another type throws the remote
/// library's TypeMismatchException. A null value gives zero, false, empty text or an empty array: callers
/// that keep nulls test for them first. References are bound to the namespace of `owningClass`, which only
/// they need. Embedded objects and arrays of references leave `out` as it is.
///
/// `name` is the element's, for the reader of a call; the conversion does not use it.
void ConvertToCoreValue(std::string name, Pegasus::CIMValue value, Pegasus::CIMType type, bool isArray,
                        TCIMValue& out, boost::shared_ptr<ICIMClass> owningClass);

}  // namespace NQELVSK20
