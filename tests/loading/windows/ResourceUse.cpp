#include "tests/loading/ResourceUse.h"

#include <windows.h>

#include <array>
#include <cstdint>

namespace support {

namespace {

// Beyond what a test's process ever has.
constexpr std::uintptr_t kHighestHandle = 0x10000;

std::size_t bytesIn(HANDLE heap) {
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != 0) {
        bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
    }
    HeapUnlock(heap);
    return bytes;
}

}  // namespace

// Wine counts neither memory nor handles of a process: both are looked at one by one.
ResourceUse ResourceUse::now() {
    ResourceUse use;
    std::array<HANDLE, 64> heaps{};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    for (DWORD i = 0; i < count; ++i) {
        use.bytes += bytesIn(heaps[i]);
    }
    for (std::uintptr_t handle = 4; handle < kHighestHandle; handle += 4) {
        DWORD flags = 0;
        use.handles += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != 0 ? 1U : 0U;
    }
    return use;
}

// Linked into each library by MinGW: the reserve of libstdc++ for exceptions, and two objects of its threads.
// Nothing gives them back at the library's end.
ResourceUse ResourceUse::ofRuntime() {
    return {73728, 2, 0};
}

}  // namespace support
