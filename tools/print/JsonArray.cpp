#include "tools/print/JsonArray.h"

#include <nlohmann/json.hpp>
#include <string>

#include "tools/values/JsonValue.h"

namespace tool {

namespace {

constexpr int kIndent = 2;

std::string indented(const std::string& text) {
    std::string result(kIndent, ' ');
    for (const char letter : text) {
        result += letter;
        if (letter == '\n') {
            result.append(kIndent, ' ');
        }
    }
    return result;
}

}  // namespace

void JsonArray::add(const nlohmann::ordered_json& element) {
    output_.write((empty_ ? "[\n" : ",\n") + indented(jsonText(element, kIndent, output_.isTerminal())));
    empty_ = false;
}

void JsonArray::end() {
    output_.line(empty_ ? "[]" : "\n]");
}

}  // namespace tool
