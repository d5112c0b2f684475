// walk CLASS: reads every instance and property, and says how many there are.

#include <fmt/format.h>

#include <map>
#include <nlohmann/json.hpp>

#include "tools/commands/Commands.h"
#include "tools/commands/RowCount.h"
#include "tools/common/SafeText.h"
#include "tools/print/InstanceView.h"
#include "tools/values/JsonValue.h"

namespace tool {

namespace {

using nlohmann::ordered_json;
using NQELVSK20::ICIMInstance;

struct Count {
    std::size_t instances = 0;
    std::size_t properties = 0;

    void add(const Count& other) {
        instances += other.instances;
        properties += other.properties;
    }
};

using Counts = std::map<std::string, Count>;  // by node

Counts countInstances(const CommandContext& context, NQELVSK20::ICIMClass& cimClass) {
    Counts counts;
    RowCount rows;
    std::size_t read = 0;
    context.session.enumerateInstances(cimClass, false, [&](const boost::shared_ptr<ICIMInstance>& instance) {
        const InstanceView view(*instance);
        counts[view.node].add({1, view.properties.size()});
        rows.add(view.className);
        context.progress.note(fmt::format("node {}: {} instances read", view.node, ++read));
        return true;
    });
    SchemaCache schemas(context.session);
    rows.tell(context, schemas, false);
    return counts;
}

ordered_json jsonCount(const Count& count) {
    ordered_json json;
    json["instances"] = count.instances;
    json["properties"] = count.properties;
    return json;
}

void writeJson(const CommandContext& context, const Counts& counts, const Count& total) {
    ordered_json json;
    json["class"] = context.options.className;
    json.update(jsonCount(total));
    json["nodes"] = ordered_json::array();
    for (const auto& [node, count] : counts) {
        ordered_json entry;
        entry["node"] = jsonNode(node);
        entry.update(jsonCount(count));
        json["nodes"].push_back(entry);
    }
    context.output.line(jsonText(json, 2, context.output.isTerminal()));
}

void writeText(const CommandContext& context, const Counts& counts, const Count& total) {
    const auto line = [](const Count& count) {
        return fmt::format("{} instances, {} properties", count.instances, count.properties);
    };
    for (const auto& [node, count] : counts) {
        context.output.line(fmt::format("node {}: {}", safeText(node), line(count)));
    }
    context.output.line(fmt::format("{} of {} on {} node{}", line(total), context.options.className,
                                    counts.size(), counts.size() == 1 ? "" : "s"));
}

}  // namespace

bool runWalk(const CommandContext& context) {
    const std::string& className = context.options.className;
    const auto cimClass = context.session.getClass(className);
    context.session.walk(className);
    const Counts counts = countInstances(context, *cimClass);
    Count total;
    for (const auto& entry : counts) {
        total.add(entry.second);
    }
    if (context.isJson()) {
        writeJson(context, counts, total);
    } else {
        writeText(context, counts, total);
    }
    return total.instances != 0;
}

}  // namespace tool
