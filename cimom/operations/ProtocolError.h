#pragma once

#include <stdexcept>
#include <string>

namespace cimom {

/// A request that is refused on the level of HTTP: a status and, where DSP0200 names one, a CIMError value
/// such as "request-not-well-formed".
class ProtocolError : public std::runtime_error {
public:
    ProtocolError(int status, std::string reason, std::string cimError, const std::string& detail)
        : std::runtime_error(detail),
          status_(status),
          reason_(std::move(reason)),
          cimError_(std::move(cimError)) {}

    int status() const { return status_; }
    const std::string& reason() const { return reason_; }
    const std::string& cimError() const { return cimError_; }

private:
    int status_;
    std::string reason_;
    std::string cimError_;
};

}  // namespace cimom
