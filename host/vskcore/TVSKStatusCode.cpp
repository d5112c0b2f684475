#include "vskcore/TVSKStatusCode.h"

namespace NQELVSK20 {

std::string TVSKStatusCode::TranslateStatusCode() const {
    switch (code_) {
        case eVSKSuccess:
            return "success";
        case eVSKNotOffered:
            return "operation not offered";
        case eVSKTypeMismatch:
            return "type differs from the overridden member's";
        case eVSKNotFound:
            return "member not found";
        case eVSKAlreadyExists:
            return "member already exists";
        case eVSKReferenceNotAllowed:
            return "reference property in a class that is no association";
        case eVSKInvalidName:
            return "invalid CIM name";
        case eVSKQualifierConflict:
            return "qualifier conflicts with one that may not be overridden";
        case eVSKNotSupported:
            return "operation not supported";
        case eVSKMissingContextValue:
            return "required context value is missing";
        case eVSKRemoteFailure:
            return "remote object could not be created";
    }
    return "status " + std::to_string(static_cast<int>(code_));
}

}  // namespace NQELVSK20
