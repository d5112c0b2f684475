#include "tools/config/ConfigText.h"

#include <algorithm>
#include <string>
#include <utility>

#include "tools/common/Integer.h"
#include "tools/config/ConfigFault.h"

namespace tool {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // some editors begin every file with one

bool isBareKey(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '-';
}

bool isControlCharacter(char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
}

class ConfigReader {
public:
    explicit ConfigReader(std::string_view text) : text_(text) {
        if (text_.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
            text_.remove_prefix(kByteOrderMark.size());
        }
    }

    std::vector<ConfigSection> read() {
        for (skipLines(); !atEnd(); skipLines()) {
            if (peek() == '[') {
                readSection();
            } else {
                readEntry();
            }
            requireLineEnd();
        }
        return std::move(sections_);
    }

private:
    bool atEnd() const { return at_ == text_.size(); }
    char peek() const { return atEnd() ? '\0' : text_[at_]; }

    [[noreturn]] void fail(const std::string& text) const { throw ConfigFault(line_, text); }

    char next() {
        const char c = text_[at_++];
        line_ += c == '\n' ? 1 : 0;
        return c;
    }

    void skipBlanks() {
        while (peek() == ' ' || peek() == '\t' || (peek() == '\r' && text_.substr(at_, 2) == "\r\n")) {
            next();
        }
        if (peek() == '#') {
            at_ = std::min(text_.find('\n', at_), text_.size());
        }
    }

    void skipLines() {
        for (skipBlanks(); peek() == '\n'; skipBlanks()) {
            next();
        }
    }

    void expect(char c, const std::string& where) {
        skipBlanks();
        if (atEnd() || peek() != c) {
            fail(std::string("'") + c + "' is expected " + where);
        }
        next();
        skipBlanks();
    }

    void requireLineEnd() {
        skipBlanks();
        if (!atEnd() && peek() != '\n') {
            fail("more stands in the line than belongs there");
        }
    }

    void readSection() {
        const std::size_t line = line_;
        expect('[', "before a machine's name");
        std::string name = readName("a machine's name, letters, digits, '-' and '_' or in quotes");
        expect(']', "after a machine's name");
        for (const ConfigSection& other : sections_) {
            if (other.name == name) {
                throw ConfigFault(line, "machine " + name + " was described in line " +
                                            std::to_string(other.line) + " already");
            }
        }
        sections_.push_back({std::move(name), line, {}});
    }

    void readEntry() {
        const std::size_t line = line_;
        const std::string key = readName("a key or a [MACHINE]");
        if (sections_.empty()) {
            fail("a key stands before the first [MACHINE]");
        }
        expect('=', "after a key");
        if (!sections_.back().values.emplace(key, ConfigValue{readValue(), line}).second) {
            throw ConfigFault(line, key + " stands here for the second time");
        }
    }

    std::string readName(const std::string& what) {
        if (peek() == '"' || peek() == '\'') {
            return readText();
        }
        std::string name;
        while (isBareKey(peek())) {
            name += next();
        }
        if (name.empty()) {
            fail(what + " is expected");
        }
        return name;
    }

    decltype(ConfigValue::content) readValue() {
        if (peek() == '[') {
            return readList();
        }
        return isDigit(peek()) ? decltype(ConfigValue::content)(readNumber()) : readText();
    }

    std::vector<std::string> readList() {
        std::vector<std::string> texts;
        next();
        for (skipLines(); peek() != ']'; skipLines()) {
            texts.push_back(readText());
            skipLines();
            if (peek() == ',') {
                next();
            } else if (peek() != ']') {
                fail("',' or ']' is expected after a text of a list");
            }
        }
        next();
        return texts;
    }

    std::size_t readNumber() {
        std::string digits;
        while (isBareKey(peek()) || peek() == '.') {
            digits += next();
        }
        const auto number = parseInteger(digits);
        if (!number) {
            fail("a whole number or a text in quotes is expected");
        }
        return number->size;
    }

    std::string readText() {
        const char quote = peek();
        if (quote != '"' && quote != '\'') {
            fail("a text in quotes is expected");
        }
        next();
        std::string text;
        while (peek() != quote || atEnd()) {
            if (atEnd() || isControlCharacter(peek())) {
                fail("a text ends with a quote, in its line, and holds no control character");
            }
            const char c = next();
            text += c == '\\' && quote == '"' ? readEscaped() : c;
        }
        next();
        return text;
    }

    char readEscaped() {
        const char c = peek();
        if (c != '"' && c != '\\') {
            fail("a backslash is written \\\\ in double quotes; in single quotes it stands for itself");
        }
        return next();
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    std::vector<ConfigSection> sections_;
};

}  // namespace

std::vector<ConfigSection> parseConfig(std::string_view text) {
    return ConfigReader(text).read();
}

}  // namespace tool
