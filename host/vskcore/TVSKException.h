#pragma once

#include <exception>
#include <string>

#include "vskcore/TVSKStatusCode.h"

namespace NQELVSK20 {

/// The host's exception: a status code. The explanation is in the log, written just before the throw.
class TVSKException : public std::exception {
public:
    explicit TVSKException(TVSKStatusCode status);

    TVSKStatusCode GetStatusCode() const { return status_; }

    /// The text of the status code.
    const char* what() const noexcept override;

private:
    TVSKStatusCode status_;
    std::string text_;
};

}  // namespace NQELVSK20
