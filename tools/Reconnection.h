#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "tools/LogLine.h"

namespace tool {

/// A client connects its node anew: over HTTPS, and when that fails over HTTP.
struct Reconnection {
    std::optional<std::size_t> node;  ///< None: the log does not tell.
    std::string httpsFailure;         ///< Empty: connected over HTTPS.
    std::string httpFailure;          ///< Empty: connected, over HTTPS or else over HTTP.

    void add(const ClientFailure& failure) {
        (failure.operation == "HTTPSConnect" ? httpsFailure : httpFailure) = failure.message;
    }
};

}  // namespace tool
