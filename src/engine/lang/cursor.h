#pragma once
// The position of a statement parser in its tokens. Statement handlers read their clauses
// through it; an expression anywhere in a clause is parsed and evaluated on the spot.

#include "engine/lang/expression.h"
#include "engine/lang/lexer.h"
#include "engine/mb_value.h"

#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

class Engine;

class Cursor {
public:
    Cursor(Engine& engine, std::string_view source, std::vector<Token> tokens);

    Engine& engine() const { return engine_; }
    std::string_view source() const { return source_; }

    bool atEnd() const;
    const Token& peek(std::size_t ahead = 0) const;
    void advance();
    std::size_t mark() const { return at_; }
    void reset(std::size_t mark) { at_ = mark; }

    // Identifier words, compared in lower case.
    bool peekWord(std::string_view lowerWord, std::size_t ahead = 0) const;
    bool acceptWord(std::string_view lowerWord);
    void expectWord(std::string_view lowerWord);
    bool acceptSymbol(std::string_view symbol);
    void expectSymbol(std::string_view symbol);
    // "On" (true) or "Off" (false); 1 "Found [..] while searching for [On or Off]." else.
    bool onOff();
    // The next identifier as written; a syntax error when there is none.
    std::string identifier();

    // One expression, evaluated; stops before the first token that cannot continue it.
    MbValue expression();
    double numberExpression();
    std::string stringExpression();
    // A name that may be given bare or as a string expression (table names, units). A bare
    // word that names a String or Alias variable gives the variable's value, as MapBasic
    // lets a program name a table through a variable.
    std::string nameOrString();

    // Bare names in later expressions are offered to the resolver first (Select ... Where
    // reads the row's columns this way). The resolver must outlive its use; nullptr ends it.
    void setNameResolver(const NameResolver* resolver) { resolver_ = resolver; }

    // A statement with tokens left over, or a clause the parser cannot read:
    // 1 "Found [<token>] while searching for [<expected>]." ("a clause" when not given).
    [[noreturn]] void syntaxError() const;
    [[noreturn]] void syntaxError(std::string_view expected) const;
    void expectEnd() const;

private:
    Engine& engine_;
    std::string source_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    const NameResolver* resolver_ = nullptr;
};

} // namespace vellant::engine
