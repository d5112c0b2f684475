#include "tools/query/Condition.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "tools/common/Names.h"
#include "tools/query/Comparison.h"
#include "tools/query/Token.h"

namespace tool {

namespace {

using Test = std::function<bool(const PropertySource&)>;

// Deeper than any person nests, and shallow enough for every stack.
constexpr std::size_t kDeepest = 100;

/// Reads a condition by its grammar; each operation reads as much as is of its kind.
class ConditionParser {
public:
    ConditionParser(const std::string& text, const ClassSchema& schema)
        : tokens_(tokensOf(text)), schema_(schema) {}

    Test parse() {
        Test test = alternatives();
        if (current().kind != Token::Kind::kEnd) {
            refuseToken(current(), "'and', 'or' or the end is expected");
        }
        return test;
    }

private:
    const Token& current() const { return tokens_[at_]; }

    Token take(Token::Kind kind, const std::string& expected) {
        if (current().kind != kind) {
            refuseToken(current(), expected);
        }
        return tokens_[at_++];
    }

    bool takeWord(const std::string& word) {
        const bool isThere = current().kind == Token::Kind::kWord && sameName(current().text, word);
        at_ += isThere ? 1U : 0U;
        return isThere;
    }

    Test alternatives() {
        std::vector<Test> tests{conjunction()};
        while (takeWord("or")) {
            tests.push_back(conjunction());
        }
        return joined(std::move(tests), true);
    }

    Test conjunction() {
        std::vector<Test> tests{negation()};
        while (takeWord("and")) {
            tests.push_back(negation());
        }
        return joined(std::move(tests), false);
    }

    // All of them, or with `any` one of them.
    static Test joined(std::vector<Test> tests, bool any) {
        if (tests.size() == 1) {
            return std::move(tests.front());
        }
        return [tests = std::move(tests), any](const PropertySource& properties) {
            for (const Test& test : tests) {
                if (test(properties) == any) {
                    return any;
                }
            }
            return !any;
        };
    }

    Test negation() {
        if (++depth_ > kDeepest) {
            refuseToken(current(), "nothing deeper is read");
        }
        Test test;
        if (takeWord("not")) {
            test = [inner = negation()](const PropertySource& properties) { return !inner(properties); };
        } else if (current().kind == Token::Kind::kOpen) {
            ++at_;
            test = alternatives();
            take(Token::Kind::kClose, "a closing parenthesis is expected");
        } else {
            test = comparison();
        }
        --depth_;
        return test;
    }

    Test comparison() {
        const Token property = take(Token::Kind::kWord, "a property is expected");
        const Token comparator = take(Token::Kind::kOperator, "one of = != < <= > >= ~ !~ is expected");
        const bool isQuoted = current().kind == Token::Kind::kQuoted;
        const Token value = take(isQuoted ? Token::Kind::kQuoted : Token::Kind::kWord, "a value is expected");
        const auto comparison = std::make_shared<Comparison>(property, comparator, value, schema_);
        return [comparison](const PropertySource& properties) { return comparison->holds(properties); };
    }

    std::vector<Token> tokens_;
    const ClassSchema& schema_;
    std::size_t at_ = 0;
    std::size_t depth_ = 0;
};

}  // namespace

Condition::Condition(const std::string& text, const ClassSchema& schema)
    : test_(ConditionParser(text, schema).parse()) {}

}  // namespace tool
