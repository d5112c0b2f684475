#include "tools/program/Monitoring.h"

#include <algorithm>
#include <exception>
#include <string_view>

#include "tools/commands/Commands.h"

namespace tool {

bool isMonitoring(int argc, const char* const* argv) {
    return std::any_of(argv, argv + argc,
                       [](const char* argument) { return std::string_view(argument) == "--nagios"; });
}

int runAsMonitor(const std::function<int()>& answer, Output& output, Notices& notices) {
    try {
        try {
            return answer();
        } catch (const std::exception& error) {
            if (*error.what() != '\0') {
                notices.say(error.what());
            }
            output.line(unknownLine(notices.last()));
            output.flush();
        }
    } catch (...) {
        // Nobody reads the output any more.
    }
    return kMonitoringUnknown;
}

}  // namespace tool
