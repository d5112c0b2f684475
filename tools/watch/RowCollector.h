#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tools/machine/SchemaCache.h"
#include "tools/print/InstancePrinter.h"
#include "tools/watch/Row.h"

namespace tool {

/// Keeps instances as rows instead of writing them.
class RowCollector : public InstancePrinter {
public:
    /// `columns` as for a printer; empty: every property. `schemas` must outlive the collector.
    RowCollector(SchemaCache& schemas, std::vector<std::string> columns)
        : schemas_(schemas), columns_(std::move(columns)) {}

    void print(const InstanceView& instance) override;
    void end() override {}

    /// A row that is no instance.
    void add(Row row) { rows_.push_back(std::move(row)); }

    /// What was collected; the collector is empty then.
    Rows take();

private:
    Cell cellOf(const InstanceView& instance, const ClassSchema& schema, const std::string& column) const;

    SchemaCache& schemas_;
    std::vector<std::string> columns_;
    Rows rows_;
};

/// The lines of a text as rows: a line that comes again is another row.
Rows rowsOf(const std::string& text);

}  // namespace tool
