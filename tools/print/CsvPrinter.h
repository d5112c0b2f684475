#pragma once

#include "tools/print/InstancePrinter.h"

namespace tool {

/// A field of CSV (RFC 4180), quoted when it must be.
std::string csvField(const std::string& text);

/// Instances as CSV (RFC 4180): node and path first, then the chosen properties, or all that the class has,
/// its own first. Null values are empty fields, arrays are JSON. As a file it holds every text as it is; on a
/// terminal control characters are escaped.
class CsvPrinter : public InstancePrinter {
public:
    CsvPrinter(Output& output, const ClassSchema& schema, const std::vector<std::string>& columns);

    void print(const InstanceView& instance) override;
    void end() override {}

private:
    std::string field(const std::string& text) const;
    std::string textOf(const InstanceView& instance, const std::string& column) const;

    Output& output_;
    const ClassSchema& schema_;
    std::vector<std::string> columns_;
    bool headed_ = false;
};

}  // namespace tool
