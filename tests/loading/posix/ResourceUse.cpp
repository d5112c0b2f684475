#include "tests/loading/ResourceUse.h"

#include <malloc.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace support {

ResourceUse ResourceUse::now() {
    ResourceUse use;
    const auto heap = mallinfo2();
    use.bytes = heap.uordblks + heap.hblkhd;
    const std::filesystem::directory_iterator handles("/proc/self/fd");
    use.handles = static_cast<std::size_t>(std::distance(begin(handles), end(handles)));
    std::ifstream maps("/proc/self/maps");
    use.regions = static_cast<std::size_t>(
        std::count(std::istreambuf_iterator<char>(maps), std::istreambuf_iterator<char>(), '\n'));
    return use;
}

ResourceUse ResourceUse::ofRuntime() {
    return {};
}

}  // namespace support
