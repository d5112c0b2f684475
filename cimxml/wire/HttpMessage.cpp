#include "cimxml/wire/HttpMessage.h"

#include "cimxml/wire/Ascii.h"

namespace cimxml {

namespace {

std::string_view withoutPrefix(std::string_view name) {
    const bool prefixed = name.size() > 3 && isDigit(name[0]) && isDigit(name[1]) && name[2] == '-';
    return prefixed ? name.substr(3) : name;
}

}  // namespace

const std::string* HttpResponse::find(std::string_view name) const {
    for (auto field = fields.rbegin(); field != fields.rend(); ++field) {
        if (equalNoCase(field->first, name) || equalNoCase(withoutPrefix(field->first), name)) {
            return &field->second;
        }
    }
    return nullptr;
}

}  // namespace cimxml
