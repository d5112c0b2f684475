#include "tools/values/JsonDecimal.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace tool {

using nlohmann::ordered_json;

ordered_json jsonDecimal(const Decimal& number) {
    const std::string text = number.text();
    const ordered_json read = ordered_json::parse(text, nullptr, false);
    if (!read.is_number() || (read.is_number_float() && !std::isfinite(read.get<double>()))) {
        return text;
    }
    const auto written = Decimal::parse(read.dump());
    return written && *written == number ? read : ordered_json(text);
}

}  // namespace tool
