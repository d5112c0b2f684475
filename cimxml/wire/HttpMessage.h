#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cimxml {

/// An answer to a request: status, header fields and body, with the transfer coding removed.
struct HttpResponse {
    unsigned status = 0;
    std::string reason;
    /// Fields of the header and of the trailer, in order of arrival.
    std::vector<std::pair<std::string, std::string>> fields;
    std::string body;
    bool keepAlive = false;  ///< The server will take another request on this connection.

    /// The value of the last field of that name, or nullptr; valid while the response is unchanged. Names
    /// match in any letter case, with or without the numeric prefix of the extension framework (RFC 2774)
    /// that DSP0200 allows, e.g. "73-CIMOperation". The last one counts so that a trailer, which knows how
    /// the operation ended, overrides a header.
    const std::string* find(std::string_view name) const;
};

}  // namespace cimxml
