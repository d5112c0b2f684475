#include "tools/report/ReportPage.h"

#include <algorithm>

#include "tools/print/ReadingColumn.h"
#include "tools/report/PageAssets.h"
#include "tools/report/SensorBar.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using NQELVSK20::TContext;

constexpr std::size_t kLengthOfDay = 10;  // 2024-09-11

std::string numbered(std::size_t number, const std::string& thing) {
    return std::to_string(number) + ' ' + thing + (number == 1 ? "" : "s");
}

std::string titleOf(const MachineReport& report) {
    std::string hosts;
    for (const MachineReport::Node& node : report.nodes) {
        hosts += (hosts.empty() ? "" : ", ") + node.host;
    }
    return hosts;
}

Severity worstOn(const HealthReport& health, const std::string& node) {
    Severity worst = Severity::kUnknown;
    for (const Element& element : health.elements()) {
        worst = element.node == node ? std::max(worst, element.severity) : worst;
    }
    return worst;
}

std::size_t illOn(const HealthReport& health, const std::string& node) {
    return static_cast<std::size_t>(std::count_if(
        health.elements().begin(), health.elements().end(),
        [&](const Element& element) { return element.node == node && isIll(element.severity); }));
}

std::string stateOn(const HealthReport& health, const std::string& node) {
    const std::size_t ill = illOn(health, node);
    if (ill != 0) {
        return numbered(ill, "element") + (ill == 1 ? " is" : " are") + " not well";
    }
    return worstOn(health, node) == Severity::kFine ? "all is well" : "no state";
}

std::string dayOf(const LogEntry& entry) {
    return entry.moment && !entry.moment->isInterval ? timeText(entry.time).substr(0, kLengthOfDay)
                                                     : "without a time";
}

std::string timeOfDay(const LogEntry& entry) {
    const std::string time = timeText(entry.time);
    return entry.moment && !entry.moment->isInterval && time.size() > kLengthOfDay
               ? time.substr(kLengthOfDay + 1)
               : time;
}

}  // namespace

ReportPage::ReportPage(const MachineReport& report, SchemaCache& schemas)
    : report_(report), schemas_(schemas) {
    const auto html = html_.open("html", {{"lang", "en"}});
    writeHead();
    const auto body = html_.open("body");
    writeTitle();
    {
        const auto main = html_.open("main");
        writeHealth();
        writeSensors();
        writeLog();
        writeClasses();
    }
    page::addScript(html_);
}

// The policy holds even if text of a server became markup: nothing is fetched or sent.
void ReportPage::writeHead() {
    const auto head = html_.open("head");
    html_.empty("meta", {{"charset", "utf-8"}});
    html_.empty("meta", {{"http-equiv", "Content-Security-Policy"},
                         {"content",
                          "default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'; "
                          "base-uri 'none'; form-action 'none'"}});
    html_.empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
    html_.empty("meta", {{"name", "color-scheme"}, {"content", "light dark"}});
    html_.element("title", titleOf(report_) + ", " + report_.time);
    page::addStyle(html_);
}

void ReportPage::writeTitle() {
    const auto header = html_.open("header");
    html_.element("h1", titleOf(report_));
    html_.element("p", report_.time + " · " + report_.nameSpace, {{"class", "quiet"}});
    html_.element("p", report_.health.summary(), {{"class", "verdict " + nameOf(report_.health.worst())}});
    if (report_.failures != 0) {
        html_.element("p",
                      numbered(report_.failures, "failure") +
                          " while the nodes were asked: what they did not give is missing on this page.",
                      {{"class", "verdict major"}});
    }
    writeNodes();
}

void ReportPage::writeNodes() {
    const auto list = html_.open("ul", {{"class", "nodes"}});
    for (const MachineReport::Node& node : report_.nodes) {
        writeNode(node);
    }
}

void ReportPage::writeNode(const MachineReport::Node& node) {
    const auto card = html_.open("li", {{"class", "card " + nameOf(worstOn(report_.health, node.number))}});
    html_.element("h2", "Node " + node.number);
    for (const std::string& system : node.systems) {
        html_.element("p", system);
    }
    html_.element("p", node.host + " · " + node.connection, {{"class", "quiet"}});
    if (node.isAsked) {
        html_.element("p", stateOn(report_.health, node.number), {{"class", "state"}});
    }
}

void ReportPage::writeHealth() {
    const auto section = html_.open("section", {{"id", "health"}});
    html_.element("h2", "Health");
    {
        const auto list = html_.open("ul", {{"class", "elements"}});
        for (const Element& element : report_.health.elements()) {
            if (isIll(element.severity)) {
                writeElement(element);
            }
        }
    }
    if (report_.health.ill() == 0) {
        html_.element("p", report_.health.summary());
    }
    const std::vector<LogEntry> others = report_.health.otherEntries();
    if (!others.empty()) {
        html_.element("h3", "Also in the logs");
        const auto list = html_.open("ul", {{"class", "log"}});
        for (const LogEntry& entry : others) {
            writeEntry(entry, timeText(entry.time));
        }
    }
}

void ReportPage::writeElement(const Element& element) {
    const auto item = html_.open("li", {{"class", "card " + nameOf(element.severity)}});
    html_.element("h3", element.name);
    html_.element("p", element.state, {{"class", "state"}});
    html_.element("p", element.note());
    html_.element("p", "Node " + element.node + " · " + element.className, {{"class", "quiet"}});
    const std::vector<LogEntry> entries = report_.health.entriesOf(element);
    if (!entries.empty()) {
        const auto list = html_.open("ul", {{"class", "log"}});
        for (const LogEntry& entry : entries) {
            writeEntry(entry, timeText(entry.time));
        }
    }
}

