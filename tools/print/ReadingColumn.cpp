#include "tools/print/ReadingColumn.h"

#include "tools/common/Names.h"

namespace tool {

bool isReadingColumn(const std::string& column, const ClassSchema& schema) {
    return sameName(column, kReadingColumn) && schema.findProperty(kReadingColumn) == nullptr &&
           schema.findProperty("CurrentReading") != nullptr;
}

std::optional<Reading> readingOf(const InstanceView& instance) {
    return Reading::of([&](const std::string& property) { return instance.value(property); });
}

}  // namespace tool
