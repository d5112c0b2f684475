#pragma once

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <utility>

namespace Pegasus {

namespace detail {
[[noreturn]] PEGASUS_COMMON_LINKAGE void throwIndexOutOfBounds();
}

/// A growable array. Copies share their elements until one of them is
/// changed. An index beyond the end throws IndexOutOfBoundsException.
/// Different objects may be used in different threads.
template <class T>
class Array {
public:
    Array() noexcept = default;
    Array(const Array& other) noexcept : _block(other._block) { retain(); }
    Array(Array&& other) noexcept : _block(std::exchange(other._block, nullptr)) {}
    Array(Uint32 size) : Array() {
        _block = allocate(size);
        Filler filler{_block};
        for (Uint32 i = 0; i < size; ++i) {
            filler.add();
        }
    }
    Array(Uint32 size, const T& x) : Array() {
        _block = allocate(size);
        Filler filler{_block};
        for (Uint32 i = 0; i < size; ++i) {
            filler.add(x);
        }
    }
    Array(const T* items, Uint32 size) : Array() {
        _block = allocate(size);
        Filler{_block}.addCopies(items, size);
    }
    ~Array() { release(_block); }

    Array& operator=(const Array& other) noexcept {
        Array(other).swap(*this);
        return *this;
    }
    Array& operator=(Array&& other) noexcept {
        Array(std::move(other)).swap(*this);
        return *this;
    }

    void clear() { Array().swap(*this); }

    /// Makes room for `capacity` elements, so that appending up to that number
    /// moves none.
    void reserveCapacity(Uint32 capacity) {
        if (capacity > getCapacity() || (_block && !isUnique())) {
            reallocate(std::max(capacity, size()));
        }
    }

    /// Appends `count` copies of `x`.
    void grow(Uint32 count, const T& x) {
        const T copy(x);
        reserveFor(count);
        Filler filler{_block};
        while (count-- > 0) {
            filler.add(copy);
        }
    }

    void swap(Array& other) noexcept { std::swap(_block, other._block); }

    Uint32 size() const noexcept { return _block ? _block->size : 0; }
    Uint32 getCapacity() const noexcept { return _block ? _block->capacity : 0; }

    /// The elements; valid until this array changes.
    const T* getData() const noexcept { return _block ? items(_block) : nullptr; }

    T& operator[](Uint32 index) {
        if (index >= size()) {
            detail::throwIndexOutOfBounds();
        }
        if (!isUnique()) {
            reallocate(size());
        }
        return items(_block)[index];
    }
    const T& operator[](Uint32 index) const {
        if (index >= size()) {
            detail::throwIndexOutOfBounds();
        }
        return items(_block)[index];
    }

    void append(const T& x) { emplace(x); }
    void append(T&& x) { emplace(std::move(x)); }
    void append(const T* x, Uint32 count) { insert(size(), x, count); }
    void appendArray(const Array& x) {
        const Array keepsAlive(x);
        append(keepsAlive.getData(), keepsAlive.size());
    }

    void prepend(const T& x) { insert(0, &x, 1); }
    void prepend(const T* x, Uint32 count) { insert(0, x, count); }

    void insert(Uint32 index, const T& x) { insert(index, &x, 1); }
    void insert(Uint32 index, const T* x, Uint32 count) {
        if (index > size()) {
            detail::throwIndexOutOfBounds();
        }
        if (count == 0) {
            return;
        }
        // The new items may lie within this array, so that the old block has
        // to stay until they are copied.
        Array result;
        result._block = allocate(grownCapacity(count));
        Filler filler{result._block};
        filler.addCopies(getData(), index);
        filler.addCopies(x, count);
        filler.addCopies(getData() + index, size() - index);
        swap(result);
    }

