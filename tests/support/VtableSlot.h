#pragma once

#include <cstddef>
#include <cstring>

namespace NQELVSK20 {

/// The slot of a virtual operation, counted from 1, the destructor's. In the Itanium C++ ABI the destructor
/// has two entries in the table of virtual functions, so that operation n has the entry n, counted from 0;
/// and a pointer to a virtual member function holds the byte offset of the function's entry, plus 1.
template <typename POINTER>
std::size_t SlotOf(POINTER operation) {
    static_assert(sizeof(operation) == 2 * sizeof(std::ptrdiff_t), "a pointer to a member function");
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    const bool isVirtual = (offset & 1) != 0;
    return isVirtual ? static_cast<std::size_t>(offset - 1) / sizeof(void*) : 0;
}

}  // namespace NQELVSK20
