#include "tools/report/SensorBar.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>

#include "tools/report/Scale.h"

namespace tool {

namespace {

constexpr double kMarkWidth = 0.8;

using Thresholds = std::initializer_list<Reading::Threshold>;

std::string sideText(const Reading& reading, const Thresholds& thresholds) {
    std::string text;
    for (const Reading::Threshold threshold : thresholds) {
        if (const auto& limit = reading.threshold(threshold)) {
            text += (text.empty() ? "" : " / ") + limit->text();
        }
    }
    return text;
}

void writeBox(HtmlWriter& html, const char* kind, double from, double width, double height) {
    constexpr double kHeight = 10;
    html.empty("rect", {{"class", kind},
                        {"x", fmt::format("{:.2f}", from)},
                        {"y", fmt::format("{:.2f}", (kHeight - height) / 2)},
                        {"width", fmt::format("{:.2f}", width)},
                        {"height", fmt::format("{:.2f}", height)}});
}

}  // namespace

Severity severityOfSensor(const Element& element) {
    const auto crossed = element.reading ? element.reading->crossed() : std::nullopt;
    if (!crossed) {
        return element.severity;
    }
    const Severity said = *crossed < Reading::kLowerCritical ? Severity::kWarning
                          : *crossed < Reading::kLowerFatal  ? Severity::kCritical
                                                             : Severity::kFatal;
    return std::max(said, element.severity);
}

std::string limitsText(const Reading& reading) {
    const std::string lower =
        sideText(reading, {Reading::kLowerFatal, Reading::kLowerCritical, Reading::kLowerNonCritical});
    const std::string upper =
        sideText(reading, {Reading::kUpperNonCritical, Reading::kUpperCritical, Reading::kUpperFatal});
    return (lower.empty() ? "" : "lower " + lower) + (lower.empty() || upper.empty() ? "" : ", ") +
           (upper.empty() ? "" : "upper " + upper);
}

void writeSensorBar(HtmlWriter& html, const Reading& reading) {
    const auto scale = Scale::of(reading);
    if (!scale) {
        html.element("span", "no thresholds", {{"class", "bar quiet"}});
        return;
    }
    const auto bar = html.open("svg", {{"class", "bar"},
                                       {"viewBox", "0 0 100 10"},
                                       {"preserveAspectRatio", "none"},
                                       {"role", "img"},
                                       {"aria-label", reading.text() + "; " + limitsText(reading)}});
    writeBox(html, "track", 0, 100, 10);
    for (const Scale::Zone& zone : scale->zones()) {
        writeBox(html, zone.isCritical ? "zone beyond" : "zone", zone.from, zone.to - zone.from, 10);
    }
    writeBox(html, "value", 0, scale->reading(), 4);
    writeBox(html, "mark", std::max(0.0, scale->reading() - kMarkWidth), kMarkWidth, 10);
}

}  // namespace tool
