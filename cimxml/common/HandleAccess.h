#pragma once

#include <Pegasus/Common/Exception.h>

#include <memory>
#include <utility>

namespace Pegasus {

/// The library's own way through a handle to what it stands for. Handles
/// befriend this instead of each of their users.
struct HandleAccess {
    /// What the handle shares; null for a null handle.
    template <class Handle>
    static const auto& share(const Handle& handle) noexcept {
        return handle._rep;
    }

    /// What the handle stands for; a null handle throws UninitializedObjectException.
    template <class Handle>
    static auto& rep(const Handle& handle) {
        return deref(handle._rep);
    }

    template <class Handle, class Rep>
    static Handle make(std::shared_ptr<Rep> rep) {
        return Handle(std::move(rep));
    }

    template <class Rep>
    static Rep& deref(const std::shared_ptr<Rep>& rep) {
        if (!rep) {
            throw UninitializedObjectException();
        }
        return *rep;
    }
};

}  // namespace Pegasus
