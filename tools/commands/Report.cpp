// report FILE: all that a machine tells, as a page for browsers.

#include "tools/commands/Commands.h"
#include "tools/common/SafeText.h"
#include "tools/report/FileReplacement.h"
#include "tools/report/MachineReport.h"
#include "tools/report/ReportPage.h"

namespace tool {

bool runReport(const CommandContext& context) {
    const FileReplacement file(context.options.file);  // before the machine is asked for long
    context.progress.note("asking for everything");
    const MachineReport report = MachineReport::of(context.session, *context.schemas, context.progress);
    file.write(ReportPage(report, *context.schemas).html());
    context.output.line(safeText(context.options.file) + ": " + report.health.summary());
    return true;
}

}  // namespace tool
