#include "cimom/query/QueryToken.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "cimom/common/CimError.h"

namespace cimom {
namespace {

bool isNameStart(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool isDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

class QueryScanner {
public:
    explicit QueryScanner(std::string_view query) : query_(query) {}

    std::vector<QueryToken> scan() {
        std::vector<QueryToken> tokens;
        do {
            tokens.push_back(next());
        } while (tokens.back().kind != QueryToken::Kind::End);
        return tokens;
    }

private:
    QueryToken next() {
        at_ = std::min(query_.find_first_not_of(" \t\r\n", at_), query_.size());
        if (at_ == query_.size()) {
            return {QueryToken::Kind::End, "the end", at_ + 1};
        }
        const char c = query_[at_];
        if (isNameStart(c)) {
            return taken(QueryToken::Kind::Name,
                         [](char d) { return isNameStart(d) || isDigit(d) || d == '.'; });
        }
        if (isDigit(c) || startsNumber(c)) {
            return number();
        }
        return c == '\'' || c == '"' ? quoted(c) : sign();
    }

    bool startsNumber(char c) const {
        const bool signedOrPoint = c == '-' || c == '+' || c == '.';
        return signedOrPoint && at_ + 1 < query_.size() &&
               (isDigit(query_[at_ + 1]) || query_[at_ + 1] == '.');
    }

    template <typename Belongs>
    QueryToken taken(QueryToken::Kind kind, const Belongs& belongs) {
        const std::size_t start = at_;
        while (at_ < query_.size() && belongs(query_[at_])) {
            ++at_;
        }
        return {kind, std::string(query_.substr(start, at_ - start)), start + 1};
    }

    QueryToken number() {
        char before = 'e';
        return taken(QueryToken::Kind::Number, [&](char c) {
            const bool exponentSign = (c == '+' || c == '-') && (before == 'e' || before == 'E');
            before = c;
            return isDigit(c) || c == '.' || c == 'e' || c == 'E' || exponentSign;
        });
    }

    QueryToken quoted(char quote) {
        QueryToken token{QueryToken::Kind::Text, "", at_ + 1};
        for (++at_; at_ < query_.size() && query_[at_] != quote; ++at_) {
            const bool escaped = query_[at_] == '\\' && at_ + 1 < query_.size();
            at_ += escaped ? 1 : 0;
            token.text += query_[at_];
        }
        if (at_ == query_.size()) {
            refuseQuery(token.at, "a text that does not end");
        }
        ++at_;
        return token;
    }

    QueryToken sign() {
        static constexpr std::array<std::string_view, 11> kSigns{"<>", "<=", ">=", "!=", "=", "<",
                                                                 ">",  "(",  ")",  ",",  "*"};
        for (const std::string_view sign : kSigns) {
            if (query_.substr(at_, sign.size()) == sign) {
                at_ += sign.size();
                return {QueryToken::Kind::Sign, std::string(sign), at_ - sign.size() + 1};
            }
        }
        refuseQuery(at_ + 1, std::string("'") + query_[at_] + "' means nothing here");
    }

    std::string_view query_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<QueryToken> queryTokens(std::string_view query) {
    return QueryScanner(query).scan();
}

void refuseQuery(std::size_t at, const std::string& why) {
    throw CimError(CimStatus::InvalidQuery, "at character " + std::to_string(at) + " of the query: " + why);
}

}  // namespace cimom
