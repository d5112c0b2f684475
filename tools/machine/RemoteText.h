#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/String.h>

#include <string>

namespace tool {

/// Text of the client library, as UTF-8.
inline std::string remoteText(const Pegasus::String& text) {
    return static_cast<const char*>(text.getCString());
}

inline std::string remoteText(const Pegasus::CIMName& name) {
    return remoteText(name.getString());
}

}  // namespace tool
