#include "connection/client/Waiting.h"

#include <utility>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#include <ctime>
#endif

namespace NQELVSK20 {

namespace {

#ifdef _WIN32
void Wait(unsigned int milliseconds) {
    Sleep(milliseconds);
}
#else
void Wait(unsigned int milliseconds) {
    timespec left{static_cast<time_t>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000) * 1000000L};
    // A signal cuts a sleep short; the rest of it is still due.
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}
#endif

Waiting& Replacement() {
    static Waiting replacement;
    return replacement;
}

}  // namespace

void ReconnectPause(unsigned int milliseconds) {
    if (Replacement().pause) {
        Replacement().pause(milliseconds);
    } else {
        Wait(milliseconds);
    }
}

unsigned int ClientTimeout(unsigned int milliseconds) {
    return Replacement().timeout ? Replacement().timeout(milliseconds) : milliseconds;
}

void ReplaceWaiting(Waiting waiting) {
    Replacement() = std::move(waiting);
}

}  // namespace NQELVSK20
