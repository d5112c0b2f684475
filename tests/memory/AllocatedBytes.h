#pragma once

namespace support {

/// How many bytes the process holds of the allocator, on any thread and by any library: the blocks that it
/// has asked for and not given back, each as large as the allocator made it. 0 under a sanitizer, which finds
/// leaks by itself. The program that links this counts them.
long long AllocatedBytes();

}  // namespace support
