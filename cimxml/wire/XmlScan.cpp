#include "cimxml/wire/XmlScan.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

#include "cimxml/wire/ValueTexts.h"
#include "cimxml/wire/XmlBlock.h"
#include "cimxml/wire/XmlError.h"

namespace cimxml {

namespace {

enum class ByteClass : std::uint8_t { Plain, Control, Open, Equals, Ampersand, Lead2, Lead3, Lead4, Invalid };

constexpr std::array<ByteClass, 256> classify() {
    std::array<ByteClass, 256> classes{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        const bool control = byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
        classes[byte] = control                        ? ByteClass::Control
                        : byte < 0x80                  ? ByteClass::Plain
                        : byte >= 0xC2 && byte <= 0xDF ? ByteClass::Lead2
                        : byte >= 0xE0 && byte <= 0xEF ? ByteClass::Lead3
                        : byte >= 0xF0 && byte <= 0xF4 ? ByteClass::Lead4
                                                       : ByteClass::Invalid;
    }
    classes['<'] = ByteClass::Open;
    classes['='] = ByteClass::Equals;
    classes['&'] = ByteClass::Ampersand;
    return classes;
}

constexpr std::array<ByteClass, 256> classes = classify();

std::string inHex(std::uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(value));
    return text;
}

bool isXmlCharacter(std::uint32_t code) {
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code == '\t' || code == '\n' || code == '\r' || (code >= 0x20 && !surrogate && code <= 0x10FFFF);
}

constexpr std::uint32_t beyondUnicode = 0x110000;

class Scanner {
public:
    /// `readable`, when there is one, gets what withReadableCharacters gives.
    Scanner(std::string_view text, std::size_t maxNodes, std::string* readable = nullptr)
        : text_(text), maxNodes_(maxNodes), valueTexts_(text), readable_(readable) {}

    XmlScan run() {
        while (position_ < text_.size()) {
            if (!skipBlock()) {
                look(position_ + XmlBlock::size);
            }
        }
        if (readable_ != nullptr) {
            readable_->append(text_.substr(copied_));
        }
        return scan_;
    }

private:
    unsigned char byte(std::size_t at) const { return static_cast<unsigned char>(text_[at]); }

    /// Most blocks hold nothing but ASCII characters and tags: skips one of those, counting its nodes.
    bool skipBlock() {
        if (text_.size() - position_ <= XmlBlock::size) {
            return false;
        }
        const XmlBlock block = XmlBlock::of(text_.data() + position_);
        if (block.hasSpecial || block.nodes > maxNodes_ - scan_.nodes) {
            return false;
        }
        scan_.nodes += block.nodes;
        position_ += XmlBlock::size;
        return true;
    }

    /// Looks at each byte up to `end`.
    void look(std::size_t end) {
        end = std::min(end, text_.size());
        for (skipPlain(end); position_ < end; skipPlain(end)) {
            special(classes[byte(position_)]);
            ++position_;
        }
    }

    /// Most bytes mean nothing here: on to the next that does.
    void skipPlain(std::size_t limit) {
        if (position_ >= limit) {
            return;  // the last character went beyond
        }
        const char* at = text_.data() + position_;
        const char* end = text_.data() + limit;
        while (at != end && classes[static_cast<unsigned char>(*at)] == ByteClass::Plain) {
            ++at;
        }
        position_ = static_cast<std::size_t>(at - text_.data());
    }

    void special(ByteClass found) {
        switch (found) {
            case ByteClass::Plain:
                break;
            case ByteClass::Control:
                unreadable(1, "a printable character, found control character U+00");
                break;
            case ByteClass::Open:
                markup();
                break;
            case ByteClass::Equals:
                count();
                break;
            case ByteClass::Ampersand:
                reference();
                break;
            case ByteClass::Lead2:
                continuation(1, 0x80, 0xBF);
                break;
            case ByteClass::Lead3:
                lead3();
                break;
            case ByteClass::Lead4:
                lead4();
                break;
            case ByteClass::Invalid:
                unreadable(1, "UTF-8, found byte 0x");
                break;
        }
    }

