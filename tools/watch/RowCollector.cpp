#include "tools/watch/RowCollector.h"

#include <map>
#include <sstream>
#include <utility>

#include "tools/common/SafeText.h"
#include "tools/print/ReadingColumn.h"
#include "tools/values/NumberOf.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using NQELVSK20::TContext;

std::string labelOf(const InstanceView& instance) {
    for (const char* name : {"ElementName", "Name", "DeviceID"}) {
        const TCIMValue* value = instance.value(name);
        if (value != nullptr && !value->IsNull() && !plainText(*value).empty()) {
            return safeText(instance.node + "  " + plainText(*value));
        }
    }
    return safeText(instance.node + "  " + instance.path);
}

}  // namespace

void RowCollector::print(const InstanceView& instance) {
    const ClassSchema& schema = schemas_.of(instance.cimClass);
    Row row{instance.node + '\n' + instance.path, labelOf(instance), {}};
    if (!columns_.empty()) {
        row.label = safeText(instance.node);
    }
    for (const std::string& column : columns_) {
        row.cells.push_back(cellOf(instance, schema, column));
    }
    for (std::size_t i = 0; columns_.empty() && i < instance.properties.size(); ++i) {
        row.cells.push_back(cellOf(instance, schema, instance.properties[i]->GetName(TContext())));
    }
    rows_.push_back(std::move(row));
}

Cell RowCollector::cellOf(const InstanceView& instance, const ClassSchema& schema,
                          const std::string& column) const {
    if (isReadingColumn(column, schema)) {
        const auto reading = readingOf(instance);
        return reading ? Cell{column, reading->text(), reading->value()} : Cell{column, "", std::nullopt};
    }
    const TCIMValue* value = instance.value(column);
    return value == nullptr ? Cell{column, "", std::nullopt}
                            : Cell{column, valueText(*value, schema.valueMapOf(column)), numberOf(*value)};
}

Rows RowCollector::take() {
    return std::exchange(rows_, Rows());
}

Rows rowsOf(const std::string& text) {
    std::map<std::string, int> times;
    Rows rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        rows.push_back({line + '\n' + std::to_string(++times[line]), line, {}});
    }
    return rows;
}

}  // namespace tool
