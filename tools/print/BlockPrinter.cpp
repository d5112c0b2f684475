#include "tools/print/BlockPrinter.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/common/SafeText.h"
#include "tools/print/ReadingColumn.h"
#include "tools/values/ValueText.h"

namespace tool {

using NQELVSK20::TContext;

void BlockPrinter::print(const InstanceView& instance) {
    const ClassSchema& schema = schemas_.of(instance.cimClass);
    std::string block = first_ ? "" : "\n";
    first_ = false;
    block += safeText(instance.path) + '\n';
    const auto reading = readingOf(instance);
    std::size_t width = std::string(reading ? "reading" : "node").size();
    for (const auto& property : instance.properties) {
        width = std::max(width, property->GetName(TContext()).size());
    }
    block += fmt::format("    {:<{}}  {}\n", "node", width, safeText(instance.node));
    if (reading) {
        block += fmt::format("    {:<{}}  {}\n", "reading", width, reading->text());
    }
    for (const auto& property : instance.properties) {
        const std::string& name = property->GetName(TContext());
        block += fmt::format("    {:<{}}  {}\n", name, width,
                             valueText(instance.valueOf(*property), schema.valueMapOf(name)));
    }
    output_.write(block);
}

}  // namespace tool
