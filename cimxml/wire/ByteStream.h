#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "cimxml/wire/Deadline.h"

namespace cimxml {

/// A connected, two-way stream of bytes. Used by one thread at a time. After an exception the stream is fit
/// for nothing but destruction, which closes it.
class ByteStream {
public:
    virtual ~ByteStream() = default;

    /// Sends all of `bytes`. Throws WireError: TimedOut, or Closed when the peer no longer takes any.
    virtual void write(std::string_view bytes, Deadline deadline) = 0;

    /// Waits for bytes and reads at most `size` (above zero) of them to `buffer`. Returns how many, zero at
    /// the end of the stream. Throws WireError TimedOut; a connection that broke counts as ended.
    virtual std::size_t read(char* buffer, std::size_t size, Deadline deadline) = 0;

    /// As read, without waiting: nothing when no byte and no end of the stream is there yet.
    virtual std::optional<std::size_t> readAvailable(char* buffer, std::size_t size) = 0;
};

}  // namespace cimxml
