#include "cimom/http/HttpMessage.h"

#include <algorithm>

#include "cimom/common/Text.h"

namespace cimom {

const std::string* HttpRequest::field(std::string_view name) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [&](const auto& entry) { return sameName(entry.first, name); });
    return found == fields.end() ? nullptr : &found->second;
}

bool HttpRequest::fieldHas(std::string_view name, std::string_view word) const {
    const std::string* value = field(name);
    std::string_view rest = value == nullptr ? std::string_view() : std::string_view(*value);
    while (!rest.empty()) {
        const auto comma = rest.find(',');
        std::string_view item = rest.substr(0, comma);
        item = item.substr(0, item.find(';'));
        if (sameName(trimmed(item), word)) {
            return true;
        }
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    }
    return false;
}

HttpAnswer plainAnswer(int status, const std::string& reason, HttpFields fields) {
    HttpAnswer answer;
    answer.status = status;
    answer.reason = reason;
    answer.fields = std::move(fields);
    return answer;
}

}  // namespace cimom
