#include "tests/memory/AllocatedBytes.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstddef>

namespace {

std::atomic<long long>& Counter() {
    static std::atomic<long long> counter{0};
    return counter;
}

}  // namespace

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

namespace {

void* Taken(void* block) {
    Counter().fetch_add(static_cast<long long>(malloc_usable_size(block)), std::memory_order_relaxed);
    return block;
}

void* GivenBack(void* block) {
    Counter().fetch_sub(static_cast<long long>(malloc_usable_size(block)), std::memory_order_relaxed);
    return block;
}

}  // namespace

// What the allocator says of itself counts blocks that it keeps back for the next request, a quarter of a
// megabyte of them. So they are counted here: these stand in front of the C library's own, which keeps other
// names for programs that do so. The operators new and delete of C++ come through malloc and free.
extern "C" {
void* __libc_malloc(std::size_t size) noexcept;
void* __libc_calloc(std::size_t count, std::size_t size) noexcept;
void* __libc_realloc(void* block, std::size_t size) noexcept;
void* __libc_memalign(std::size_t alignment, std::size_t size) noexcept;
void __libc_free(void* block) noexcept;

void* malloc(std::size_t size) noexcept {
    return Taken(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    return Taken(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
    GivenBack(block);
    void* const moved = __libc_realloc(block, size);
    if (moved == nullptr && size != 0) {
        Taken(block);
    }
    return Taken(moved);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return Taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    *block = memalign(alignment, size);
    return *block == nullptr ? ENOMEM : 0;
}

void free(void* block) noexcept {
    __libc_free(GivenBack(block));
}
}

#endif

namespace support {

long long AllocatedBytes() {
    return Counter().load(std::memory_order_relaxed);
}

}  // namespace support
