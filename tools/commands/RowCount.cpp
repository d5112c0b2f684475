#include "tools/commands/RowCount.h"

#include <fmt/format.h>

#include <numeric>

namespace tool {

namespace {

using ClassCounts = ReceivedInstances::Counts;

constexpr std::size_t kClassesNamed = 5;

std::size_t sumOf(const ClassCounts& counts) {
    return std::accumulate(counts.begin(), counts.end(), std::size_t{0},
                           [](std::size_t sum, const auto& entry) { return sum + entry.second; });
}

std::size_t countOf(const ClassCounts& counts, const std::string& name) {
    const auto found = counts.find(name);
    return found == counts.end() ? 0 : found->second;
}

bool hasKey(const ClassSchema& schema) {
    for (const ClassSchema::Property& property : schema.properties()) {
        if (!sameName(property.name, "NodeID") && schema.isKey(property.name)) {
            return true;
        }
    }
    return false;
}

std::string reasonFor(const std::string& className, std::size_t nodes, SchemaCache& schemas) {
    if (className == "QEL_StandardMessageLogEntry") {
        return "the first node's log repeats entries of the others";
    }
    if (!hasKey(schemas.of(className))) {
        return "the class has no key, so that all instances have one path";
    }
    return std::string("the others have the same path as one of these") +
           (nodes > 1 ? "; a node that is asked alone shows its own" : "");
}

// The subclasses with most instances first.
std::string subclassesOf(const std::string& className, const ClassCounts& counts) {
    std::multimap<std::size_t, std::string, std::greater<>> bySize;
    for (const auto& [name, count] : counts) {
        if (!sameName(name, className)) {
            bySize.emplace(count, name);
        }
    }
    std::string text;
    std::size_t named = 0;
    for (const auto& [count, name] : bySize) {
        if (named++ == kClassesNamed) {
            return fmt::format("{} and {} more", text, bySize.size() - kClassesNamed);
        }
        text += fmt::format("{}{} ({})", text.empty() ? "" : ", ", name, count);
    }
    return text;
}

}  // namespace

void RowCount::tell(const CommandContext& context, SchemaCache& schemas, bool isDeep) const {
    for (const auto& [className, delivered] : delivered_) {
        const ClassCounts received = context.session.received().classesOf(className);
        // Those of subclasses come again when these are asked.
        const std::size_t count = isDeep ? countOf(received, className) : sumOf(received);
        if (count <= delivered) {
            continue;
        }
        const std::string subclasses = isDeep ? std::string() : subclassesOf(className, received);
        context.notices.say(
            fmt::format("{}: {} instances were received and {} delivered: {}{}", className, count, delivered,
                        reasonFor(className, context.session.received().nodesOf(className), schemas),
                        subclasses.empty() ? "" : "; --deep, or the class itself, shows " + subclasses));
    }
}

}  // namespace tool
