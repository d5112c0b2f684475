#include "bench/micro/Allocations.h"

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<std::size_t>& Counter() {
    static std::atomic<std::size_t> counter{0};
    return counter;
}

}  // namespace

// The C library's own functions, under the names that it keeps for programs that put theirs in front. The
// operators new of C++ come through malloc.
extern "C" {
void* __libc_malloc(std::size_t size) noexcept;
void* __libc_calloc(std::size_t nmemb, std::size_t size) noexcept;
void* __libc_realloc(void* ptr, std::size_t size) noexcept;

void* malloc(std::size_t size) noexcept {
    Counter().fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

void* calloc(std::size_t nmemb, std::size_t size) noexcept {
    Counter().fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(nmemb, size);
}

void* realloc(void* ptr, std::size_t size) noexcept {
    Counter().fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(ptr, size);
}
}

namespace bench {

std::size_t Allocations() {
    return Counter().load(std::memory_order_relaxed);
}

}  // namespace bench
