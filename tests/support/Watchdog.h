#pragma once

namespace support {

/// From here on a test that hangs says where, on standard error, before CTest ends it. On Windows it says its
/// name.
void startWatchdog();

}  // namespace support
