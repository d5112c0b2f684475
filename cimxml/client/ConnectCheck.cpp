#include "cimxml/client/ConnectCheck.h"

#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <string_view>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/Percent.h"

namespace Pegasus {

namespace {

bool isOfHost(char c) {
    const char lower = cimxml::toLower(c);
    return (lower >= 'a' && lower <= 'z') || cimxml::isDigit(c) ||
           std::string_view("-._~:%[]").find(c) != std::string_view::npos;
}

bool hasControlCharacter(const String& text) {
    const Char16* const first = text.getChar16Data();
    return std::any_of(first, first + text.size(), [](Uint16 c) { return c < 0x20 || c == 0x7F; });
}

[[noreturn]] void refuse(const String& locator, const char* why) {
    throw CannotConnectException(String("Cannot connect to ") + locator + String(". ") + String(why) +
                                 String(", which Basic authentication cannot carry."));
}

}  // namespace

void requireHost(const std::string& host, Uint32 portNumber) {
    if (!std::all_of(host.begin(), host.end(), isOfHost)) {
        const std::string shown = cimxml::percentEncode(host) + ":" + std::to_string(portNumber);
        throw InvalidLocatorException(String(shown.c_str()));
    }
}

void requireCredentials(const String& locator, const String& userName, const String& password) {
    if (hasControlCharacter(userName)) {
        refuse(locator, "The user's name holds a control character");
    }
    if (userName.find(Char16(':')) != PEG_NOT_FOUND) {
        refuse(locator, "The user's name holds a colon");
    }
    if (hasControlCharacter(password)) {
        refuse(locator, "The password holds a control character");
    }
}

}  // namespace Pegasus
