#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

TVSKException::TVSKException(TVSKStatusCode status) : status_(status), text_(status.TranslateStatusCode()) {}

const char* TVSKException::what() const noexcept {
    return text_.c_str();
}

}  // namespace NQELVSK20
