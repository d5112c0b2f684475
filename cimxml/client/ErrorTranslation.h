#pragma once

#include <Pegasus/Common/String.h>

#include "cimxml/wire/WireError.h"

namespace Pegasus {

/// Throws the API's exception for a failure on the wire, with the failure nested in it. `locator` is the
/// server as HOST:PORT. To be called while `error` is being handled.
[[noreturn]] void throwForUser(const cimxml::WireError& error, const String& locator);

}  // namespace Pegasus
