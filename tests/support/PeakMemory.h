#pragma once

#include <cstddef>
#include <fstream>
#include <string>

namespace support {

/// The most memory that this process has held at once since the object was made (proc(5), VmHWM).
class PeakMemory {
public:
    PeakMemory() {
        std::ofstream("/proc/self/clear_refs") << "5";
        before_ = read();
    }

    /// Bytes beyond what was held at the beginning; 0 where the system does not tell.
    std::size_t growth() const {
        const std::size_t now = read();
        return now > before_ ? now - before_ : 0;
    }

private:
    static std::size_t read() {
        std::ifstream status("/proc/self/status");
        for (std::string line; std::getline(status, line);) {
            if (line.compare(0, 6, "VmHWM:") == 0) {
                return std::stoul(line.substr(6)) * 1024;
            }
        }
        return 0;
    }

    std::size_t before_ = 0;
};

}  // namespace support
