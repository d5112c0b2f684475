#pragma once

#include <cstddef>

namespace bench {

/// How many blocks of memory the process has asked for so far, on any thread and by any library. The program
/// that links this counts them.
std::size_t Allocations();

}  // namespace bench
