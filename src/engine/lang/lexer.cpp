#include "engine/lang/lexer.h"

#include "base/basic_text.h"
#include "engine/mb_error.h"

#include <cctype>
#include <charconv>
#include <cmath>

namespace vellant::engine {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) {
    return std::isxdigit(static_cast<unsigned char>(c)) != 0;
}

// Bytes above 127 count as letters so that table names in a Latin code page stay one word.
bool isIdentifierStart(char c) {
    const auto u = static_cast<unsigned char>(c);
    return std::isalpha(u) != 0 || c == '_' || u >= 0x80;
}

bool isIdentifierPart(char c) {
    return isIdentifierStart(c) || isDigit(c);
}

// Symbols of two characters first, so that "<=" is not read as "<" and "=".
constexpr std::string_view kTwoCharSymbols[] = {"<>", "<=", ">="};
constexpr std::string_view kOneCharSymbols = "(),.+-*/\\^=<>&:;!#{}[]";

class Lexer {
public:
    explicit Lexer(std::string_view source) : src_(source) {}

    std::vector<Token> run() {
        std::vector<Token> tokens;
        tokens.reserve(16); // most statements and expressions fit; saves regrowing on each eval
        while (true) {
            skipBlanks();
            if (at_ >= src_.size()) break;
            tokens.push_back(next());
        }
        Token end;
        end.kind = Token::Kind::End;
        end.position = src_.size();
        tokens.push_back(std::move(end));
        return tokens;
    }

private:
    void skipBlanks() {
        while (at_ < src_.size()) {
            const char c = src_[at_];
            if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v') {
                ++at_;
            } else {
                break;
            }
        }
    }

    Token next() {
        const char c = src_[at_];
        if (c == '"') return stringToken();
        if (isDigit(c) || (c == '.' && at_ + 1 < src_.size() && isDigit(src_[at_ + 1]))) {
            return numberToken();
        }
        if (c == '&' && at_ + 2 < src_.size() && (src_[at_ + 1] == 'h' || src_[at_ + 1] == 'H') &&
            isHexDigit(src_[at_ + 2])) {
            return hexToken();
        }
        if (isIdentifierStart(c)) return identifierToken();
        return symbolToken();
    }

    Token make(Token::Kind kind, std::size_t start) const {
        Token t;
        t.kind = kind;
        t.position = start;
        t.text = std::string(src_.substr(start, at_ - start));
        return t;
    }

    Token identifierToken() {
        const std::size_t start = at_;
        while (at_ < src_.size() && isIdentifierPart(src_[at_]))
            ++at_;
        if (at_ < src_.size() && src_[at_] == '$') ++at_; // Str$, Left$
        Token t = make(Token::Kind::Identifier, start);
        t.lower = LCase(t.text);
        return t;
    }

    Token numberToken() {
        const std::size_t start = at_;
        while (at_ < src_.size() && isDigit(src_[at_]))
            ++at_;
        if (at_ < src_.size() && src_[at_] == '.') {
            ++at_;
            while (at_ < src_.size() && isDigit(src_[at_]))
                ++at_;
        }
        // An exponent only when digits follow, so that "3Width" stays a number and a word.
        if (at_ < src_.size() && (src_[at_] == 'e' || src_[at_] == 'E')) {
            std::size_t look = at_ + 1;
            if (look < src_.size() && (src_[look] == '+' || src_[look] == '-')) ++look;
            if (look < src_.size() && isDigit(src_[look])) {
                at_ = look;
                while (at_ < src_.size() && isDigit(src_[at_]))
                    ++at_;
            }
        }
        Token t = make(Token::Kind::Number, start);
        // strtod-like conversion of text we have checked; from_chars does not allocate.
        const char* first = src_.data() + start;
        const char* last = src_.data() + at_;
        double value = 0;
        const auto result = std::from_chars(first, last, value);
        if (result.ec == std::errc::result_out_of_range) {
            // Too large for a double: the host reports a number it cannot hold.
            raiseMb(kMbSyntax, "Number out of range: " + t.text + ".");
        }
        t.number = value;
        return t;
    }

    Token hexToken() {
        const std::size_t start = at_;
        at_ += 2;
        double value = 0;
        while (at_ < src_.size() && isHexDigit(src_[at_])) {
            const char c = src_[at_];
            const int digit =
                isDigit(c) ? c - '0' : std::tolower(static_cast<unsigned char>(c)) - 'a' + 10;
            value = value * 16 + digit;
            ++at_;
        }
        Token t = make(Token::Kind::Number, start);
        if (!std::isfinite(value)) raiseMb(kMbSyntax, "Number out of range: " + t.text + ".");
        t.number = value;
        return t;
    }

    Token stringToken() {
        const std::size_t start = at_;
        ++at_;
        std::string content;
        while (true) {
            if (at_ >= src_.size()) {
                raiseMb(kMbSyntax, "Unterminated string: missing closing quotation mark.");
            }
            const char c = src_[at_];
            if (c == '"') {
                if (at_ + 1 < src_.size() && src_[at_ + 1] == '"') {
                    content.push_back('"');
                    at_ += 2;
                    continue;
                }
                ++at_;
                break;
            }
            content.push_back(c);
            ++at_;
        }
        Token t;
        t.kind = Token::Kind::String;
        t.position = start;
        t.text = std::move(content);
        return t;
    }

    Token symbolToken() {
        const std::size_t start = at_;
        for (std::string_view two : kTwoCharSymbols) {
            if (src_.substr(at_, 2) == two) {
                at_ += 2;
                Token t = make(Token::Kind::Symbol, start);
                t.lower = t.text;
                return t;
            }
        }
        const char c = src_[at_];
        if (kOneCharSymbols.find(c) == std::string_view::npos) {
            std::string shown;
            const auto u = static_cast<unsigned char>(c);
            if (u < 0x20 || u == 0x7f) {
                static constexpr char kHex[] = "0123456789ABCDEF";
                shown = std::string("&H") + kHex[u >> 4] + kHex[u & 15];
            } else {
                shown = std::string(1, c);
            }
            raiseMb(kMbSyntax, "Invalid character [" + shown + "] in statement.");
        }
        ++at_;
        Token t = make(Token::Kind::Symbol, start);
        t.lower = t.text;
        return t;
    }

    std::string_view src_;
    std::size_t at_ = 0;
};

} // namespace

std::vector<Token> tokenize(std::string_view source) {
    return Lexer(source).run();
}

} // namespace vellant::engine
