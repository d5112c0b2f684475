#include "tools/values/ValueMap.h"

#include <algorithm>

#include "tools/common/Integer.h"
#include "tools/common/Names.h"
#include "tools/values/CimTypeName.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using TType = TCIMValue::TCIMType;

constexpr const char* kAllOthers = "..";

bool isInteger(const TCIMValue& scalar) {
    const TType::ECIMType type = scalar.GetType();
    return type >= TType::eUint8 && type <= TType::eSint64;
}

bool holds(const std::string& range, const Integer& number) {
    const std::size_t dots = range.find("..");
    if (dots == std::string::npos) {
        const auto value = parseInteger(range);
        return value && *value <= number && number <= *value;
    }
    if (range == kAllOthers) {
        return false;
    }
    const std::string low = range.substr(0, dots);
    const std::string high = range.substr(dots + 2);
    const auto lowest = parseInteger(low);
    const auto highest = parseInteger(high);
    if ((!low.empty() && !lowest) || (!high.empty() && !highest)) {
        return false;
    }
    return (!lowest || *lowest <= number) && (!highest || number <= *highest);
}

}  // namespace

ValueMap::ValueMap(std::vector<std::string> values, const std::vector<std::string>& texts) {
    const bool isImplicit = values.empty();
    for (std::size_t i = 0; isImplicit && i < texts.size(); ++i) {
        values.push_back(std::to_string(i));
    }
    for (std::size_t i = 0; i < std::min(values.size(), texts.size()); ++i) {
        entries_.push_back({values[i], texts[i]});
    }
}

std::optional<std::string> ValueMap::textOf(const TCIMValue& scalar) const {
    if (scalar.IsNull()) {
        return std::nullopt;
    }
    const std::string text = scalar.ToString(10);
    const auto number = isInteger(scalar) ? parseInteger(text) : std::nullopt;
    const auto matches = [&](const Entry& entry) {
        return number ? holds(entry.value, *number) : entry.value == text;
    };
    auto found = std::find_if(entries_.begin(), entries_.end(), matches);
    if (found == entries_.end()) {
        found = std::find_if(entries_.begin(), entries_.end(),
                             [](const Entry& entry) { return entry.value == kAllOthers; });
    }
    return found == entries_.end() ? std::nullopt : std::optional(found->text);
}

std::optional<std::string> ValueMap::valueOf(const std::string& text) const {
    for (const Entry& entry : entries_) {
        if (sameName(entry.text, text) && entry.value.find("..") == std::string::npos) {
            return entry.value;
        }
    }
    return std::nullopt;
}

std::string ValueMap::texts() const {
    std::string texts;
    for (const Entry& entry : entries_) {
        texts += (texts.empty() ? "" : ", ") + entry.text;
    }
    return texts;
}

}  // namespace tool
