#include "engine/lang/cursor.h"

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/lang/variables.h"
#include "engine/mb_error.h"

namespace vellant::engine {

Cursor::Cursor(Engine& engine, std::string_view source, std::vector<Token> tokens)
    : engine_(engine), source_(source), tokens_(std::move(tokens)) {
    // Handlers may rely on an End token at the back whatever they were given.
    if (tokens_.empty() || tokens_.back().kind != Token::Kind::End) {
        Token end;
        end.position = source_.size();
        tokens_.push_back(std::move(end));
    }
}

bool Cursor::atEnd() const {
    return tokens_[at_].kind == Token::Kind::End;
}

const Token& Cursor::peek(std::size_t ahead) const {
    const std::size_t i = at_ + ahead;
    return i < tokens_.size() ? tokens_[i] : tokens_.back();
}

void Cursor::advance() {
    if (at_ + 1 < tokens_.size()) ++at_;
}

bool Cursor::peekWord(std::string_view lowerWord, std::size_t ahead) const {
    const Token& t = peek(ahead);
    return t.kind == Token::Kind::Identifier && t.lower == lowerWord;
}

bool Cursor::acceptWord(std::string_view lowerWord) {
    if (!peekWord(lowerWord)) return false;
    advance();
    return true;
}

void Cursor::expectWord(std::string_view lowerWord) {
    if (!acceptWord(lowerWord)) syntaxError(lowerWord);
}

bool Cursor::acceptSymbol(std::string_view symbol) {
    const Token& t = peek();
    if (t.kind != Token::Kind::Symbol || t.text != symbol) return false;
    advance();
    return true;
}

void Cursor::expectSymbol(std::string_view symbol) {
    if (!acceptSymbol(symbol)) syntaxError(symbol);
}

bool Cursor::onOff() {
    if (acceptWord("on")) return true;
    if (acceptWord("off")) return false;
    syntaxError("On or Off");
}

std::string Cursor::identifier() {
    const Token& t = peek();
    if (t.kind != Token::Kind::Identifier) syntaxError("name");
    std::string text = t.text;
    advance();
    return text;
}

MbValue Cursor::expression() {
    return evaluateExpression(engine_, tokens_, at_, resolver_);
}

double Cursor::numberExpression() {
    return expression().asNumber();
}

std::string Cursor::stringExpression() {
    return expression().asString();
}

std::string Cursor::nameOrString() {
    const Token& t = peek();
    if (t.kind == Token::Kind::Identifier &&
        !(peek(1).kind == Token::Kind::Symbol && peek(1).text == "(")) {
        if (const Variable* variable = engine_.variables().find(t.lower)) {
            if (variable->type == VariableType::String || variable->type == VariableType::Alias) {
                advance();
                return variable->value.asString();
            }
        }
        return identifier();
    }
    if (t.kind == Token::Kind::End) syntaxError("name");
    return stringExpression();
}

void Cursor::syntaxError() const {
    syntaxError("a clause");
}

void Cursor::syntaxError(std::string_view expected) const {
    raiseMb(kMbSyntax, "Found [" + describeToken(peek()) + "] while searching for [" +
                           std::string(expected) + "].");
}

void Cursor::expectEnd() const {
    if (!atEnd()) syntaxError("end of statement");
}

} // namespace vellant::engine
