#pragma once

#include <cstddef>
#include <string_view>

namespace bench {

/// The bytes of one connection; blocking. Every function throws std::runtime_error.
class Stream {
public:
    virtual ~Stream() = default;

    virtual void Send(std::string_view bytes) const = 0;
    /// At least one byte and at most `size`; zero at the end of the stream.
    virtual std::size_t Receive(char* buffer, std::size_t size) const = 0;

protected:
    Stream() = default;
    Stream(const Stream&) = default;
    Stream& operator=(const Stream&) = default;
};

}  // namespace bench
