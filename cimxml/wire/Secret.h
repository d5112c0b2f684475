#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace cimxml {

/// Overwrites memory, in a way that no compiler takes for useless.
void wipe(void* memory, std::size_t size);

/// Gives no memory back before it is overwritten, also when what is kept there moves to a larger place.
template <class T>
class WipingAllocator {
public:
    using value_type = T;

    WipingAllocator() = default;
    template <class U>
    WipingAllocator(const WipingAllocator<U>& /*other*/) {}

    T* allocate(std::size_t count) { return std::allocator<T>().allocate(count); }
    void deallocate(T* memory, std::size_t count) {
        wipe(memory, count * sizeof(T));
        std::allocator<T>().deallocate(memory, count);
    }

    friend bool operator==(const WipingAllocator&, const WipingAllocator&) { return true; }
    friend bool operator!=(const WipingAllocator&, const WipingAllocator&) { return false; }
};

/// A text that nobody is to find in memory when it is of no more use: a password, and what it is part of.
class Secret {
public:
    Secret() = default;
    /// Overwrites `text`, of which there is no other copy then.
    explicit Secret(std::string&& text);

    bool empty() const { return text_.empty(); }
    std::string_view view() const { return {text_.data(), text_.size()}; }

    void reserve(std::size_t size) { text_.reserve(size); }
    Secret& append(std::string_view text) {
        text_.insert(text_.end(), text.begin(), text.end());
        return *this;
    }

private:
    std::vector<char, WipingAllocator<char>> text_;  // a string would keep a short text within itself
};

}  // namespace cimxml
