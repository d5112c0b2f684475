#include "tests/support/windows/PseudoConsole.h"

#include <algorithm>
#include <regex>
#include <stdexcept>

namespace support {

namespace {

// So high that nothing scrolls away: a console tells its terminal what changed on its screen, not what was
// written.
constexpr COORD kSize{80, 1000};

const std::string kEraseRest = "\033[K";

/// Follows a sequence that moves the cursor to the right over empty columns.
void appendSpaces(std::string& text, std::size_t count) {
    const bool erased = text.size() >= kEraseRest.size() &&
                        text.compare(text.size() - kEraseRest.size(), std::string::npos, kEraseRest) == 0;
    text.resize(text.size() - (erased ? kEraseRest.size() : 0));
    text.append(count, ' ');
}

}  // namespace

PseudoConsole::PseudoConsole(HANDLE output)
    : interruptName_("interrupt-" + std::to_string(GetCurrentProcessId())),
      interrupt_(CreateEventA(nullptr, FALSE, FALSE, interruptName_.c_str())) {
    // Whoever asks for the desktop first starts its process, which gets copies of the asker's handles under
    // Wine. A console asks when a key is typed, and its output would stay open.
    GetDesktopWindow();
    HANDLE input = nullptr;
    if (CreatePipe(&input, &keyboard_, nullptr, 0) == 0) {
        throw std::runtime_error("CreatePipe: error " + std::to_string(GetLastError()));
    }
    const HRESULT result = CreatePseudoConsole(kSize, input, output, 0, &handle_);
    CloseHandle(input);
    if (FAILED(result)) {
        CloseHandle(keyboard_);
        throw std::runtime_error("CreatePseudoConsole: error " + std::to_string(result));
    }
}

PseudoConsole::~PseudoConsole() {
    ClosePseudoConsole(handle_);
    CloseHandle(keyboard_);
    CloseHandle(interrupt_);
}

void PseudoConsole::type(const std::string& text) const {
    if (text == "\x03") {
        SetEvent(interrupt_);
        return;
    }
    std::string keys = text;
    std::replace(keys.begin(), keys.end(), '\n', '\r');  // as the enter key has it
    DWORD written = 0;
    WriteFile(keyboard_, keys.data(), static_cast<DWORD>(keys.size()), &written, nullptr);
}

std::string textOf(const std::string& sent) {
    static const std::regex kSequence("\033\\[([?0-9;]*)([A-Za-z])");
    std::string text;
    auto last = sent.begin();
    for (std::sregex_iterator found(sent.begin(), sent.end(), kSequence), end; found != end; ++found) {
        text.append(last, (*found)[0].first);
        last = (*found)[0].second;
        const std::string number = (*found)[1];
        if ((*found)[2] == "C") {
            appendSpaces(text, number.empty() ? 1 : std::stoul(number));
        } else if ((*found)[2] == "K" && number.empty()) {
            text += kEraseRest;
        }
    }
    return text.append(last, sent.end());
}

}  // namespace support
