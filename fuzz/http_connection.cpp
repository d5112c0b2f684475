// Takes arbitrary bytes for what a server sends, in pieces of all sizes up to that which the first byte
// tells. Where they are an answer, they are the same one when they come all at once.

#include "cimxml/wire/HttpConnection.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <string_view>

#include "cimxml/wire/BasicAuthentication.h"
#include "cimxml/wire/Limits.h"
#include "cimxml/wire/Percent.h"
#include "cimxml/wire/WireError.h"

namespace {

class Bytes : public cimxml::ByteStream {
public:
    Bytes(std::string_view bytes, std::size_t largestPiece) : bytes_(bytes), sizes_(1, largestPiece) {}

    void write(std::string_view, cimxml::Deadline) override {}

    std::size_t read(char* buffer, std::size_t size, cimxml::Deadline) override {
        const std::size_t count = std::min({size, sizes_(random_), bytes_.size()});
        std::memcpy(buffer, bytes_.data(), count);
        bytes_.remove_prefix(count);
        return count;
    }

    std::optional<std::size_t> readAvailable(char* buffer, std::size_t size) override {
        return read(buffer, size, cimxml::Deadline::after(std::chrono::seconds(0)));
    }

private:
    std::string_view bytes_;
    std::uniform_int_distribution<std::size_t> sizes_;
    std::minstd_rand random_;  // the same sizes in every run
};

/// None for bytes that are no answer.
std::optional<cimxml::HttpResponse> receive(std::string_view bytes, std::size_t largestPiece) {
    cimxml::Limits limits;
    limits.headerBytes = 2048;
    limits.bodyBytes = 65536;
    cimxml::HttpConnection connection(std::make_unique<Bytes>(bytes, largestPiece), limits);
    try {
        return connection.exchange("x", cimxml::Deadline::after(std::chrono::seconds(1)));
    } catch (const cimxml::WireError&) {
        return std::nullopt;
    }
}

bool isSame(const cimxml::HttpResponse& left, const cimxml::HttpResponse& right) {
    return left.status == right.status && left.reason == right.reason && left.fields == right.fields &&
           left.body == right.body;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto answer = receive(bytes, data[0] + 1U);
    const auto atOnce = receive(bytes, size);
    if (!answer) {
        return 0;
    }
    if (atOnce && !isSame(*answer, *atOnce)) {
        std::abort();
    }
    cimxml::BasicAuthentication("user", "password").accepts(*answer);
    for (const auto& [name, value] : answer->fields) {
        cimxml::percentDecode(value);
    }
    return 0;
}
