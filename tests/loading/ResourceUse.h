#pragma once

#include <cstddef>

namespace support {

/// What this process holds at a moment.
struct ResourceUse {
    std::size_t bytes = 0;    ///< Memory that was asked for and not given back.
    std::size_t handles = 0;  ///< Open files, sockets and the like.
    std::size_t regions = 0;  ///< Mapped regions of its address space, where the system tells; else 0.

    static ResourceUse now();

    /// What each load of a library leaves of the compiler's run-time library, which has no part in the test.
    static ResourceUse ofRuntime();
};

}  // namespace support
