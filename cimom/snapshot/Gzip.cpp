#include "cimom/snapshot/Gzip.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

namespace cimom {
namespace {

/// zlib's state for one file, of which there may be several one after the other.
class GzipInflater {
public:
    explicit GzipInflater(std::string_view bytes) : bytes_(bytes) {
        constexpr int kGzipOnly = 16;
        if (inflateInit2(&stream_, MAX_WBITS + kGzipOnly) != Z_OK) {
            throw std::runtime_error("zlib cannot be used");
        }
    }
    ~GzipInflater() { inflateEnd(&stream_); }
    GzipInflater(const GzipInflater&) = delete;
    GzipInflater& operator=(const GzipInflater&) = delete;

    std::string run(std::size_t limit) {
        std::string text;
        while (!finished()) {
            step(text);
            if (text.size() > limit) {
                throw std::runtime_error("there are more than " + std::to_string(limit) + " bytes in it");
            }
        }
        return text;
    }

private:
    bool finished() const { return ended_ && stream_.avail_in == 0 && given_ == bytes_.size(); }

    void step(std::string& text) {
        if (stream_.avail_in == 0) {
            give();
        }
        if (ended_) {
            inflateReset(&stream_);
            ended_ = false;
        }
        stream_.next_out = reinterpret_cast<Bytef*>(buffer_.data());
        stream_.avail_out = static_cast<uInt>(buffer_.size());
        const int status = inflate(&stream_, Z_NO_FLUSH);
        text.append(buffer_.data(), buffer_.size() - stream_.avail_out);
        ended_ = status == Z_STREAM_END;
        if (status == Z_BUF_ERROR && given_ == bytes_.size()) {
            throw std::runtime_error("the compressed data end early, at byte " +
                                     std::to_string(bytes_.size()));
        }
        if (status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR) {
            throw std::runtime_error("the compressed data are damaged at byte " +
                                     std::to_string(given_ - stream_.avail_in));
        }
    }

    void give() {
        const std::size_t count =
            std::min<std::size_t>(bytes_.size() - given_, std::numeric_limits<uInt>::max());
        // zlib's own type for what it only reads.
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes_.data() + given_));
        stream_.avail_in = static_cast<uInt>(count);
        given_ += count;
    }

    std::string_view bytes_;
    std::size_t given_ = 0;
    bool ended_ = false;
    std::array<char, 65536> buffer_{};
    z_stream stream_{};
};

}  // namespace

bool isGzip(std::string_view bytes) {
    return bytes.substr(0, 2) == "\x1f\x8b";
}

std::string gunzipped(std::string_view bytes, std::size_t limit) {
    return GzipInflater(bytes).run(limit);
}

}  // namespace cimom
