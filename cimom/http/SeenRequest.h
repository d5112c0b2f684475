#pragma once

#include <cstdint>
#include <string>

namespace cimom {

/// One HTTP request as it arrived, for tests that look at what went over the wire.
struct SeenRequest {
    std::string address;     ///< Address of the endpoint that received it.
    std::uint16_t port = 0;  ///< Port of that endpoint.
    std::string head;        ///< Request line and header fields as sent.
    std::string body;        ///< Body, transfer coding removed.
    std::string operation;   ///< CIM method called, e.g. "GetClass"; empty when it could not be read.
    std::string className;   ///< Class the operation names, or that of the path it names; may be empty.
    int status = 0;          ///< HTTP status answered; 0 when a fault suppressed the answer.
};

}  // namespace cimom
