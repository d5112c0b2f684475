#include "tools/health/HealthReport.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "tools/common/Names.h"
#include "tools/health/InstanceWalk.h"

namespace tool {

namespace {

constexpr std::size_t kFewEntries = 3;

template <typename VALUE>
std::vector<VALUE> mappedValues(std::map<std::string, VALUE> map) {
    std::vector<VALUE> values;
    values.reserve(map.size());
    for (auto& entry : map) {
        values.push_back(std::move(entry.second));
    }
    return values;
}

std::vector<Element> findElements(InstanceWalk& walk) {
    std::map<std::string, Element> elements;
    walk.below(
        "CIM_ManagedSystemElement", [&](const std::string& identity, const InstanceWalk::Found& found) {
            elements.insert_or_assign(identity, Element::of(found.properties, found.path, found.schema));
        });
    return mappedValues(std::move(elements));
}

bool isOfLogs(const std::string& className) {
    return sameName(className, "CIM_LogEntry") || sameName(className, "CIM_RecordForLog");
}

std::vector<LogEntry> findEntries(Session& session, InstanceWalk& walk) {
    std::map<std::string, LogEntry> entries;
    const auto take = [&](const std::string& identity, const InstanceWalk::Found& found) {
        entries.insert_or_assign(identity, LogEntry::of(found.properties, found.schema));
    };
    for (const std::string& name : session.classNames("CIM_ManagedElement")) {
        if (isOfLogs(name)) {
            walk.below(name, take);
        }
    }
    std::vector<LogEntry> all = mappedValues(std::move(entries));
    // What the plug-in holds back of a class still shows in the class above it, without its message.
    all.erase(
        std::remove_if(all.begin(), all.end(), [](const LogEntry& entry) { return entry.text.empty(); }),
        all.end());
    return all;
}

// At most a few.
template <typename FITS>
std::vector<LogEntry> firstEntries(const std::vector<LogEntry>& entries, const FITS& fits) {
    std::vector<LogEntry> chosen;
    for (const LogEntry& entry : entries) {
        if (chosen.size() < kFewEntries && fits(entry)) {
            chosen.push_back(entry);
        }
    }
    return chosen;
}

std::string counted(std::size_t count, const std::string& thing) {
    return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
}

}  // namespace

HealthReport::HealthReport(std::vector<Element> elements, std::vector<LogEntry> entries, std::size_t nodes)
    : elements_(std::move(elements)), entries_(std::move(entries)), nodes_(nodes) {
    std::stable_sort(elements_.begin(), elements_.end(), [](const Element& one, const Element& other) {
        return std::tie(other.severity, one.node, one.name) < std::tie(one.severity, other.node, other.name);
    });
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const LogEntry& one, const LogEntry& other) { return one.isNewerThan(other); });
}

HealthReport HealthReport::of(Session& session, SchemaCache& schemas, Progress& progress) {
    InstanceWalk walk(session, schemas, progress);
    std::vector<Element> elements = findElements(walk);
    return HealthReport(std::move(elements), findEntries(session, walk), session.machine().nodes().size());
}

std::size_t HealthReport::ill() const {
    return static_cast<std::size_t>(std::count_if(
        elements_.begin(), elements_.end(), [](const Element& element) { return isIll(element.severity); }));
}

std::size_t HealthReport::unknown() const {
    return static_cast<std::size_t>(
        std::count_if(elements_.begin(), elements_.end(),
                      [](const Element& element) { return element.severity == Severity::kUnknown; }));
}

Severity HealthReport::worst() const {
    return elements_.empty() ? Severity::kUnknown : elements_.front().severity;
}

std::vector<LogEntry> HealthReport::entriesOf(const Element& element) const {
    return firstEntries(entries_, [&](const LogEntry& entry) { return entry.names(element); });
}

std::vector<LogEntry> HealthReport::otherEntries() const {
    const auto namesIll = [&](const LogEntry& entry) {
        return std::any_of(elements_.begin(), elements_.end(), [&](const Element& element) {
            return isIll(element.severity) && entry.names(element);
        });
    };
    return firstEntries(entries_,
                        [&](const LogEntry& entry) { return isIll(entry.severity) && !namesIll(entry); });
}

std::string HealthReport::summary() const {
    const std::size_t silent = unknown();
    const std::string all = counted(elements_.size(), "element") + " on " + counted(nodes_, "node");
    const std::string rest =
        silent == 0 ? "" : ", " + std::to_string(silent) + (silent == 1 ? " tells" : " tell") + " no state";
    if (ill() != 0) {
        return std::to_string(ill()) + " of " + all + (ill() == 1 ? " is" : " are") + " not well" + rest;
    }
    return silent == elements_.size() ? all + ": none tells its state" : all + ": all is well" + rest;
}

}  // namespace tool
