#include "tools/print/MonitoringLine.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include "tools/common/SafeText.h"

namespace tool {

namespace {

constexpr std::size_t kNamedElements = 5;  // whoever reads the line wants to know the first

std::string startOf(MonitoringStatus status) {
    static constexpr std::array<const char*, 4> words = {"OK", "WARNING", "CRITICAL", "UNKNOWN"};
    return std::string("CIMHTTP ") + words.at(static_cast<std::size_t>(status)) + " - ";
}

// The bar begins the numbers.
std::string withoutBars(std::string text) {
    std::replace(text.begin(), text.end(), '|', '/');
    return text;
}

// `lower:upper`; a limit that is not set is left out.
std::string rangeText(const std::optional<Decimal>& lower, const std::optional<Decimal>& upper) {
    return (lower ? lower->text() + ':' : "") + (upper ? upper->text() : "");
}

const std::optional<Decimal>& either(const std::optional<Decimal>& one, const std::optional<Decimal>& other) {
    return one ? one : other;
}

// The units that such programs know; others would make the number unreadable.
std::string knownUnit(const std::string& unit) {
    return unit == "%" || unit == "s" || unit == "B" ? unit : std::string();
}

std::string quotedLabel(std::string name) {
    std::replace(name.begin(), name.end(), '=', ' ');
    std::string quoted = "'";
    for (const char letter : withoutBars(safeText(name))) {
        quoted += letter == '\'' ? "''" : std::string(1, letter);
    }
    return quoted += '\'';
}

std::string numbersOf(const Reading& reading) {
    std::string text =
        reading.value().text() + knownUnit(reading.unit()) + ';' +
        rangeText(reading.threshold(Reading::kLowerNonCritical),
                  reading.threshold(Reading::kUpperNonCritical)) +
        ';' +
        rangeText(
            either(reading.threshold(Reading::kLowerCritical), reading.threshold(Reading::kLowerFatal)),
            either(reading.threshold(Reading::kUpperCritical), reading.threshold(Reading::kUpperFatal)));
    text.erase(text.find_last_not_of(';') + 1);
    return text;
}

// Sensors in an order that their state does not change.
std::vector<const Element*> sensorsOf(const HealthReport& report) {
    std::vector<const Element*> sensors;
    for (const Element& element : report.elements()) {
        if (element.reading) {
            sensors.push_back(&element);
        }
    }
    std::sort(sensors.begin(), sensors.end(), [](const Element* one, const Element* other) {
        return std::tie(one->node, one->name, one->deviceId, one->path) <
               std::tie(other->node, other->name, other->deviceId, other->path);
    });
    return sensors;
}

// Each under a name of its own, which stays: they become graphs.
std::string allNumbers(const HealthReport& report) {
    std::map<std::string, std::string> numbers;
    for (const Element* sensor : sensorsOf(report)) {
        const std::string name = (report.nodes() > 1 ? sensor->node + '/' : "") + sensor->name;
        const std::string text = numbersOf(*sensor->reading);
        if (!numbers.emplace(quotedLabel(name), text).second) {
            numbers.emplace(quotedLabel(name + ' ' + sensor->deviceId), text);
        }
    }
    std::string joined;
    for (const auto& [label, text] : numbers) {
        joined += ' ';
        joined += label;
        joined += '=';
        joined += text;
    }
    return joined;
}

std::string illElements(const HealthReport& report) {
    std::string text;
    for (std::size_t i = 0; i < std::min(report.ill(), kNamedElements); ++i) {
        const Element& element = report.elements()[i];
        text += (i == 0 ? ": " : ", ") + element.name + ' ' + element.state;
    }
    return report.ill() > kNamedElements ? text + ", ..." : text;
}

}  // namespace

MonitoringStatus monitoringStatus(const HealthReport& report, bool isComplete) {
    const Severity worst = report.worst();
    if (worst >= Severity::kMajor) {
        return MonitoringStatus::kCritical;
    }
    if (isIll(worst)) {
        return MonitoringStatus::kWarning;
    }
    return worst == Severity::kUnknown || !isComplete ? MonitoringStatus::kUnknown : MonitoringStatus::kOk;
}

std::string monitoringLine(const HealthReport& report, bool isComplete) {
    const std::string numbers = allNumbers(report);
    return startOf(monitoringStatus(report, isComplete)) +
           withoutBars(safeText(report.summary() + illElements(report) +
                                (isComplete ? "" : "; not every node answered"))) +
           (numbers.empty() ? "" : " |" + numbers);
}

std::string monitoringLine(const std::string& reason) {
    return startOf(MonitoringStatus::kUnknown) + withoutBars(safeText(reason));
}

}  // namespace tool
