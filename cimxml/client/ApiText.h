#pragma once

#include <Pegasus/Common/String.h>

#include <string>

namespace Pegasus {

/// A text from an HTTP header or the system as an API text: UTF-8 or else, as HTTP used to have it, Latin-1.
String toApiText(const std::string& text);

}  // namespace Pegasus
