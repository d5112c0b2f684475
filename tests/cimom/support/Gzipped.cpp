#include "tests/cimom/support/Gzipped.h"

#include <zlib.h>

#include <stdexcept>

namespace cimom::test {

std::string gzipped(const std::string& text) {
    constexpr int kGzip = 16;
    constexpr int kMemoryLevel = 8;
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, MAX_WBITS + kGzip, kMemoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::runtime_error("zlib cannot be used");
    }
    std::string bytes(deflateBound(&stream, static_cast<uLong>(text.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(&bytes[0]);
    stream.avail_out = static_cast<uInt>(bytes.size());
    const int status = deflate(&stream, Z_FINISH);
    bytes.resize(stream.total_out);
    deflateEnd(&stream);
    if (status != Z_STREAM_END) {
        throw std::runtime_error("the text could not be compressed");
    }
    return bytes;
}

}  // namespace cimom::test
