#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/common/Options.h"
#include "tools/console/Notices.h"
#include "tools/console/Output.h"
#include "tools/console/Progress.h"
#include "tools/machine/SchemaCache.h"
#include "tools/machine/Session.h"
#include "tools/watch/RowCollector.h"

namespace tool {

/// What a command works with; all of it outlives the command.
struct CommandContext {
    const Options& options;
    Session& session;
    Output& output;
    Progress& progress;
    Notices& notices;
    std::shared_ptr<SchemaCache> schemas = std::make_shared<SchemaCache>(session);
    RowCollector* rows =
        nullptr;  ///< Where what has parts to compare goes instead of to the output; may be null.

    bool isJson() const { return options.format == Format::kJson; }
};

// The commands, one a file of its name. Each writes its answer and returns true when there was one. They
// throw UsageError and Failure.

bool runClasses(const CommandContext& context);
bool runNames(const CommandContext& context);
bool runWalk(const CommandContext& context);
bool runClass(const CommandContext& context);
bool runTree(const CommandContext& context);
bool runQualifiers(const CommandContext& context);
bool runInstances(const CommandContext& context);
bool runGet(const CommandContext& context);
bool runInvoke(const CommandContext& context);
bool runHealth(const CommandContext& context);
bool runReport(const CommandContext& context);
bool runSnapshot(const CommandContext& context);

/// Needs no machine; returns whether the two are equal.
bool runCompare(const Options& options, Output& output);

/// The health as a monitoring plug-in tells it; returns such a plug-in's exit status.
int runMonitoring(const CommandContext& context);

/// What such a plug-in says and returns when the machine cannot be asked.
constexpr int kMonitoringUnknown = 3;
std::string unknownLine(const std::string& reason);

/// The one that the options ask for, again and again.
bool runWatch(const CommandContext& context);

/// The one that the options ask for.
bool runCommand(const CommandContext& context);

/// Says that there is nothing, unless a failure was said that tells why; returns false.
bool nothingFound(const CommandContext& context, const std::string& what);

/// Tells on standard error what requests there were so far.
void sayStatistics(const CommandContext& context);

/// Says in what the nodes' definitions of a class differ, if they do.
void sayDifferences(const CommandContext& context, const std::string& className);

/// Names as text, one a line, or as a JSON array.
void writeNames(const CommandContext& context, const std::vector<std::string>& names);

}  // namespace tool
