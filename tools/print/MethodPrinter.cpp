#include "tools/print/MethodPrinter.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/common/SafeText.h"
#include "tools/values/JsonValue.h"
#include "tools/values/ValueText.h"

namespace tool {

using namespace NQELVSK20;

void MethodPrinter::printText(const TCIMValue& returned, const TContext& outputs) {
    const std::string label = "return value";
    std::size_t width = label.size();
    for (const auto& output : outputs) {
        width = std::max(width, output.first.size());
    }
    output_.line(padTo(label, width) + "  " + valueText(returned, meanings_ ? &*meanings_ : nullptr));
    for (const auto& [name, value] : outputs) {
        output_.line(padTo(safeText(name), width) + "  " + valueText(value, nullptr));
    }
}

void MethodPrinter::printJson(const TCIMValue& returned, const TContext& outputs) {
    nlohmann::ordered_json json;
    json["returnValue"] = jsonValue(returned);
    if (const auto meaning = meanings_ ? meanings_->textOf(returned) : std::nullopt) {
        json["returnMeaning"] = *meaning;
    }
    json["outputs"] = nlohmann::ordered_json::object();
    for (const auto& [name, value] : outputs) {
        json["outputs"][name] = jsonValue(value);
    }
    output_.line(jsonText(json, 2, output_.isTerminal()));
}

}  // namespace tool