    void remove(Uint32 index) { remove(index, 1); }
    void remove(Uint32 index, Uint32 count) {
        if (count == 0) {
            return;
        }
        if (index >= size()) {
            detail::throwIndexOutOfBounds();
        }
        if (index + 1 == size()) {
            count = 1;  // at the last element the count has never mattered
        }
        if (count > size() - index) {
            detail::throwIndexOutOfBounds();
        }
        if (!isUnique()) {
            reallocate(size());
        }
        T* const first = items(_block);
        std::move(first + index + count, first + _block->size, first + index);
        std::destroy(first + _block->size - count, first + _block->size);
        _block->size -= count;
    }

private:
    // A block is followed by its elements.
    struct Block {
        std::atomic<Uint32> references{1};
        Uint32 size = 0;
        Uint32 capacity = 0;
    };

    static constexpr std::size_t kAlignment = std::max(alignof(Block), alignof(T));
    static constexpr std::size_t kOffset = (sizeof(Block) + alignof(T) - 1) / alignof(T) * alignof(T);

    // Adds elements at the end of a block that has room for them; the size
    // counts each as soon as it exists, so that an exception leaves no leak.
    struct Filler {
        Block* block;

        template <class... Args>
        void add(Args&&... args) {
            ::new (static_cast<void*>(items(block) + block->size)) T(std::forward<Args>(args)...);
            ++block->size;
        }
        void addCopies(const T* x, Uint32 count) {
            for (Uint32 i = 0; i < count; ++i) {
                add(x[i]);
            }
        }
    };

    static T* items(Block* block) noexcept {
        return std::launder(reinterpret_cast<T*>(reinterpret_cast<std::byte*>(block) + kOffset));
    }

    static Block* allocate(Uint32 capacity) {
        if (capacity == 0) {
            return nullptr;
        }
        const std::size_t bytes = kOffset + std::size_t{capacity} * sizeof(T);
        auto* const block = ::new (::operator new (bytes, std::align_val_t{kAlignment})) Block;
        block->capacity = capacity;
        return block;
    }

    static void release(Block* block) noexcept {
        if (!block || block->references.fetch_sub(1, std::memory_order_acq_rel) != 1) {
            return;
        }
        std::destroy_n(items(block), block->size);
        block->~Block();
        ::operator delete (static_cast<void*>(block), std::align_val_t{kAlignment});
    }

    void retain() const noexcept {
        if (_block) {
            _block->references.fetch_add(1, std::memory_order_relaxed);
        }
    }

    bool isUnique() const noexcept {
        return _block && _block->references.load(std::memory_order_acquire) == 1;
    }

    Uint32 grownCapacity(Uint32 extra) const {
        constexpr Uint32 kMinimum = 4;
        constexpr Uint32 kMaximum = std::numeric_limits<Uint32>::max();
        if (extra > kMaximum - size()) {
            throw std::bad_alloc();
        }
        const Uint32 doubled = size() > kMaximum / 2 ? kMaximum : 2 * size();
        return std::max({size() + extra, doubled, kMinimum});
    }

    // Gives this array a block of its own with the same elements.
    void reallocate(Uint32 capacity) {
        Array result;
        result._block = allocate(capacity);
        if (size() > 0) {
            Filler filler{result._block};
            const bool canMove = isUnique();
            T* const old = items(_block);
            for (Uint32 i = 0, n = size(); i < n; ++i) {
                canMove ? filler.add(std::move(old[i])) : filler.add(std::as_const(old[i]));
            }
        }
        swap(result);
    }

    void reserveFor(Uint32 extra) {
        if (!isUnique() || extra > _block->capacity - _block->size) {
            reallocate(grownCapacity(extra));
        }
    }

    template <class X>
    void emplace(X&& x) {
        if (isUnique() && _block->size < _block->capacity) {
            Filler{_block}.add(std::forward<X>(x));
            return;
        }
        T copy(std::forward<X>(x));  // x may be one of our own elements
        reserveFor(1);
        Filler{_block}.add(std::move(copy));
    }

    Block* _block = nullptr;  // null: no elements
};

}  // namespace Pegasus
