#include "cimxml/client/ApiText.h"

#include <Pegasus/Common/Exception.h>

namespace Pegasus {

String toApiText(const std::string& text) {
    try {
        return String(text.c_str());
    } catch (const Exception&) {
        String latin1;
        for (const char c : text) {
            latin1.append(Char16(static_cast<unsigned char>(c)));
        }
        return latin1;
    }
}

}  // namespace Pegasus
