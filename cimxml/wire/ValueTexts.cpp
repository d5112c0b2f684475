#include "cimxml/wire/ValueTexts.h"

#include <algorithm>
#include <initializer_list>

#include "cimxml/wire/Ascii.h"

namespace cimxml {

namespace {

constexpr std::size_t nowhere = std::string_view::npos;

bool begins(std::string_view text, std::size_t at, std::string_view what) {
    return text.compare(at, what.size(), what) == 0;
}

bool isValueTag(std::string_view text, std::size_t at) {
    for (const std::string_view name : {"<VALUE", "<KEYVALUE"}) {
        const std::size_t end = at + name.size();
        if (begins(text, at, name) && end < text.size() && (text[end] == '>' || isBlank(text[end]))) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool ValueTexts::contain(std::size_t place) {
    if (known_ == nowhere || !reachesTo(place)) {
        const std::size_t from = begin(place);
        if (from == nowhere) {
            return false;
        }
        known_ = from;
        if (!reachesTo(place)) {
            return false;
        }
    }
    known_ = place;
    return true;
}

/// Whether the text that `known_` lies in goes on to `place`, through CDATA sections and comments.
bool ValueTexts::reachesTo(std::size_t place) const {
    const std::string_view before = text_.substr(0, place);
    std::size_t at = before.find('<', known_);
    while (at != nowhere) {
        const bool isComment = begins(before, at, "<!--");
        const std::size_t end = before.find(isComment ? "-->" : "]]>", at);
        if (end == nowhere || !(isComment || begins(before, at, "<![CDATA["))) {
            return false;
        }
        at = before.find('<', end);
    }
    return true;
}

/// Where the text of the last value that begins before `place`, but behind what is known, begins.
std::size_t ValueTexts::begin(std::size_t place) const {
    const std::size_t floor = known_ == nowhere ? 0 : known_;
    for (std::size_t tag = place; tag > floor;) {
        tag = text_.rfind('<', tag - 1);
        if (tag == nowhere || tag < floor) {
            return nowhere;
        }
        if (isValueTag(text_, tag)) {
            const std::size_t end = tagEnd(tag);
            return end < place && text_[end - 1] != '/' ? end + 1 : nowhere;
        }
    }
    return nowhere;
}

/// The end of a tag, which is no `>` in an attribute.
std::size_t ValueTexts::tagEnd(std::size_t tag) const {
    std::size_t at = text_.find_first_of("\"'>", tag);
    while (at != nowhere && text_[at] != '>') {
        at = text_.find(text_[at], at + 1);
        at = at == nowhere ? at : text_.find_first_of("\"'>", at + 1);
    }
    return at;
}

std::string_view nameOfValue(std::string_view text, std::size_t place) {
    constexpr std::string_view mark = " NAME=";
    const std::size_t found = text.substr(0, place).rfind(mark);
    if (found == nowhere || found + mark.size() >= place) {
        return {};
    }
    const std::size_t begin = found + mark.size() + 1;
    const std::size_t end = text.find(text[begin - 1], begin);
    return text.substr(begin, std::min(end, place) - begin);
}

}  // namespace cimxml
