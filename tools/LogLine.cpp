#include "tools/LogLine.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tool {

namespace {

constexpr const char* kLookup = "TCimHTTPNamespace::GetClass ";
constexpr const char* kLookedUp = "TCimHTTPNamespace::GetClass from Pegasus for: ";
constexpr const char* kNodeAnswer = "DEBUG: TCimHTTPClass:EnumerateInstances pegclient ";
constexpr const char* kUndeclared = "4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: ";

bool beginsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::optional<std::string> after(const std::string& start, const std::string& line) {
    return beginsWith(line, start) ? std::optional(line.substr(start.size())) : std::nullopt;
}

// The number at the beginning of the text; `rest` is what follows it.
std::optional<std::size_t> numberAt(const std::string& text, std::string& rest) {
    std::size_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) {
        return std::nullopt;
    }
    rest.assign(stop, text.data() + text.size());
    return number;
}

}  // namespace

bool ClientFailure::isRefusedLogin() const {
    return beginsWith(message, "HTTP Error (401");
}

std::optional<ClientFailure> clientFailureIn(const std::string& line) {
    const std::string by = " in PegClient::";
    const std::string end = "(): ";
    const std::size_t kindEnd = line.find(by);
    if (kindEnd == std::string::npos || !endsWith(line.substr(0, kindEnd), "Exception")) {
        return std::nullopt;
    }
    const std::size_t operation = kindEnd + by.size();
    const std::size_t operationEnd = line.find(end, operation);
    if (operationEnd == std::string::npos) {
        return std::nullopt;
    }
    return ClientFailure{line.substr(0, kindEnd), line.substr(operation, operationEnd - operation),
                         line.substr(operationEnd + end.size())};
}

std::optional<NodeAnswer> nodeAnswerIn(const std::string& line) {
    // DEBUG: ... pegclient N get instance of CLASS\nCLASS instance size COUNT\n
    const auto answer = after(kNodeAnswer, line);
    if (!answer) {
        return std::nullopt;
    }
    std::string rest;
    const auto node = numberAt(*answer, rest);
    const auto name = after(" get instance of ", rest);
    const std::string sizeMark = " instance size ";
    const std::size_t size = line.rfind(sizeMark);
    if (!node || !name || size == std::string::npos) {
        return std::nullopt;
    }
    const auto count = numberAt(line.substr(size + sizeMark.size()), rest);
    return NodeAnswer{*node, name->substr(0, name->find('\n')), count.value_or(0)};
}

std::optional<std::string> lookedUpClassIn(const std::string& line) {
    return after(kLookedUp, line);
}

std::optional<std::string> undeclaredPropertyIn(const std::string& line) {
    return after(kUndeclared, line);
}

bool beginsEnumeration(const std::string& line) {
    return beginsWith(line, "DEBUG: TCimHTTPClass:EI Total Clients ");
}

bool endsLookup(const std::string& line) {
    return beginsWith(line, kLookup) &&
           (contains(line, "Found in TCimHTTPNamespace") || endsWith(line, " : return <root>"));
}

bool beginsNodeConnect(const std::string& line) {
    static const std::array<std::string, 3> starts = {
        "Entering TCimHTTPNamespace::connect - Connect to cimom via http or https",
        "Entering TCimHTTPNamespace::ConnectViaHttp -With Node Num",
        "Entering TCimHTTPNamespace::ConnectViaHttps - With Node Num"};
    return std::find(starts.begin(), starts.end(), line) != starts.end();
}

bool isTrace(const std::string& line) {
    if (beginsWith(line, "Entering ") || beginsWith(line, "Exiting ") || beginsWith(line, "DEBUG: ")) {
        return true;
    }
    // A lookup's time-out was reported by the client already.
    return endsLookup(line) || lookedUpClassIn(line) ||
           line == std::string(kLookup) + "skip QEL_RemoteNode" ||
           beginsWith(line, std::string(kLookup) + "after AllocateClass from Pegasus for: ");
}

}  // namespace tool
