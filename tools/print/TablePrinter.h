#pragma once

#include "tools/print/InstancePrinter.h"

namespace tool {

/// Instances as a table: a line an instance, a column a property, the node first. Column widths come from the
/// first instances, so that the table can begin while others are still to come; on a terminal every line is
/// cut to its width.
class TablePrinter : public InstancePrinter {
public:
    /// `width` of the terminal in columns; 0: lines are not cut.
    TablePrinter(Output& output, const ClassSchema& schema, const std::vector<std::string>& columns,
                 std::size_t width);

    void print(const InstanceView& instance) override;
    void end() override;

private:
    using Row = std::vector<std::string>;

    std::string cellOf(const InstanceView& instance, const std::string& column) const;
    void start();
    void write(const Row& row);

    Output& output_;
    const ClassSchema& schema_;
    std::vector<std::string> columns_;
    std::size_t width_;
    bool started_ = false;
    std::vector<Row> waiting_;         // heading and first instances, until the widths are known
    std::vector<std::size_t> widths_;  // of the columns
};

}  // namespace tool
