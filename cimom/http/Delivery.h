#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

#include "cimom/http/Fault.h"
#include "cimom/http/HttpMessage.h"

namespace cimom {

/// How an answer is put into bytes.
struct Framing {
    std::size_t chunkBytes = 0;  ///< 0: Content-Length; otherwise chunks of at most that many bytes.
    bool keepAlive = true;
};

/// What goes over the connection in answer to one request, and what becomes of the connection.
struct Delivery {
    enum class After {
        Continue,  ///< Read the next request.
        Close,     ///< Close as agreed.
        Cut,       ///< Close without a word: over TLS without a closing alert.
        Hold       ///< Leave the connection open and silent.
    };

    std::string head;
    std::string body;
    std::chrono::milliseconds delay{0};  ///< Before the first byte; 0: none.
    After after = After::Continue;
    int status = 0;  ///< HTTP status that was sent; 0: none.
};

/// Puts an answer into bytes, spoiled by a fault where there is one.
Delivery makeDelivery(HttpAnswer answer, const Framing& framing, const std::optional<Fault>& fault);

}  // namespace cimom
