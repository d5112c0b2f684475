#pragma once

#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMScope.h>
#include <Pegasus/Common/CIMType.h>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

/// The host's type code of a remote type. Types that have none (embedded objects) give the unknown codes.
TCIMValue::TCIMType ToCoreType(Pegasus::CIMType type, bool isArray);

/// The host's scope bit (ICIMQualifierDecl::EScope) of a single remote scope; 0 for none or several.
unsigned int ToCoreScope(const Pegasus::CIMScope& scope);

/// The host's flavor bits (ICIMQualifierDecl::EFlavor) of a single remote flavor; 0 for none, several, or
/// one that the host gives no bit.
unsigned int ToCoreFlavor(const Pegasus::CIMFlavor& flavor);

/// The host's flavor bits of a qualifier as it stands on a remote element: eFlavorEnableOverride for one that
/// may be overridden, among whatever other flavors it has; else those of ToCoreFlavor.
unsigned int ToCoreQualifierFlavor(const Pegasus::CIMFlavor& flavor);

}  // namespace NQELVSK20
