#include "tests/support/windows/OutputReader.h"

#include <array>
#include <stdexcept>

namespace support {

OutputReader::OutputReader(std::size_t closeAfter) : closeAfter_(closeAfter) {
    if (CreatePipe(&reader_, &writer_, nullptr, 0) == 0) {
        throw std::runtime_error("CreatePipe: error " + std::to_string(GetLastError()));
    }
}

OutputReader::~OutputReader() {
    if (writer_ != nullptr) {
        CloseHandle(writer_);
    }
    if (thread_.joinable()) {
        thread_.join();
    } else {
        CloseHandle(reader_);
    }
}

void OutputReader::start() {
    CloseHandle(writer_);
    writer_ = nullptr;
    thread_ = std::thread([this] { read(); });
}

void OutputReader::read() {
    std::array<char, 65536> buffer{};
    DWORD count = 0;
    std::size_t total = 0;
    while (total < closeAfter_ &&
           ReadFile(reader_, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) != 0 &&
           count > 0) {
        total += count;
        const std::lock_guard<std::mutex> lock(mutex_);
        text_.append(buffer.data(), count);
        changed_.notify_all();
    }
    CloseHandle(reader_);
    const std::lock_guard<std::mutex> lock(mutex_);
    closed_ = true;
    changed_.notify_all();
}

std::string OutputReader::text() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return text_;
}

bool OutputReader::waitForMore(std::size_t than, TimePoint until) {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait_until(lock, until, [&] { return closed_ || text_.size() > than; });
    return text_.size() > than;
}

bool OutputReader::waitForEnd(TimePoint until) {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_until(lock, until, [this] { return closed_; });
}

}  // namespace support
