// compare A B: in what two snapshots differ.

#include <nlohmann/json.hpp>

#include "tools/commands/Commands.h"
#include "tools/common/SafeText.h"
#include "tools/print/JsonArray.h"
#include "tools/snapshot/Differences.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

std::string differenceText(const Difference& difference, const Options& options) {
    std::string text = "node " + std::to_string(difference.node) + ": ";
    if (!difference.object.empty()) {
        text += difference.object + ": ";
    }
    if (difference.part.empty()) {
        return text + "only in " + (difference.first ? options.file : options.otherFile);
    }
    if (!difference.second) {
        return text + "has no " + difference.part + ", which was " + *difference.first;
    }
    if (!difference.first) {
        return text + "has " + difference.part + " besides: " + *difference.second;
    }
    return text + difference.part + " is " + *difference.second + ", not " + *difference.first;
}

ordered_json textOrNull(const std::optional<std::string>& text) {
    return text ? ordered_json(*text) : ordered_json();
}

// Of a whole node or object there is only to tell who has it.
ordered_json differenceJson(const Difference& difference) {
    ordered_json json;
    json["node"] = difference.node;
    json["object"] = difference.object.empty() ? ordered_json() : ordered_json(difference.object);
    json["part"] = difference.part.empty() ? ordered_json() : ordered_json(difference.part);
    if (difference.part.empty()) {
        json["onlyIn"] = difference.first ? "first" : "second";
    } else {
        json["first"] = textOrNull(difference.first);
        json["second"] = textOrNull(difference.second);
    }
    return json;
}

}  // namespace

bool runCompare(const Options& options, Output& output) {
    const SnapshotContents first(options.file);
    const SnapshotContents second(options.otherFile);
    bool isEqual = true;
    JsonArray array(output);
    findDifferences(first, second, [&](const Difference& difference) {
        isEqual = false;
        if (options.format == Format::kJson) {
            array.add(differenceJson(difference));
        } else {
            output.line(safeText(differenceText(difference, options)));
        }
    });
    if (options.format == Format::kJson) {
        array.end();
    }
    return isEqual;
}

}  // namespace tool
