#include "tools/snapshot/Differences.h"

#include <algorithm>

namespace tool {

namespace {

using Contents = SnapshotContents;
using Tell = std::function<void(const Difference&)>;

// Goes through two maps side by side, with null for what one of them has not got.
template <typename MAP, typename VISIT>
void inPairs(const MAP& first, const MAP& second, const VISIT& visit) {
    auto one = first.begin();
    auto other = second.begin();
    while (one != first.end() || other != second.end()) {
        const bool isLeft = other == second.end() || (one != first.end() && one->first <= other->first);
        const bool isRight = one == first.end() || (other != second.end() && other->first <= one->first);
        visit(isLeft ? &one->second : nullptr, isRight ? &other->second : nullptr);
        one = isLeft ? std::next(one) : one;
        other = isRight ? std::next(other) : other;
    }
}

std::optional<std::string> emptyIf(bool isThere) {
    return isThere ? std::optional<std::string>("") : std::nullopt;
}

void compareParts(const Contents::Object& first, const Contents::Object& second, Difference difference,
                  const Tell& tell) {
    inPairs(first.parts, second.parts, [&](const Contents::Part* one, const Contents::Part* other) {
        difference.part = one != nullptr ? one->name : other->name;
        difference.first = one != nullptr ? std::optional(one->text) : std::nullopt;
        difference.second = other != nullptr ? std::optional(other->text) : std::nullopt;
        if (difference.first != difference.second) {
            tell(difference);
        }
    });
}

void compareNodes(const Contents::Node& first, const Contents::Node& second, Difference difference,
                  const Tell& tell) {
    const auto begin = [&](const Contents::Object& object, bool isInFirst, bool isInSecond) {
        difference.object = object.name;
        difference.first = emptyIf(isInFirst);
        difference.second = emptyIf(isInSecond);
    };
    inPairs(first, second, [&](const Contents::Object* one, const Contents::Object* other) {
        if (other == nullptr) {
            begin(*one, true, false);
            tell(difference);
        } else if (one == nullptr) {
            begin(*other, false, true);
            tell(difference);
        } else {
            begin(*one, true, true);
            compareParts(*one, *other, difference, tell);
        }
    });
}

}  // namespace

void findDifferences(const SnapshotContents& first, const SnapshotContents& second, const Tell& tell) {
    static const Contents::Node kNone;
    const std::size_t nodes = std::max(first.nodes().size(), second.nodes().size());
    for (std::size_t i = 0; i < nodes; ++i) {
        const Contents::Node& one = i < first.nodes().size() ? first.nodes()[i] : kNone;
        const Contents::Node& other = i < second.nodes().size() ? second.nodes()[i] : kNone;
        if (one.empty() == other.empty()) {
            compareNodes(one, other, {i + 1, "", "", {}, {}}, tell);
        } else {
            tell({i + 1, "", "", emptyIf(!one.empty()), emptyIf(!other.empty())});
        }
    }
}

}  // namespace tool
