#pragma once

#include <boost/shared_ptr.hpp>

#include "connection/Precondition.h"
#include "connection/Refuse.h"

namespace NQELVSK20 {

/// The pointer itself, which the caller relies on. When it is empty, that is a broken precondition, logged
/// and asserted (see PointerIsSet); a build without assertions then throws status 15.
template <class T>
boost::shared_ptr<T> Required(boost::shared_ptr<T> pointer, const char* where) {
    if (!pointer) {
        PointerIsSet(false, where);
        Refuse(eVSKNotFound);
    }
    return pointer;
}

}  // namespace NQELVSK20
