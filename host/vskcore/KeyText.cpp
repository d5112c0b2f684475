#include "vskcore/KeyText.h"

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

namespace {

using TType = TCIMValue::TCIMType;

void AppendQuoted(std::string& path, const std::string& text) {
    path += '"';
    std::size_t begin = 0;  // of what is not yet appended
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '"' || text[at] == '\\') {
            path.append(text, begin, at - begin) += '\\';
            begin = at;
        }
    }
    path.append(text, begin) += '"';
}

std::string Utf8(unsigned int code) {
    const auto trailing = [](unsigned int bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (code < 0x80U) {
        return {static_cast<char>(code)};
    }
    if (code < 0x800U) {
        return {static_cast<char>(0xC0U | (code >> 6U)), trailing(code)};
    }
    return {static_cast<char>(0xE0U | (code >> 12U)), trailing(code >> 6U), trailing(code)};
}

void AppendValue(std::string& path, const TCIMValue& value) {
    switch (value.GetType()) {
        case TType::eBoolean:
            path += value ? "TRUE" : "FALSE";
            break;
        case TType::eChar16:
            // A path shows the character itself; its code would be read back as another string.
            AppendQuoted(path, Utf8(static_cast<unsigned short>(value)));
            break;
        case TType::eUint8:
        case TType::eSint8:
        case TType::eUint16:
        case TType::eSint16:
        case TType::eUint32:
        case TType::eSint32:
        case TType::eUint64:
        case TType::eSint64:
        case TType::eReal32:
        case TType::eReal64:
            path += value.ToString(10);
            break;
        case TType::eString:
        case TType::eDateTime:
            // The text itself, however the host prints it.
            AppendQuoted(path, value.operator std::string());
            break;
        default:
            AppendQuoted(path, value.ToString(10));
            break;
    }
}

}  // namespace

void AppendKey(std::string& path, bool& first, const std::string& name, const TCIMValue& value) {
    if (value.IsNull()) {
        return;
    }
    path += first ? '.' : ',';
    first = false;
    path += name;
    path += '=';
    AppendValue(path, value);
}

}  // namespace NQELVSK20
