#include "tools/print/HealthPrinter.h"

#include <algorithm>
#include <iterator>

#include "tools/common/SafeText.h"
#include "tools/common/Utf8.h"

namespace tool {

namespace {

constexpr const char* kColumnGap = "  ";
const std::string kNodeHeading = "Node";

template <typename VALUES, typename TEXT>
std::size_t widthOf(const VALUES& values, const std::string& heading, const TEXT& textOf) {
    std::size_t width = heading.size();
    for (const auto& value : values) {
        width = std::max(width, lengthOf(textOf(value)));
    }
    return width;
}

std::string stateOf(const Element& element) {
    return safeText(element.state);
}

std::string nameFor(const Element& element) {
    return safeText(element.name);
}

std::string severityFor(const LogEntry& entry) {
    return safeText(entry.severityText);
}

std::string timeFor(const LogEntry& entry) {
    return safeText(timeText(entry.time));
}

std::string withoutBlanksBehind(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

}  // namespace

void HealthPrinter::line(const std::string& text) {
    output_.line(cutTo(withoutBlanksBehind(text), width_));
}

void HealthPrinter::print(const HealthReport& report, bool all) {
    line(report.summary());
    std::vector<Element> elements;
    std::copy_if(report.elements().begin(), report.elements().end(), std::back_inserter(elements),
                 [&](const Element& element) { return all || isIll(element.severity); });
    if (!elements.empty()) {
        printElements(report, elements);
    }
    if (all || report.ill() != 0) {
        printLog(report.otherEntries());
    }
}

void HealthPrinter::printElements(const HealthReport& report, const std::vector<Element>& elements) {
    const std::size_t states = widthOf(elements, "State", stateOf);
    const std::size_t names = widthOf(elements, "Element", nameFor);
    line("");
    line(kNodeHeading + kColumnGap + padTo("State", states) + kColumnGap + "Element");
    for (const Element& element : elements) {
        line(padTo(safeText(element.node), kNodeHeading.size()) + kColumnGap +
             padTo(stateOf(element), states) + kColumnGap + padTo(nameFor(element), names) + kColumnGap +
             element.note());
        for (const LogEntry& entry :
             isIll(element.severity) ? report.entriesOf(element) : std::vector<LogEntry>()) {
            line(std::string(kNodeHeading.size(), ' ') + kColumnGap + timeFor(entry) + kColumnGap +
                 safeText(entry.text));
        }
    }
}

void HealthPrinter::printLog(const std::vector<LogEntry>& entries) {
    if (entries.empty()) {
        return;
    }
    const std::size_t times = widthOf(entries, "", timeFor);
    const std::size_t severities = widthOf(entries, "", severityFor);
    line("");
    line(kNodeHeading + kColumnGap + "Also in the logs");
    for (const LogEntry& entry : entries) {
        line(padTo(safeText(entry.node), kNodeHeading.size()) + kColumnGap + padTo(timeFor(entry), times) +
             kColumnGap + padTo(severityFor(entry), severities) + kColumnGap + safeText(entry.text));
    }
}

}  // namespace tool
