#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cimom {

using HttpFields = std::vector<std::pair<std::string, std::string>>;

/// An HTTP request, its body complete and transfer coding removed.
struct HttpRequest {
    std::string head;       ///< Request line and header fields as sent.
    std::string method;     ///< E.g. "POST".
    std::string target;     ///< E.g. "/cimom".
    unsigned version = 11;  ///< 10 or 11.
    HttpFields fields;
    std::string body;

    /// The value of a header field, name compared without regard to case; null when it is not there.
    /// Owned by this object.
    const std::string* field(std::string_view name) const;

    /// Whether a comma-separated field holds a word, e.g. "trailers" in TE.
    bool fieldHas(std::string_view name, std::string_view word) const;
};

/// An HTTP answer before it is put into bytes.
struct HttpAnswer {
    int status = 200;
    std::string reason = "OK";
    HttpFields fields;  ///< Without those that say how long the body is.
    std::string body;

    std::string operation;  ///< CIM method that was asked for; empty when unknown.
    std::string className;  ///< Class that it names; may be empty.
};

/// An answer without body.
HttpAnswer plainAnswer(int status, const std::string& reason, HttpFields fields = {});

}  // namespace cimom
