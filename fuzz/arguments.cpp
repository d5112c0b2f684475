// Takes arbitrary lines for what a person types. When the first is "cimhttp", they are the words of a command
// line. Otherwise they are a method's arguments, and each of them is taken for a list, an object path, a node
// and a value of every type.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/tools/support/Sensors.h"
#include "tools/common/DateTimeForm.h"
#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"
#include "tools/common/Utf8.h"
#include "tools/machine/Node.h"
#include "tools/program/CommandLine.h"
#include "tools/values/ArgumentParser.h"
#include "tools/values/JsonValue.h"
#include "tools/values/ObjectPath.h"
#include "tools/values/ValueText.h"

namespace {

using namespace NQELVSK20;
using namespace tool;
using Type = TCIMValue::TCIMType;

constexpr std::size_t kCellWidth = 20;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Calls what says to the person that the words are wrong.
template <typename Call>
void attempt(Call call) {
    try {
        call();
    } catch (const UsageError&) {
        // That is what is said.
    }
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines(1);
    for (const char letter : text) {
        if (letter == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += letter;
        }
    }
    return lines;
}

void readCommandLine(const std::vector<std::string>& words) {
    std::vector<const char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(word.c_str());
    }
    const CommandLine line(static_cast<int>(arguments.size()), arguments.data());
    for (const std::string& node : line.options.nodes) {
        attempt([&] { parseNode(node, line.options.user); });
    }
}

/// Nothing in it does anything to a terminal but appear, on one line.
void requireSafe(const std::string& text) {
    for (std::size_t position = 0; position < text.size();) {
        const CodePoint point = codePointAt(text, position);
        require(point.valid && point.value >= 0x20 && (point.value < 0x7F || point.value > 0x9F));
        position += point.size;
    }
}

/// What was read, as it is printed.
void print(const TCIMValue& value) {
    requireSafe(valueText(value, nullptr));
    requireSafe(mofText(value));
    const std::string json = jsonText(jsonValue(value), -1, true);
    requireSafe(json);
    require(jsonText(nlohmann::ordered_json::parse(json), -1, true) == json);
}

/// A schema in memory, and what a person's words are read with.
struct Setting {
    Sensors sensors;
    ClassSchema schema = sensors.schema();
    ArgumentParser parser{*sensors.sensor()->GetMethodDecl("Calibrate", {}), [](const std::string& path) {
                              TCIMReference reference(nullptr, {});
                              reference.SetPath(path);
                              return reference;
                          }};
};

bool isText(Type type) {
    return type == Type::eString || type == Type::eDateTime || type == Type::eReference;
}

/// A value of the type; in its plain form it is read as the same again.
void readValue(const Setting& setting, Type type, const std::string& text) {
    const TCIMValue value = setting.parser.value("Name", type, text);
    print(value);
    if (value.IsArray()) {
        return;
    }
    const std::string plain = plainText(value);
    require(!isText(type) || plain == text);
    require(!(setting.parser.value("Name", type, plain) != value) || plain == "nan" || plain == "-nan");
}

void readPath(const Setting& setting, const std::string& text) {
    const ObjectPath path = ObjectPath::parse(text);
    const std::string written = instancePath(path, setting.schema);
    require(instancePath(ObjectPath::parse(written), setting.schema) == written);
}

/// A list whose elements are quoted reads as the same again.
void readList(const std::string& text) {
    const std::vector<std::string> elements = parseList(text);
    std::string quoted;
    for (const std::string& element : elements) {
        quoted += quoted.empty() ? "" : ",";
        quoted += '"';
        for (const char letter : element) {
            quoted += letter == '"' || letter == '\\' ? "\\" : "";
            quoted += letter;
        }
        quoted += '"';
    }
    require(parseList('[' + quoted + ']') == elements);
}

void readLine(const Setting& setting, const std::string& line) {
    attempt([&] { print(setting.parser.parse({line}).begin()->second); });
    attempt([&] { readList(line); });
    attempt([&] { readPath(setting, line); });
    attempt([&] { parseNode(line, "user"); });
    // A value in brackets is an array's, and text besides.
    const bool isList = !line.empty() && line.front() == '[';
    for (int code = isList ? Type::eString : Type::eUnknown;
         code <= (isList ? Type::eReferenceArray : Type::eReference); ++code) {
        attempt([&] { readValue(setting, static_cast<Type::ECIMType>(code), line); });
    }
    isDateTime(line);
    const std::string cell = padTo(cutTo(safeText(line), kCellWidth), kCellWidth);
    requireSafe(cell);
    require(lengthOf(cell) == kCellWidth);
}

/// Nothing that the program would say is written.
const Setting& quietSetting() {
    std::cout.setstate(std::ios::failbit);
    std::cerr.setstate(std::ios::failbit);
    static const Setting setting;
    return setting;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Setting& setting = quietSetting();
    const auto lines = linesOf(std::string(reinterpret_cast<const char*>(data), size));
    if (lines.front() == "cimhttp") {
        attempt([&] { readCommandLine(lines); });
        return 0;
    }
    attempt([&] { setting.parser.parse(lines); });
    for (const std::string& line : lines) {
        readLine(setting, line);
    }
    return 0;
}
