#include "tools/health/Severity.h"

#include <array>
#include <map>

namespace tool {

namespace {

using Meanings = std::map<std::string, Severity>;

Severity meaningOf(const Decimal& code, const Meanings& meanings) {
    const auto found = meanings.find(code.text());
    return found == meanings.end() ? Severity::kUnknown : found->second;
}

}  // namespace

Severity severityOfHealthState(const Decimal& code) {
    static const Meanings meanings = {{"5", Severity::kFine},      {"10", Severity::kWarning},
                                      {"15", Severity::kMinor},    {"20", Severity::kMajor},
                                      {"25", Severity::kCritical}, {"30", Severity::kFatal}};
    return meaningOf(code, meanings);
}

// What starts, stops or was stopped on purpose is no reason to look.
Severity severityOfStatus(const Decimal& code) {
    static const Meanings meanings = {
        {"2", Severity::kFine},    {"3", Severity::kWarning},   {"4", Severity::kWarning},
        {"5", Severity::kWarning}, {"6", Severity::kMajor},     {"7", Severity::kFatal},
        {"8", Severity::kFine},    {"9", Severity::kFine},      {"10", Severity::kFine},
        {"11", Severity::kFine},   {"12", Severity::kCritical}, {"13", Severity::kCritical},
        {"14", Severity::kMajor},  {"15", Severity::kFine},     {"16", Severity::kWarning},
        {"17", Severity::kFine},   {"18", Severity::kFine},     {"19", Severity::kFine}};
    return meaningOf(code, meanings);
}

Severity severityOfEntry(const Decimal& code) {
    static const Meanings meanings = {{"2", Severity::kFine},     {"3", Severity::kWarning},
                                      {"4", Severity::kMinor},    {"5", Severity::kMajor},
                                      {"6", Severity::kCritical}, {"7", Severity::kFatal}};
    return meaningOf(code, meanings);
}

std::string nameOf(Severity severity) {
    static constexpr std::array<const char*, 7> names = {"unknown", "ok",       "warning", "minor",
                                                         "major",   "critical", "fatal"};
    return names.at(static_cast<std::size_t>(severity));
}

}  // namespace tool
