#include "connection/client/Waiting.h"

#include <utility>

#ifdef _WIN32
#include <winsock2.h>

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

boost::function<void(unsigned int)>& Replacement() {
    static boost::function<void(unsigned int)> pause;
    return pause;
}

}  // namespace

void ReconnectPause(unsigned int milliseconds) {
    (Replacement() ? Replacement() : Wait)(milliseconds);
}

void ReplacePause(boost::function<void(unsigned int)> pause) {
    Replacement() = std::move(pause);
}

}  // namespace NQELVSK20
