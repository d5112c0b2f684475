// Where the C library of MinGW-w64 registers a function for the end of the process, although the library that
// the function is in may be gone by then. A library's own list is run when it is unloaded; OpenSSL, which is
// part of the plug-in, counts on that.

#include <stdlib.h>

extern "C" _onexit_t _onexit(_onexit_t function) {
    return atexit(reinterpret_cast<void (*)()>(reinterpret_cast<void*>(function))) == 0 ? function : nullptr;
}
