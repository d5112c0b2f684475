#pragma once

#include <Pegasus/Common/Config.h>

/// Marks what the library exports. On Windows it is part of what uses it.
#if defined(__GNUC__) && !defined(_WIN32)
#define PEGASUS_COMMON_LINKAGE __attribute__((visibility("default")))
#else
#define PEGASUS_COMMON_LINKAGE
#endif
