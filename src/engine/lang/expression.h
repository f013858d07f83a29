#pragma once
// The expression evaluator. It evaluates while it parses, so a statement clause costs one
// pass over its tokens. Precedence, from tightest: ^; unary - and +; * / \ Mod; + -; &;
// = <> < > <= >=; Not; And; Or. "+" joins strings when either side is a string; string
// comparisons ignore letter case. A name is looked up as: a function when "(" follows, a
// column "table.column", the caller's resolver (columns of the row a query is at), a
// variable. There are no logical literals: MapBasic's TRUE and FALSE are defines of a
// compiled program, so a statement sent to the host that says True names an unknown variable;
// comparisons make logical values. Errors:
//   1034 "Variable or Field <name> not defined."
//   1050 "Unrecognized function <name>."
//   1051 "Wrong number of arguments for function <Name>."
//   1045 "Type mismatch: ..." for operands of the wrong type
//    911 "Floating point error: division by zero." (also \ and Mod by zero, Sqr(-1) ...)
//    912 "Floating point overflow."
//      1 "Found [<token>] while searching for [<what>]." and "Expression too complex."

#include "engine/lang/lexer.h"
#include "engine/mb_value.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace vellant::engine {

class Engine;

// Answers a bare name (lower case) or nullopt to let the variables answer it.
using NameResolver = std::function<std::optional<MbValue>(std::string_view lowerName)>;

// Parses and evaluates one expression from tokens[at]; leaves at on the first token that
// cannot continue it. tokens must end with an End token.
MbValue evaluateExpression(Engine& engine, const std::vector<Token>& tokens, std::size_t& at,
                           const NameResolver* resolver = nullptr);

// The text of a token for messages: the word as written, a string in quotes, or
// "end of statement".
std::string describeToken(const Token& token);

} // namespace vellant::engine
