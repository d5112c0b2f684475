#include "tools/print/InstancePrinter.h"

#include "tools/print/BlockPrinter.h"
#include "tools/print/CsvPrinter.h"
#include "tools/print/JsonPrinter.h"
#include "tools/print/TablePrinter.h"

namespace tool {

std::unique_ptr<InstancePrinter> makeInstancePrinter(Format format, const PrinterSetup& setup) {
    switch (format) {
        case Format::kJson:
            return std::make_unique<JsonPrinter>(setup.output, setup.columns, setup.schema);
        case Format::kCsv:
            return std::make_unique<CsvPrinter>(setup.output, setup.schema, setup.columns);
        case Format::kText:
            break;
    }
    if (setup.columns.empty()) {
        return std::make_unique<BlockPrinter>(setup.output, setup.schemas);
    }
    return std::make_unique<TablePrinter>(setup.output, setup.schema, setup.columns, setup.width);
}

}  // namespace tool
