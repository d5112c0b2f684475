#include "tools/commands/Commands.h"
#include "tools/print/StatisticsTable.h"

namespace tool {

void sayStatistics(const CommandContext& context) {
    for (const std::string& line : statisticsTable(context.session.statistics(), context.session.machine())) {
        context.notices.trace(line);
    }
}

}  // namespace tool
