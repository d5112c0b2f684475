#pragma once

#include <windows.h>

#include <string>

namespace support {

/// A console that no window shows, 80 columns wide: this process types on it and gets what a terminal would
/// be sent.
class PseudoConsole {
public:
    /// What is to be shown goes to `output`, as text with control sequences (ECMA-48).
    explicit PseudoConsole(HANDLE output);

    /// Closes the output after all is shown.
    ~PseudoConsole();
    PseudoConsole(const PseudoConsole&) = delete;
    PseudoConsole& operator=(const PseudoConsole&) = delete;

    /// For the attributes of a process that is to start on it.
    HPCON handle() const { return handle_; }

    /// The name of the event that is set when Ctrl-C is typed: a console of Wine takes none of its keyboard.
    const std::string& interruptName() const { return interruptName_; }

    void type(const std::string& text) const;

private:
    HPCON handle_ = nullptr;
    HANDLE keyboard_ = nullptr;
    std::string interruptName_;
    HANDLE interrupt_;
};

/// What a console sent its terminal, without the sequences that place the cursor where it is anyway: the text
/// as a program would have written it, and the erasing of a line's rest.
std::string textOf(const std::string& sent);

}  // namespace support
