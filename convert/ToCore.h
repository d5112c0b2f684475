#pragma once

#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMScope.h>
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
void ConvertToCoreValue(const std::string& name, const Pegasus::CIMValue& value, Pegasus::CIMType type,
                        bool isArray, TCIMValue& out, const boost::shared_ptr<ICIMClass>& owningClass);

/// The host's type code of a remote type. Types that have none (embedded objects) give the unknown codes.
TCIMValue::TCIMType ToCoreType(Pegasus::CIMType type, bool isArray);

/// The host's scope bit (ICIMQualifierDecl::EScope) of a single remote scope; 0 for none or several.
unsigned int ToCoreScope(const Pegasus::CIMScope& scope);

/// The host's flavor bits (ICIMQualifierDecl::EFlavor) of a single remote flavor; 0 for none, several, or
/// one that the host gives no bit.
unsigned int ToCoreFlavor(const Pegasus::CIMFlavor& flavor);

/// The host's flavor bits of a qualifier as it stands on a remote element: kFlavorEnableOverride for one that
/// may be overridden, among whatever other flavors it has; else those of ToCoreFlavor.
unsigned int ToCoreQualifierFlavor(const Pegasus::CIMFlavor& flavor);

}  // namespace NQELVSK20
