#pragma once

#include <string>
#include <vector>

#include "tools/machine/SchemaCache.h"
#include "tools/report/ClassBranch.h"
#include "tools/report/HtmlWriter.h"
#include "tools/report/MachineReport.h"

namespace tool {

/// A machine's report as one page that needs nothing from elsewhere and can be read without its script.
class ReportPage {
public:
    /// Both must outlive the page.
    ReportPage(const MachineReport& report, SchemaCache& schemas);

    const std::string& html() const { return html_.html(); }

private:
    void writeHead();
    void writeTitle();
    void writeNodes();
    void writeNode(const MachineReport::Node& node);
    void writeHealth();
    void writeElement(const Element& element);
    void writeSensors();
    void writeSensor(const Element& element);
    void writeLog();
    void writeDay(const std::vector<LogEntry>& entries, std::size_t& next);
    void writeEntry(const LogEntry& entry, const std::string& time);
    void writeClasses();
    void writeBranches(const std::vector<ClassBranch>& branches);
    void writeBranch(const ClassBranch& branch);
    void writeInstance(const InstanceView& instance);
    void writeProperties(const InstanceView& instance);

    const MachineReport& report_;
    SchemaCache& schemas_;
    HtmlWriter html_;
};

}  // namespace tool
