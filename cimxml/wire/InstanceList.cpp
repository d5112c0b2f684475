#include "cimxml/wire/InstanceList.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "cimxml/wire/Ascii.h"

#include "cimxml/wire/XmlParse.h"

namespace cimxml {

namespace {

constexpr std::string_view listStart = "<IRETURNVALUE>";
constexpr std::string_view listEnd = "</IRETURNVALUE>";
constexpr std::string_view elementStart = "<VALUE.NAMEDINSTANCE>";
constexpr std::string_view elementEnd = "</VALUE.NAMEDINSTANCE>";

constexpr unsigned levelsAround = 5;  // CIM, MESSAGE, SIMPLERSP, IMETHODRESPONSE, IRETURNVALUE

}  // namespace

std::optional<InstanceList> InstanceList::takeFrom(std::string& answer, std::size_t pieceBytes) {
    const std::string_view text = answer;
    const std::size_t start = text.find(listStart);
    const std::size_t end = text.rfind(listEnd);
    if (start == std::string_view::npos || end == std::string_view::npos || end < start + 4 * pieceBytes) {
        return std::nullopt;
    }
    const std::size_t begin = start + listStart.size();
    if (trim(text.substr(begin, 2 * elementStart.size())).substr(0, elementStart.size()) != elementStart) {
        return std::nullopt;
    }
    std::string around = answer.substr(0, begin) + answer.substr(end);
    answer.swap(around);
    return InstanceList(std::move(around), begin, end);
}

InstanceList::InstanceList(std::string text, std::size_t begin, std::size_t end)
    : text_(std::move(text)), end_(end), nextBegin_(begin) {}

/// Behind the last element that ends in the next `pieceBytes` bytes, or behind the first one when none does.
std::size_t InstanceList::pieceEnd(std::size_t pieceBytes) const {
    const std::string_view rest = std::string_view(text_.data(), end_).substr(nextBegin_);
    std::size_t found = rest.substr(0, pieceBytes).rfind(elementEnd);
    if (found == std::string_view::npos) {
        found = rest.find(elementEnd);
    }
    return found == std::string_view::npos ? end_ : nextBegin_ + found + elementEnd.size();
}

bool InstanceList::next(const Limits& limits) {
    if (nextBegin_ == end_) {
        return false;
    }
    pieceBegin_ = std::exchange(nextBegin_, pieceEnd(limits.pieceBytes));
    try {
        parseInPlace(piece_, &text_[pieceBegin_], nextBegin_ - pieceBegin_,
                     pugi::parse_fragment | pugi::parse_ws_pcdata_single,
                     limits.xmlDepth - std::min(limits.xmlDepth, levelsAround));
    } catch (const XmlError& error) {
        throw error.within(pieceBegin_);
    }
    return true;
}

}  // namespace cimxml
