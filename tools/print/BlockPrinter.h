#pragma once

#include "tools/print/InstancePrinter.h"

namespace tool {

/// Instances as blocks of text: the path, and below it the node, what a sensor measures, and a line
/// a property.
class BlockPrinter : public InstancePrinter {
public:
    BlockPrinter(Output& output, SchemaCache& schemas) : output_(output), schemas_(schemas) {}

    void print(const InstanceView& instance) override;
    void end() override {}

private:
    Output& output_;
    SchemaCache& schemas_;
    bool first_ = true;
};

}  // namespace tool
