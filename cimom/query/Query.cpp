#include "cimom/query/Query.h"

#include <vector>

#include "cimom/common/CimError.h"
#include "cimom/common/Text.h"
#include "cimom/query/QueryToken.h"

namespace cimom {

/// Reads a query from left to right; a function a rule of the grammar.
class QueryReader {
public:
    QueryReader(const std::string& text, const ClassStore& classes)
        : tokens_(queryTokens(text)), classes_(classes) {}

    Query read() {
        Query query;
        requireWord("SELECT");
        const auto selected = readSelected();
        requireWord("FROM");
        type_ = &readClass();
        query.from_ = type_;
        query.properties_ = checkedSelection(selected);
        if (takeWord("WHERE")) {
            query.where_ = readEither();
        }
        if (peek().kind != QueryToken::Kind::End) {
            refuseToken("nothing more");
        }
        return query;
    }

private:
    using Kind = QueryToken::Kind;

    /// Brackets and NOTs within each other; each is a call of the reader within another.
    static constexpr int kMaxDepth = 64;

    const QueryToken& peek() const { return tokens_[at_]; }
    const QueryToken& take() { return tokens_[at_ + 1 < tokens_.size() ? at_++ : at_]; }

    [[noreturn]] void refuseToken(const std::string& expected) const {
        refuseQuery(peek().at, "expected " + expected + ", not '" + peek().text + "'");
    }

    bool isWord(const char* word) const { return peek().kind == Kind::Name && sameName(peek().text, word); }
    bool isSign(const char* sign) const { return peek().kind == Kind::Sign && peek().text == sign; }

    bool takeWord(const char* word) {
        const bool there = isWord(word);
        at_ += there ? 1 : 0;
        return there;
    }

    bool takeSign(const char* sign) {
        const bool there = isSign(sign);
        at_ += there ? 1 : 0;
        return there;
    }

    void requireWord(const char* word) {
        if (!takeWord(word)) {
            refuseToken(word);
        }
    }

    /// The properties' names; none for "*".
    std::vector<QueryToken> readSelected() {
        std::vector<QueryToken> names;
        if (takeSign("*")) {
            return names;
        }
        do {
            if (peek().kind != Kind::Name) {
                refuseToken("a property or '*'");
            }
            names.push_back(take());
        } while (takeSign(","));
        return names;
    }

    const ClassView& readClass() {
        if (peek().kind != Kind::Name && peek().kind != Kind::Text) {
            refuseToken("a class");
        }
        const QueryToken token = take();
        const ClassView* view = classes_.find(token.text);
        if (view == nullptr) {
            refuseQuery(token.at, "the class '" + token.text + "' does not exist");
        }
        return *view;
    }

    /// A property's name may stand behind the class and a point.
    const MemberView& property(const QueryToken& token) const {
        const auto point = token.text.rfind('.');
        const bool ofClass = point != std::string::npos && sameName(token.text.substr(0, point), type_->name);
        const int index = type_->findProperty(ofClass ? token.text.substr(point + 1) : token.text);
        if (index < 0) {
            refuseQuery(token.at, "the class '" + type_->name + "' has no property '" + token.text + "'");
        }
        return type_->properties[static_cast<std::size_t>(index)];
    }

    PropertySelection checkedSelection(const std::vector<QueryToken>& names) const {
        if (names.empty()) {
            return std::nullopt;
        }
        PropertySelection selection(std::in_place);
        for (const QueryToken& name : names) {
            selection->insert(property(name).key);
        }
        return selection;
    }

    Condition readEither() {
        Condition condition = readBoth();
        while (takeWord("OR")) {
            condition = either(std::move(condition), readBoth());
        }
        return condition;
    }

    Condition readBoth() {
        Condition condition = readNegation();
        while (takeWord("AND")) {
            condition = both(std::move(condition), readNegation());
        }
        return condition;
    }

