#pragma once

#include <cstddef>
#include <optional>

namespace tool {

/// A server refused user name or password. Thrown out of the plug-in's logging, because the plug-in would
/// otherwise pause, reconnect and be refused again.
struct CredentialsRefused {
    std::optional<std::size_t> node;  ///< Zero-based; none when the log did not tell.
};

}  // namespace tool
