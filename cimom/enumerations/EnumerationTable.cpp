#include "cimom/enumerations/EnumerationTable.h"

#include <algorithm>
#include <numeric>

#include "cimom/common/CimError.h"

namespace cimom {

EnumerationTable::Batch EnumerationTable::open(Kind kind, std::vector<std::string> objects, std::size_t count,
                                               std::chrono::seconds timeout, Clock::time_point now) {
    forgetLate(now);
    Enumeration enumeration;
    enumeration.kind = kind;
    enumeration.objects = std::move(objects);
    enumeration.timeout = timeout;
    enumeration.deadline = now + timeout;
    Batch batch{take(enumeration, count), ""};
    if (enumeration.next == enumeration.objects.size()) {
        return batch;
    }
    enumeration.bytes =
        std::accumulate(enumeration.objects.begin(), enumeration.objects.end(), std::size_t{0},
                        [](std::size_t sum, const std::string& object) { return sum + object.size(); });
    if (open_.size() >= kMaxOpen || bytes_ + enumeration.bytes > kMaxBytes) {
        throw CimError(CimStatus::ServerLimitsExceeded, "too many enumerations are open");
    }
    bytes_ += enumeration.bytes;
    batch.context = std::to_string(++lastContext_);
    open_.emplace(batch.context, std::move(enumeration));
    return batch;
}

EnumerationTable::Batch EnumerationTable::pull(const std::string& context, Kind kind, std::size_t count,
                                               Clock::time_point now) {
    forgetLate(now);
    const auto entry = require(context);
    if (entry->second.kind != kind) {
        throw CimError(CimStatus::InvalidEnumerationContext,
                       "the enumeration '" + context + "' is continued with another operation");
    }
    Batch batch{take(entry->second, count), context};
    entry->second.deadline = now + entry->second.timeout;
    if (entry->second.next == entry->second.objects.size()) {
        batch.context.clear();
        forget(entry);
    }
    return batch;
}

void EnumerationTable::close(const std::string& context, Clock::time_point now) {
    forgetLate(now);
    forget(require(context));
}

EnumerationTable::Open::iterator EnumerationTable::require(const std::string& context) {
    const auto entry = open_.find(context);
    if (entry == open_.end()) {
        throw CimError(CimStatus::InvalidEnumerationContext,
                       "the enumeration '" + context + "' is not open, or no longer");
    }
    return entry;
}

void EnumerationTable::forgetLate(Clock::time_point now) {
    for (auto entry = open_.begin(); entry != open_.end();) {
        const auto current = entry++;
        if (current->second.deadline < now) {
            forget(current);
        }
    }
}

void EnumerationTable::forget(Open::iterator entry) {
    bytes_ -= entry->second.bytes;
    open_.erase(entry);
}

std::string EnumerationTable::take(Enumeration& enumeration, std::size_t count) {
    const std::size_t end = enumeration.next + std::min(count, enumeration.objects.size() - enumeration.next);
    std::string taken;
    for (; enumeration.next < end; ++enumeration.next) {
        taken += enumeration.objects[enumeration.next];
    }
    return taken;
}

}  // namespace cimom
