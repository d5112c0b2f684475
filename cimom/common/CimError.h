#pragma once

#include <stdexcept>
#include <string>

namespace cimom {

/// Status codes of CIM operations (DSP0200).
enum class CimStatus {
    Failed = 1,
    AccessDenied = 2,
    InvalidNamespace = 3,
    InvalidParameter = 4,
    InvalidClass = 5,
    NotFound = 6,
    NotSupported = 7,
    ClassHasChildren = 8,
    ClassHasInstances = 9,
    InvalidSuperclass = 10,
    AlreadyExists = 11,
    NoSuchProperty = 12,
    TypeMismatch = 13,
    QueryLanguageNotSupported = 14,
    InvalidQuery = 15,
    MethodNotAvailable = 16,
    MethodNotFound = 17,
    InvalidEnumerationContext = 21,
    InvalidOperationTimeout = 22,
    FilteredEnumerationNotSupported = 25,
    ContinuationOnErrorNotSupported = 26,
    ServerLimitsExceeded = 27
};

/// An operation that ends in an ERROR element (DSP0201). The text becomes the element's DESCRIPTION.
class CimError : public std::runtime_error {
public:
    CimError(CimStatus status, const std::string& description)
        : std::runtime_error(description), status_(status) {}

    CimStatus status() const { return status_; }

private:
    CimStatus status_;
};

}  // namespace cimom
