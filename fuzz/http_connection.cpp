// Takes arbitrary bytes for what a server sends, in pieces whose size the first byte tells.

#include "cimxml/wire/HttpConnection.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "cimxml/wire/BasicAuthentication.h"
#include "cimxml/wire/Limits.h"
#include "cimxml/wire/Percent.h"
#include "cimxml/wire/WireError.h"

namespace {

class Bytes : public cimxml::ByteStream {
public:
    Bytes(std::string_view bytes, std::size_t piece) : bytes_(bytes), piece_(piece) {}

    void write(std::string_view, cimxml::Deadline) override {}

    std::size_t read(char* buffer, std::size_t size, cimxml::Deadline) override {
        const std::size_t count = std::min({size, piece_, bytes_.size()});
        std::memcpy(buffer, bytes_.data(), count);
        bytes_.remove_prefix(count);
        return count;
    }

    std::optional<std::size_t> readAvailable(char* buffer, std::size_t size) override {
        return read(buffer, size, cimxml::Deadline::after(std::chrono::seconds(0)));
    }

private:
    std::string_view bytes_;
    std::size_t piece_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    cimxml::Limits limits;
    limits.headerBytes = 2048;
    limits.bodyBytes = 65536;
    cimxml::HttpConnection connection(std::make_unique<Bytes>(bytes, data[0] + 1U), limits);
    try {
        const auto answer = connection.exchange("x", cimxml::Deadline::after(std::chrono::seconds(1)));
        cimxml::BasicAuthentication("user", "password").accepts(answer);
        for (const auto& [name, value] : answer.fields) {
            cimxml::percentDecode(value);
        }
    } catch (const cimxml::WireError&) {
        // Bytes that are no answer.
    }
    return 0;
}
