#include "tools/print/CsvPrinter.h"

#include <nlohmann/json.hpp>

#include "tools/common/SafeText.h"
#include "tools/print/ReadingColumn.h"
#include "tools/values/JsonValue.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

std::string plainField(const NQELVSK20::TCIMValue* value) {
    if (value == nullptr || value->IsNull()) {
        return {};
    }
    return value->IsArray() ? jsonText(jsonValue(*value), -1, false) : plainText(*value);
}

}  // namespace

std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char letter : text) {
        quoted += letter == '"' ? "\"\"" : std::string(1, letter);
    }
    return quoted += '"';
}

CsvPrinter::CsvPrinter(Output& output, const ClassSchema& schema, const std::vector<std::string>& columns)
    : output_(output), schema_(schema), columns_(columns) {
    if (!columns_.empty()) {
        return;
    }
    for (const ClassSchema::Property& property : schema.properties()) {
        if (!sameName(property.name, "NodeID")) {
            columns_.push_back(property.name);
        }
    }
}

std::string CsvPrinter::textOf(const InstanceView& instance, const std::string& column) const {
    if (isReadingColumn(column, schema_)) {
        const auto reading = readingOf(instance);
        return reading ? reading->text() : "";
    }
    return plainField(instance.value(column));
}

std::string CsvPrinter::field(const std::string& text) const {
    return csvField(output_.isTerminal() ? safeText(text) : withoutHidden(text));
}

void CsvPrinter::print(const InstanceView& instance) {
    std::string record;
    if (!headed_) {
        record = "node,path";
        for (const std::string& column : columns_) {
            record += ',' + field(column);
        }
        record += "\r\n";
        headed_ = true;
    }
    record += field(instance.node) + ',' + field(instance.path);
    for (const std::string& column : columns_) {
        record += ',' + field(textOf(instance, column));
    }
    output_.write(record += "\r\n");
}

}  // namespace tool
