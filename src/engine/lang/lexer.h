#pragma once
// Tokens of MapBasic statements and expressions. Keywords are not reserved: the parsers compare
// identifiers in lower case. "vlStyle.obj" is three tokens: identifier, ".", identifier.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

struct Token {
    enum class Kind { Identifier, Number, String, Symbol, End };
    Kind kind = Kind::End;
    std::string text;  // as written (a string's content without quotes and with "" undoubled)
    std::string lower; // identifiers and symbols in lower case
    double number = 0; // numbers, including &H hexadecimal
    std::size_t position = 0; // byte offset in the source, for messages
};

// Raises MbError 1 for a character no token can start with ("Invalid character [?] in
// statement.", control characters shown as "&H01"), a string without its closing quotation
// mark ("Unterminated string: missing closing quotation mark.") and a number too large for a
// Float ("Number out of range: 1e999."). The last token is always End. Numbers: "12", ".5",
// "2.5E-3", "&HFF"; an "e" not followed by digits ends the number ("3Width" is 3, Width).
// Symbols: ( ) , . + - * / \ ^ = <> < > <= >= & : ; ! # { } [ ].
std::vector<Token> tokenize(std::string_view source);

} // namespace vellant::engine
