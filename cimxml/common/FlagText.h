#pragma once

#include <Pegasus/Common/String.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace Pegasus {

/// The keywords of the flags that are set, in the given order, with a blank between.
inline String flagText(std::initializer_list<std::pair<bool, const char*>> flags) {
    std::string text;
    for (const auto& [isSet, keyword] : flags) {
        if (isSet) {
            text += (text.empty() ? "" : " ") + std::string(keyword);
        }
    }
    return String(text.c_str());
}

}  // namespace Pegasus
