#include "tools/print/TablePrinter.h"

#include <algorithm>

#include "tools/common/SafeText.h"
#include "tools/common/Utf8.h"
#include "tools/print/ReadingColumn.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

constexpr std::size_t kWindow = 50;  // instances that the column widths are taken from
constexpr const char* kGap = "  ";

}  // namespace

TablePrinter::TablePrinter(Output& output, const ClassSchema& schema, const std::vector<std::string>& columns,
                           std::size_t width)
    : output_(output), schema_(schema), columns_(columns), width_(width) {
    Row heading{"Node"};
    heading.insert(heading.end(), columns_.begin(), columns_.end());
    waiting_.push_back(heading);
}

void TablePrinter::print(const InstanceView& instance) {
    Row row{safeText(instance.node)};
    for (const std::string& column : columns_) {
        row.push_back(cellOf(instance, column));
    }
    if (started_) {
        write(row);
        return;
    }
    waiting_.push_back(row);
    if (waiting_.size() > kWindow) {
        start();
    }
}

std::string TablePrinter::cellOf(const InstanceView& instance, const std::string& column) const {
    if (isReadingColumn(column, schema_)) {
        const auto reading = readingOf(instance);
        return reading ? reading->text() : "";
    }
    const NQELVSK20::TCIMValue* value = instance.value(column);
    return value == nullptr ? "" : valueText(*value, schema_.valueMapOf(column));
}

void TablePrinter::end() {
    if (!started_ && waiting_.size() > 1) {
        start();
    }
}

void TablePrinter::start() {
    started_ = true;
    widths_.assign(columns_.size() + 1, 0);
    for (const Row& row : waiting_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths_[i] = std::max(widths_[i], lengthOf(row[i]));
        }
    }
    for (const Row& row : waiting_) {
        write(row);
    }
    waiting_.clear();
}

void TablePrinter::write(const Row& row) {
    std::string line;
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
        line += padTo(row[i], widths_[i]) + kGap;
    }
    line += row.back();
    output_.line(cutTo(line, width_));
}

}  // namespace tool
