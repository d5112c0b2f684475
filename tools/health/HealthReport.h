#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/console/Progress.h"
#include "tools/health/Element.h"
#include "tools/health/LogEntry.h"
#include "tools/machine/SchemaCache.h"
#include "tools/machine/Session.h"

namespace tool {

/// How a machine is: its elements, the worst first, and its nodes' logs, the newest entry first.
class HealthReport {
public:
    /// In any order.
    HealthReport(std::vector<Element> elements, std::vector<LogEntry> entries, std::size_t nodes);

    /// Asks every node. Throws Failure when the machine's first node cannot say which elements there are.
    static HealthReport of(Session& session, SchemaCache& schemas, Progress& progress);

    const std::vector<Element>& elements() const { return elements_; }
    const std::vector<LogEntry>& entries() const { return entries_; }
    std::size_t nodes() const { return nodes_; }

    /// How many elements are ill, and how many tell no state.
    std::size_t ill() const;
    std::size_t unknown() const;

    /// The worst that an element says; unknown when none says anything.
    Severity worst() const;

    /// The newest entries that name an element, a few.
    std::vector<LogEntry> entriesOf(const Element& element) const;

    /// The newest entries, a few, that tell of something bad and name no ill element.
    std::vector<LogEntry> otherEntries() const;

    /// One line: `5 of 58 elements on 3 nodes are not well, 11 tell no state`.
    std::string summary() const;

private:
    std::vector<Element> elements_;
    std::vector<LogEntry> entries_;
    std::size_t nodes_;
};

}  // namespace tool
