// health: what is not well on any node.

#include <nlohmann/json.hpp>
#include <optional>

#include "tools/commands/Commands.h"
#include "tools/common/SafeText.h"
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

void addRows(const HealthReport& report, bool all, RowCollector& rows) {
    for (const Element& element : report.elements()) {
        if (all || isIll(element.severity)) {
            rows.add({element.node + '\n' + element.path,
                      safeText(element.node),
                      {{"Element", safeText(element.name), std::nullopt},
                       {"State", safeText(element.state), std::nullopt},
                       {"Now", element.note(),
                        element.reading ? std::optional(element.reading->value()) : std::nullopt}}});
        }
    }
}

}  // namespace

bool runHealth(const CommandContext& context) {
    const HealthReport report = reportOf(context);
    if (context.rows != nullptr && report.ill() != 0) {
        addRows(report, context.options.all, *context.rows);
    } else if (context.isJson()) {
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
