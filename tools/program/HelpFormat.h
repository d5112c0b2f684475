#pragma once

#include <CLI/CLI.hpp>
#include <sstream>
#include <string>

namespace tool {

/// The help with its descriptions broken so that it fits a terminal of 80 columns.
class HelpFormat : public CLI::Formatter {
public:
    std::string make_option_desc(const CLI::Option* option) const override {
        return broken(CLI::Formatter::make_option_desc(option));
    }

    std::string make_subcommand(const CLI::App* command) const override {
        std::ostringstream text;
        CLI::detail::format_help(text, command->get_display_name(true), broken(command->get_description()),
                                 column_width_);
        return text.str();
    }

private:
    std::string broken(const std::string& description) const {
        constexpr std::size_t kColumns = 80;
        const std::size_t width = kColumns - column_width_;
        std::istringstream words(description);
        std::string text;
        std::size_t used = 0;
        for (std::string word; words >> word; used += word.size()) {
            const bool fits = used + 1 + word.size() <= width;
            if (!text.empty()) {
                text += fits ? ' ' : '\n';
                used = fits ? used + 1 : 0;
            }
            text += word;
        }
        return text;
    }
};

}  // namespace tool
