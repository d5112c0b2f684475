#pragma once

#include <Pegasus/Common/Linkage.h>

/// Marks what the client API exports. It comes out of the same library as the object model.
#define PEGASUS_CLIENT_LINKAGE PEGASUS_COMMON_LINKAGE