    Condition readNegation() {
        if (++depth_ > kMaxDepth) {
            refuseQuery(peek().at, "conditions nested too deep");
        }
        Condition condition = takeWord("NOT") ? negated(readNegation())
                              : takeSign("(") ? readBracket()
                                              : readPredicate();
        --depth_;
        return condition;
    }

    Condition readBracket() {
        Condition condition = readEither();
        if (!takeSign(")")) {
            refuseToken("')'");
        }
        return condition;
    }

    Condition readPredicate() {
        if (takeWord("__this")) {
            requireWord("ISA");
            return isOfClass(readClass());
        }
        const std::size_t at = peek().at;
        Operand operand = readOperand();
        if (takeWord("IS")) {
            const bool negative = takeWord("NOT");
            requireWord("NULL");
            return negative ? negated(isNull(std::move(operand))) : isNull(std::move(operand));
        }
        if (takeWord("ISA")) {
            requireKind(operand, Operand::Kind::Reference, at, "a reference");
            return refersToClass(operand.property, readClass(), classes_);
        }
        const bool negative = takeWord("NOT");
        if (negative || isWord("LIKE")) {
            Condition condition = readLike(std::move(operand), at);
            return negative ? negated(std::move(condition)) : condition;
        }
        return readComparison(std::move(operand));
    }

    static void requireKind(const Operand& operand, Operand::Kind kind, std::size_t at, const char* what) {
        if (operand.kind != kind) {
            refuseQuery(at, std::string("expected ") + what);
        }
    }

    Condition readLike(Operand operand, std::size_t at) {
        requireWord("LIKE");
        requireKind(operand, Operand::Kind::Text, at, "a text");
        if (peek().kind != Kind::Text) {
            refuseToken("a pattern in quotes");
        }
        return isLike(std::move(operand), LikePattern(take().text));
    }

    Condition readComparison(Operand one) {
        const std::string sign = peek().text;
        const bool equality = sign == "=" || sign == "<>" || sign == "!=";
        if (peek().kind != Kind::Sign || !(equality || sign.front() == '<' || sign.front() == '>')) {
            refuseToken("a comparison");
        }
        take();
        const std::size_t at = peek().at;
        Operand other = readOperand();
        if (equality && other.kind == Operand::Kind::Null && !one.property.empty()) {
            return sign == "=" ? isNull(std::move(one)) : negated(isNull(std::move(one)));
        }
        requireComparable(one, other, at);
        return compared(std::move(one), sign, std::move(other));
    }

    static void requireComparable(const Operand& one, const Operand& other, std::size_t at) {
        const bool hasOrder = one.kind == Operand::Kind::Text || one.kind == Operand::Kind::Number ||
                              one.kind == Operand::Kind::Boolean;
        if (!hasOrder || one.kind != other.kind) {
            refuseQuery(at, "the two sides of a comparison are of different kinds, or have no order");
        }
    }

    Operand readOperand() {
        const QueryToken token = peek();
        if (token.kind == Kind::Text || token.kind == Kind::Number) {
            take();
            return {token.kind == Kind::Text ? Operand::Kind::Text : Operand::Kind::Number, "", token.text};
        }
        if (token.kind != Kind::Name) {
            refuseToken("a property or a value");
        }
        take();
        if (sameName(token.text, "NULL")) {
            return {};
        }
        if (sameName(token.text, "TRUE") || sameName(token.text, "FALSE")) {
            return {Operand::Kind::Boolean, "", token.text};
        }
        return sameName(token.text, "__CLASS") ? Operand::ofClassName()
                                               : Operand::ofProperty(property(token));
    }

    std::vector<QueryToken> tokens_;
    std::size_t at_ = 0;
    int depth_ = 0;
    const ClassStore& classes_;
    const ClassView* type_ = nullptr;
};

Query Query::read(const std::string& text, const ClassStore& classes) {
    return QueryReader(text, classes).read();
}

}  // namespace cimom
