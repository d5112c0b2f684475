#include "tools/commands/Commands.h"

#include <nlohmann/json.hpp>

#include "tools/common/SafeText.h"
#include "tools/print/JsonArray.h"

namespace tool {

bool runCommand(const CommandContext& context) {
    switch (context.options.question) {
        case Question::kClasses:
            return runClasses(context);
        case Question::kNames:
            return runNames(context);
        case Question::kWalk:
            return runWalk(context);
        case Question::kClass:
            return runClass(context);
        case Question::kTree:
            return runTree(context);
        case Question::kQualifiers:
            return runQualifiers(context);
        case Question::kInstances:
            return runInstances(context);
        case Question::kGet:
            return runGet(context);
        case Question::kHealth:
            return runHealth(context);
        case Question::kReport:
            return runReport(context);
        case Question::kSnapshot:
            return runSnapshot(context);
        case Question::kCompare:  // asks no machine
        case Question::kInvoke:
            break;
    }
    return runInvoke(context);
}

bool nothingFound(const CommandContext& context, const std::string& what) {
    if (!context.session.hasFailed()) {
        context.notices.say(what);
    }
    return false;
}

void sayDifferences(const CommandContext& context, const std::string& className) {
    constexpr std::size_t kSaidAtMost = 3;
    const std::vector<std::string> differences = context.session.definitions().differencesOf(className);
    std::string text;
    for (std::size_t i = 0; i < differences.size() && i < kSaidAtMost; ++i) {
        text += (i == 0 ? "" : "; ") + differences[i];
    }
    if (differences.size() > kSaidAtMost) {
        text += "; and " + std::to_string(differences.size() - kSaidAtMost) + " more";
    }
    if (!text.empty()) {
        context.notices.say("the nodes define " + className + " differently: " + text);
    }
}

void writeNames(const CommandContext& context, const std::vector<std::string>& names) {
    if (!context.isJson()) {
        for (const std::string& name : names) {
            context.output.line(safeText(name));
        }
        return;
    }
    JsonArray array(context.output);
    for (const std::string& name : names) {
        array.add(name);
    }
    array.end();
}

}  // namespace tool
