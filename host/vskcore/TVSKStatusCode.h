#pragma once

#include <string>

namespace NQELVSK20 {

/// Outcomes that host operations report.
enum EVSKStatusCode : int {
    eVSKSuccess = 0,
    eVSKNotOffered = 1,            ///< Operation not offered by the provider.
    eVSKTypeMismatch = 14,         ///< Override with a different type.
    eVSKNotFound = 15,             ///< Member not found.
    eVSKAlreadyExists = 16,        ///< Duplicate.
    eVSKReferenceNotAllowed = 22,  ///< Reference property in a class that is no association.
    eVSKInvalidName = 25,          ///< Not a CIM name.
    eVSKQualifierConflict = 28,    ///< Conflicting qualifier.
    eVSKNotSupported = 31,         ///< Operation not supported on this object.
    eVSKMissingContextValue = 32,  ///< A required context key is missing.
    eVSKRemoteFailure = 42         ///< Remote object not created, or inconsistent credential lists.
};

/// A status value with its text.
class TVSKStatusCode {
public:
    TVSKStatusCode(EVSKStatusCode code = eVSKSuccess) : code_(code) {}  // NOLINT(google-explicit-constructor)
    operator EVSKStatusCode() const { return code_; }                   // NOLINT(google-explicit-constructor)

    /// What the code means, in English; codes without a text of their own give "status N".
    std::string TranslateStatusCode() const;

private:
    EVSKStatusCode code_;
};

}  // namespace NQELVSK20
