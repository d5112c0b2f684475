#pragma once

#include <string>

#include "cimxml/wire/HttpMessage.h"
#include "cimxml/wire/Secret.h"

namespace cimxml {

/// Basic authentication (RFC 7617) of one client against one server: credentials are shown only to a server
/// that has asked for them, and from then on with every request. No copy of them stays in memory.
class BasicAuthentication {
public:
    BasicAuthentication() = default;
    BasicAuthentication(std::string user, std::string password);

    /// Looks at an answer; true when it asks for credentials that have not been shown yet, so that the
    /// request should be sent once more. A 401 that names no scheme at all is taken to mean Basic.
    bool accepts(const HttpResponse& response);

    /// The Authorization field with its line end, or nothing as long as none was asked for.
    Secret field() const;

    /// Forgets that the server has asked.
    void startAnew() { challenged_ = false; }

private:
    Secret user_;
    Secret password_;
    bool challenged_ = false;
};

}  // namespace cimxml
