#include "tools/snapshot/GzipFile.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <random>
#include <system_error>

#include "tools/common/Failure.h"

namespace tool {

/// zlib's state for the file.
class GzipFile::Deflater {
public:
    Deflater() {
        constexpr int kGzip = 16;
        constexpr int kMemoryLevel = 8;
        if (deflateInit2(&stream_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + kGzip, kMemoryLevel,
                         Z_DEFAULT_STRATEGY) != Z_OK) {
            throw Failure("zlib cannot be used", Failure::Kind::kLocal);
        }
    }
    ~Deflater() { deflateEnd(&stream_); }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    /// Hands what comes of `text` to `put`.
    template <typename PUT>
    void run(std::string_view text, bool isLast, const PUT& put) {
        do {
            const std::size_t size = std::min<std::size_t>(text.size(), std::numeric_limits<uInt>::max());
            // zlib's own type for what it only reads.
            stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
            stream_.avail_in = static_cast<uInt>(size);
            text.remove_prefix(size);
            deflateAll(isLast && text.empty() ? Z_FINISH : Z_NO_FLUSH, put);
        } while (!text.empty());
    }

private:
    template <typename PUT>
    void deflateAll(int flush, const PUT& put) {
        do {
            stream_.next_out = reinterpret_cast<Bytef*>(buffer_.data());
            stream_.avail_out = static_cast<uInt>(buffer_.size());
            deflate(&stream_, flush);
            put(std::string_view(buffer_.data(), buffer_.size() - stream_.avail_out));
        } while (stream_.avail_out == 0);
    }

    std::array<char, 65536> buffer_{};
    z_stream stream_{};
};

GzipFile::GzipFile(const std::string& name)
    : name_(name),
      unfinished_(std::filesystem::u8path(name + "." + std::to_string(std::random_device()()))),
      stream_(unfinished_, std::ios::binary),
      deflater_(std::make_unique<Deflater>()) {
    if (!stream_) {
        fail(std::generic_category().message(errno));
    }
}

GzipFile::~GzipFile() {
    stream_.close();
    std::error_code ignored;
    std::filesystem::remove(unfinished_, ignored);
}

void GzipFile::fail(const std::string& why) const {
    throw Failure("cannot write " + name_ + ": " + why, Failure::Kind::kLocal);
}

void GzipFile::put(std::string_view bytes) {
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream_) {
        fail(std::generic_category().message(errno));
    }
}

void GzipFile::write(std::string_view text) {
    if (!text.empty()) {
        deflater_->run(text, false, [this](std::string_view bytes) { put(bytes); });
    }
}

void GzipFile::finish() {
    deflater_->run({}, true, [this](std::string_view bytes) { put(bytes); });
    stream_.close();
    if (stream_.fail()) {
        fail(std::generic_category().message(errno));
    }
    std::error_code failed;
    std::filesystem::rename(unfinished_, std::filesystem::u8path(name_), failed);
    if (failed) {
        fail(failed.message());
    }
}

}  // namespace tool
