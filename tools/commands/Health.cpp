// health: what is not well on any node.

#include <nlohmann/json.hpp>

#include "tools/commands/Commands.h"
#include "tools/console/Terminal.h"
#include "tools/health/HealthReport.h"
#include "tools/print/HealthJson.h"
#include "tools/print/HealthPrinter.h"
#include "tools/print/MonitoringLine.h"
#include "tools/values/JsonValue.h"

namespace tool {

namespace {

HealthReport reportOf(const CommandContext& context) {
    context.progress.note("asking how the machine is");
    return HealthReport::of(context.session, *context.schemas, context.progress);
}

}  // namespace

bool runHealth(const CommandContext& context) {
    const HealthReport report = reportOf(context);
    if (context.isJson()) {
        context.output.line(
            jsonText(jsonHealth(report, context.options.all), 2, context.output.isTerminal()));
    } else {
        HealthPrinter(context.output, terminal::width()).print(report, context.options.all);
    }
    return !report.elements().empty();
}

int runMonitoring(const CommandContext& context) {
    const HealthReport report = reportOf(context);
    const bool isComplete = !context.session.hasFailed();
    context.output.line(monitoringLine(report, isComplete));
    return static_cast<int>(monitoringStatus(report, isComplete));
}

std::string unknownLine(const std::string& reason) {
    return monitoringLine(reason);
}

}  // namespace tool
