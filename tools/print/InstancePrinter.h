#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/common/Options.h"
#include "tools/console/Output.h"
#include "tools/machine/SchemaCache.h"
#include "tools/print/InstanceView.h"

namespace tool {

/// Writes instances as they come, in one form.
class InstancePrinter {
public:
    virtual ~InstancePrinter() = default;
    virtual void print(const InstanceView& instance) = 0;

    /// To be called once, after the last instance.
    virtual void end() = 0;
};

/// What a printer is told.
struct PrinterSetup {
    Output& output;
    SchemaCache& schemas;
    const ClassSchema& schema;         ///< Of the class that was asked for.
    std::vector<std::string> columns;  ///< Properties to show, as declared; empty: all.
    std::size_t width;                 ///< Of the terminal; 0: there is none.
};

/// The printer for a format: blocks of text, or a table when columns are given; JSON; CSV. What `setup`
/// refers to must outlive it.
std::unique_ptr<InstancePrinter> makeInstancePrinter(Format format, const PrinterSetup& setup);

}  // namespace tool