void ReportPage::writeSensors() {
    const auto section = html_.open("section", {{"id", "sensors"}});
    html_.element("h2", "Sensors");
    const auto columns = html_.open("div", {{"class", "columns"}});
    for (const MachineReport::Node& node : report_.nodes) {
        const auto column = html_.open("div");
        html_.element("h3", "Node " + node.number);
        const auto list = html_.open("ul", {{"class", "sensors"}});
        for (const Element& element : report_.health.elements()) {
            if (element.reading && element.node == node.number) {
                writeSensor(element);
            }
        }
    }
}

void ReportPage::writeSensor(const Element& element) {
    const auto item = html_.open("li", {{"class", nameOf(severityOfSensor(element))}});
    html_.element("span", element.name, {{"class", "name"}});
    writeSensorBar(html_, *element.reading);
    html_.element("span", element.reading->text(), {{"class", "reading"}});
    html_.element("span", limitsText(*element.reading), {{"class", "limits quiet"}});
}

void ReportPage::writeLog() {
    const auto section = html_.open("section", {{"id", "log"}});
    html_.element("h2", "Log");
    const std::vector<LogEntry>& entries = report_.health.entries();
    if (entries.empty()) {
        html_.element("p", "The logs are empty.", {{"class", "quiet"}});
    }
    for (std::size_t next = 0; next < entries.size();) {
        writeDay(entries, next);
    }
}

void ReportPage::writeDay(const std::vector<LogEntry>& entries, std::size_t& next) {
    const std::string day = dayOf(entries[next]);
    html_.element("h3", day);
    const auto list = html_.open("ol", {{"class", "log line"}});
    for (; next < entries.size() && dayOf(entries[next]) == day; ++next) {
        writeEntry(entries[next], timeOfDay(entries[next]));
    }
}

void ReportPage::writeEntry(const LogEntry& entry, const std::string& time) {
    const auto item = html_.open("li", {{"class", nameOf(entry.severity)}});
    html_.element("span", "Node " + entry.node, {{"class", "node quiet"}});
    html_.element("time", time, {{"title", timeText(entry.time)}});
    html_.element("span", entry.text, {{"class", "text"}});
    html_.element("span", entry.severityText, {{"class", "state"}});
}

void ReportPage::writeClasses() {
    const auto section = html_.open("section", {{"id", "classes"}});
    html_.element("h2", "Classes and instances");
    writeBranches(report_.classes);
}

void ReportPage::writeBranches(const std::vector<ClassBranch>& branches) {
    const auto list = html_.open("ul", {{"class", "tree"}});
    for (const ClassBranch& branch : branches) {
        writeBranch(branch);
    }
}

void ReportPage::writeBranch(const ClassBranch& branch) {
    const auto item = html_.open("li", {{"class", branch.total == 0 ? "class none" : "class"}});
    if (branch.subclasses.empty() && branch.instances.empty()) {
        html_.element("span", branch.name, {{"class", "leaf"}});
        return;
    }
    HtmlWriter::Attributes attributes;
    if (branch.total != 0 && !branch.subclasses.empty()) {
        attributes.emplace_back("open", "open");
    }
    const auto details = html_.open("details", attributes);
    {
        const auto summary = html_.open("summary");
        html_.element("span", branch.name);
        if (!branch.instances.empty()) {
            html_.text(" ");
            html_.element("span", numbered(branch.instances.size(), "instance"), {{"class", "quiet"}});
        }
    }
    if (!branch.instances.empty()) {
        const auto list = html_.open("ul", {{"class", "tree"}});
        for (const InstanceView& instance : branch.instances) {
            writeInstance(instance);
        }
    }
    if (!branch.subclasses.empty()) {
        writeBranches(branch.subclasses);
    }
}

void ReportPage::writeInstance(const InstanceView& instance) {
    const auto item = html_.open("li", {{"class", "instance"}});
    const auto details = html_.open("details");
    {
        const auto summary = html_.open("summary");
        html_.element("code", instance.path);
        html_.text(" ");
        html_.element("span", instance.node.empty() ? "" : "node " + instance.node, {{"class", "quiet"}});
    }
    writeProperties(instance);
}

// The names of those that have no value stand together: of a long instance they are the most.
void ReportPage::writeProperties(const InstanceView& instance) {
    const ClassSchema& schema = schemas_.of(instance.cimClass);
    std::string nulls;
    const auto table = html_.open("table");
    const auto row = [&](const std::string& name, const std::string& value) {
        const auto line = html_.open("tr");
        html_.element("th", name, {{"scope", "row"}});
        html_.element("td", value);
    };
    if (const auto reading = readingOf(instance)) {
        row("reading", reading->text());
    }
    for (const auto& property : instance.properties) {
        const std::string& name = property->GetName(TContext());
        const auto& value = instance.valueOf(*property);
        if (value.IsNull()) {
            nulls += (nulls.empty() ? "" : ", ") + name;
        } else {
            row(name, valueText(value, schema.valueMapOf(name)));
        }
    }
    if (!nulls.empty()) {
        row("(null)", nulls);
    }
}

}  // namespace tool
