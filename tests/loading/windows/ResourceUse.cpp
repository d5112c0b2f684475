#include "tests/loading/ResourceUse.h"

#include <windows.h>
// After the header that it builds on.
#include <psapi.h>

namespace support {

ResourceUse ResourceUse::now() {
    ResourceUse use;
    PROCESS_MEMORY_COUNTERS_EX memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                         sizeof memory);
    use.bytes = memory.PrivateUsage;
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    use.handles = handles;
    return use;
}

}  // namespace support
