#include "cimxml/common/HostName.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace Pegasus {

namespace {

constexpr unsigned kMaxPort = 65535;
constexpr std::size_t kIpv6Groups = 8;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool isNumber(std::string_view text, unsigned limit) {
    unsigned value = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    return error == std::errc() && end == last && value <= limit;
}

/// Takes the text up to the separator off the front; all of it if there is none.
std::string_view takeUntil(std::string_view& text, std::string_view separator, bool& more) {
    const std::size_t end = text.find(separator);
    more = end != std::string_view::npos;
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(more ? end + separator.size() : text.size());
    return part;
}

bool isIpv4(std::string_view text) {
    bool more = true;
    int octets = 0;
    for (; more; ++octets) {
        const std::string_view octet = takeUntil(text, ".", more);
        if (octet.size() > 3 || !isNumber(octet, 255)) {
            return false;
        }
    }
    return octets == 4;
}

bool isLabel(std::string_view label) {
    const auto isInner = [](char c) { return isLetter(c) || isDigit(c) || c == '_' || c == '-'; };
    return !label.empty() && label[0] != '-' && std::all_of(label.begin(), label.end(), isInner);
}

bool isDnsName(std::string_view text) {
    std::string_view label;
    for (bool more = true; more;) {
        label = takeUntil(text, ".", more);
        if (!isLabel(label)) {
            return false;
        }
    }
    return !std::all_of(label.begin(), label.end(), isDigit);  // else it looks like an address
}

/// Number of 16-bit groups in one side of an IPv6 address; more than
/// kIpv6Groups when it is malformed.
std::size_t countGroups(std::string_view text, bool mayEndInIpv4) {
    constexpr std::size_t kMalformed = kIpv6Groups + 1;
    std::size_t groups = 0;
    for (bool more = !text.empty(); more;) {
        const std::string_view group = takeUntil(text, ":", more);
        if (!more && mayEndInIpv4 && isIpv4(group)) {
            groups += 2;
        } else if (group.empty() || group.size() > 4 ||
                   !std::all_of(group.begin(), group.end(), isHexDigit)) {
            return kMalformed;
        } else {
            ++groups;
        }
    }
    return groups;
}

bool isIpv6(std::string_view text) {
    bool isCompressed = false;
    const std::string_view head = takeUntil(text, "::", isCompressed);
    const std::size_t groups = countGroups(head, !isCompressed);
    return isCompressed ? groups + countGroups(text, true) < kIpv6Groups : groups == kIpv6Groups;
}

bool isIpv6WithZone(std::string_view text) {
    bool hasZone = false;
    std::string_view zone = text;
    const std::string_view address = takeUntil(zone, "%", hasZone);
    const bool isLinkLocal = address.size() >= 4 && (address[0] | 0x20) == 'f' &&
                             (address[1] | 0x20) == 'e' && address[2] == '8' && address[3] == '0';
    return isLinkLocal == !zone.empty() && isLinkLocal == hasZone && isIpv6(address);
}

}  // namespace

bool isValidHost(const std::string& text) {
    std::string_view rest = text;
    if (rest.substr(0, 1) == "[") {
        rest.remove_prefix(1);
        bool isClosed = false;
        const std::string_view address = takeUntil(rest, "]", isClosed);
        if (!isClosed || !isIpv6WithZone(address)) {
            return false;
        }
    } else {
        const std::string_view name = rest.substr(0, rest.find(':'));
        if (!isIpv4(name) && !isDnsName(name)) {
            return false;
        }
        rest.remove_prefix(name.size());
    }
    if (rest.empty() || rest == ":") {
        return true;
    }
    return rest[0] == ':' && isDigit(rest[1]) && isNumber(rest.substr(1), kMaxPort);
}

}  // namespace Pegasus
