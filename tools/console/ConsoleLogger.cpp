#include "tools/console/ConsoleLogger.h"

namespace tool {

namespace {

constexpr int kErrorLevel = 0;

}  // namespace

void ConsoleLogger::Log(int level, const std::string& text) {
    if (level == kErrorLevel) {
        notices_.fail(text);
    } else if (verbose_) {
        notices_.trace(text);
    }
}

}  // namespace tool