    void markup() {
        const std::string_view rest = text_.substr(position_ + 1);
        if (rest.substr(0, 8) == "![CDATA[" && position_ >= cdataEnd_) {
            const std::size_t end = text_.find("]]>", position_);
            cdataBegin_ = position_;
            cdataEnd_ = end == std::string_view::npos ? text_.size() : end;
        }
        if (rest.substr(0, 1) == "!") {
            scan_.mixed = true;
        } else if (rest.substr(0, 1) != "/" && rest.substr(0, 1) != "?") {
            count();
        }
    }

    void count() {
        if (++scan_.nodes > maxNodes_) {
            failWith(": the answer exceeds the limit on elements and attributes");
        }
    }

    /// Characters may also come as numbers, except in a CDATA section.
    void reference() {
        if (position_ < cdataEnd_ || text_.substr(position_ + 1, 1) != "#") {
            return;
        }
        const bool hexadecimal = text_.substr(position_ + 2, 1) == "x";
        std::uint32_t code = 0;
        std::size_t at = position_ + (hexadecimal ? 3 : 2);
        for (; at < text_.size(); ++at) {
            const int value = digit(text_[at], hexadecimal);
            if (value < 0) {
                break;
            }
            code =
                std::min(code * (hexadecimal ? 16U : 10U) + static_cast<std::uint32_t>(value), beyondUnicode);
        }
        const bool isNumber = at > position_ + (hexadecimal ? 3 : 2) && text_.substr(at, 1) == ";";
        if (!isNumber || !(isXmlCharacter(code) || replace(at + 1 - position_))) {
            failWith(": expected a reference to an XML character, found number 0x" + inHex(code));
        }
    }

    static int digit(char c, bool hexadecimal) {
        if (c >= '0' && c <= '9') {
            return c - '0';
        }
        const char lower = static_cast<char>(c | 0x20);
        return hexadecimal && lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
    }

    void lead3() {
        const unsigned char lead = byte(position_);
        continuation(2, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF);
    }

    void lead4() {
        const unsigned char lead = byte(position_);
        continuation(3, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF);
    }

    /// `count` bytes follow the lead byte; the first of them lies between `low` and `high`, which shuts out
    /// overlong forms, surrogates and numbers beyond Unicode.
    void continuation(std::size_t following, unsigned char low, unsigned char high) {
        for (std::size_t i = 1; i <= following; ++i) {
            const std::size_t at = position_ + i;
            if (at >= text_.size() || byte(at) < low || byte(at) > high) {
                unreadable(i, "UTF-8, found the broken sequence of byte 0x");
                return;
            }
            low = 0x80;
            high = 0xBF;
        }
        position_ += following;
    }

    /// Takes `size` bytes for one character that cannot be read.
    void unreadable(std::size_t size, const char* expected) {
        if (!replace(size)) {
            failWith(std::string(": expected ") + expected + inHex(byte(position_)));
        }
    }

    /// Skips `size` bytes that are no character; false when they do not stand in the text of a value.
    bool replace(std::size_t size) {
        if (!valueTexts_.contain(position_ < cdataEnd_ ? cdataBegin_ : position_)) {
            return false;
        }
        if (scan_.unreadable++ == 0) {
            scan_.firstUnreadable = position_;
        }
        if (readable_ != nullptr) {
            readable_->append(text_.substr(copied_, position_ - copied_)).append("\xEF\xBF\xBD");
            copied_ = position_ + size;
        }
        position_ += size - 1;  // the caller goes on to the next byte
        return true;
    }

    [[noreturn]] void failWith(const std::string& what) {
        throw XmlError(static_cast<std::ptrdiff_t>(position_), what);
    }

    std::string_view text_;
    std::size_t maxNodes_;
    std::size_t position_ = 0;
    std::size_t cdataBegin_ = 0;
    std::size_t cdataEnd_ = 0;
    ValueTexts valueTexts_;
    std::string* readable_;
    std::size_t copied_ = 0;  // of the text, to readable_
    XmlScan scan_;
};

}  // namespace

XmlScan scanXml(std::string_view text, std::size_t maxNodes) {
    return Scanner(text, maxNodes).run();
}

std::string withReadableCharacters(std::string_view text) {
    std::string readable;
    readable.reserve(text.size());
    Scanner(text, text.size(), &readable).run();
    return readable;
}

}  // namespace cimxml
