#include "tools/query/Token.h"

#include <algorithm>
#include <string_view>

#include "tools/common/UsageError.h"

namespace tool {

namespace {

constexpr const char* kBlanks = " \t\n";
constexpr const char* kOperatorLetters = "=!<>~";

bool isOneOf(char letter, const char* letters) {
    return std::string_view(letters).find(letter) != std::string_view::npos;
}

/// Reads the pieces one after the other.
class Lexer {
public:
    explicit Lexer(const std::string& text) : text_(text) {}

    Token next() {
        position_ = std::min(text_.find_first_not_of(kBlanks, position_), text_.size());
        Token token;
        token.position = position_;
        if (position_ < text_.size()) {
            read(token);
        }
        afterOperator_ = token.kind == Token::Kind::kOperator;
        return token;
    }

private:
    void read(Token& token) {
        const char letter = text_[position_];
        if (letter == '"' || letter == '\'') {
            token.kind = Token::Kind::kQuoted;
            token.text = quoted(token);
        } else if (letter == '(' || letter == ')') {
            token.kind = letter == '(' ? Token::Kind::kOpen : Token::Kind::kClose;
            token.text = text_[position_++];
        } else if (isOneOf(letter, kOperatorLetters)) {
            token.kind = Token::Kind::kOperator;
            token.text = upTo(text_.find_first_not_of(kOperatorLetters, position_));
        } else {
            token.kind = Token::Kind::kWord;
            token.text = upTo(text_.find_first_of(
                afterOperator_ ? std::string(kBlanks) + ')' : std::string(kBlanks) + "()" + kOperatorLetters,
                position_));
        }
    }

    std::string upTo(std::size_t end) {
        const std::size_t begin = position_;
        position_ = std::min(end, text_.size());
        return text_.substr(begin, position_ - begin);
    }

    std::string quoted(const Token& token) {
        const char mark = text_[position_++];
        std::string content;
        while (position_ < text_.size() && text_[position_] != mark) {
            position_ += text_[position_] == '\\' && position_ + 1 < text_.size() ? 1U : 0U;
            content += text_[position_++];
        }
        if (position_ == text_.size()) {
            refuseToken(token, std::string("the quotation mark ") + mark + " is never closed");
        }
        ++position_;
        return content;
    }

    const std::string& text_;
    std::size_t position_ = 0;
    bool afterOperator_ = false;  // a value comes, in which parentheses and operators are text
};

}  // namespace

std::vector<Token> tokensOf(const std::string& condition) {
    Lexer lexer(condition);
    std::vector<Token> tokens;
    do {
        tokens.push_back(lexer.next());
    } while (tokens.back().kind != Token::Kind::kEnd);
    return tokens;
}

void refuseToken(const Token& token, const std::string& expected) {
    const bool isEnd = token.kind == Token::Kind::kEnd;
    throw UsageError("--where, " +
                     (isEnd ? "at its end" : "character " + std::to_string(token.position + 1)) + ": " +
                     expected + (token.text.empty() ? "" : ", not '" + token.text + "'"));
}

}  // namespace tool
