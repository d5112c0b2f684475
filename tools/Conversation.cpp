#include "tools/Conversation.h"

#include "tools/LogLine.h"

namespace tool {

void Conversation::begin(const std::string& subject) {
    phase_ = Phase::kAsking;
    enumerated_ = false;
    enumerating_ = false;
    subject_ = subject;
}

void Conversation::see(const std::string& line) {
    if (const auto name = lookedUpClassIn(line)) {
        phase_ = Phase::kFetching;
        fetched_ = *name;
    } else if (endsLookup(line)) {
        phase_ = Phase::kBuilding;
    } else if (beginsEnumeration(line)) {
        enumerated_ = true;
        enumerating_ = true;
        node_ = 0;
    } else if (const auto answer = nodeAnswerIn(line)) {
        node_ = answer->node + 1;
        enumerating_ = node_ < nodes_;
    }
}

bool Conversation::isEnumeration(const std::string& operation) const {
    return enumerating_ && operation == "EnumerateInstances";
}

std::optional<std::size_t> Conversation::nodeAskedBy(const std::string& operation) const {
    if (nodes_ == 1) {
        return 0;
    }
    if (isEnumeration(operation)) {
        return node_;
    }
    const bool isFirst = phase_ == Phase::kAsking || phase_ == Phase::kFetching;
    return isFirst ? std::optional<std::size_t>(0) : std::nullopt;
}

const std::string& Conversation::subjectOf(const std::string& operation) const {
    return phase_ == Phase::kFetching && !isEnumeration(operation) ? fetched_ : subject_;
}

bool Conversation::isLookingForHypervisor() const {
    return !enumerating_ && (phase_ == Phase::kConnecting || phase_ == Phase::kFetching);
}

}  // namespace tool
