#pragma once

#include <string>

namespace cimom {

/// User name and password that an endpoint asks for with Basic authentication (RFC 7617).
struct Credentials {
    std::string user;
    std::string password;
};

}  // namespace cimom
