#include "cimom/query/LikePattern.h"

namespace cimom {

bool LikePattern::Part::fits(char c) const {
    if (any) {
        return true;
    }
    const auto byte = [](char d) { return static_cast<unsigned char>(d); };
    bool within = false;
    for (std::size_t i = 0; i + 1 < ranges.size(); i += 2) {
        within = within || (byte(ranges[i]) <= byte(c) && byte(c) <= byte(ranges[i + 1]));
    }
    return within != negated;
}

LikePattern::LikePattern(std::string_view pattern) {
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char c = pattern[at];
        if (c == '[' && pattern.find(']', at + 1) != std::string_view::npos) {
            at = addSet(pattern, at);
            continue;
        }
        Part part;
        part.many = c == '%';
        part.any = c == '_';
        part.ranges.assign(2, c);
        parts_.push_back(part);
    }
}

/// Adds the set that starts at the bracket and returns where it ends.
std::size_t LikePattern::addSet(std::string_view pattern, std::size_t at) {
    const std::size_t end = pattern.find(']', at + 1);
    std::string_view members = pattern.substr(at + 1, end - at - 1);
    Part part;
    part.negated = !members.empty() && members.front() == '^';
    members.remove_prefix(part.negated ? 1 : 0);
    for (std::size_t i = 0; i < members.size(); ++i) {
        const bool range = i + 2 < members.size() && members[i + 1] == '-';
        part.ranges += members[i];
        i += range ? 2 : 0;
        part.ranges += members[i];
    }
    parts_.push_back(part);
    return end;
}

bool LikePattern::matches(std::string_view text) const {
    std::size_t part = 0;
    std::size_t at = 0;
    // Where to go on when what follows the last "%" turns out not to fit: one more character for that "%".
    std::size_t retryPart = parts_.size() + 1;
    std::size_t retryAt = 0;
    while (at < text.size()) {
        if (part < parts_.size() && parts_[part].many) {
            retryPart = ++part;
            retryAt = at;
        } else if (part < parts_.size() && parts_[part].fits(text[at])) {
            ++part;
            ++at;
        } else if (retryPart <= parts_.size()) {
            part = retryPart;
            at = ++retryAt;
        } else {
            return false;
        }
    }
    while (part < parts_.size() && parts_[part].many) {
        ++part;
    }
    return part == parts_.size();
}

}  // namespace cimom
