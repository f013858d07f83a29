#include "engine/lang/expression.h"

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/lang/variables.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"

#include <cmath>
#include <limits>

namespace vellant::engine {

namespace {

// Deep enough for any expression a person writes; shallow enough that hostile input
// cannot exhaust the stack.
constexpr int kMaxDepth = 100;

using Kind = Token::Kind;

int compareIgnoringCase(std::string_view a, std::string_view b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const int ca = std::tolower(static_cast<unsigned char>(a[i]));
        const int cb = std::tolower(static_cast<unsigned char>(b[i]));
        if (ca != cb) return ca < cb ? -1 : 1;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool isWholeNumber(const MbValue& v) {
    return v.type() == MbType::SmallInt || v.type() == MbType::Integer;
}

MbValue numberResult(double value) {
    if (std::isnan(value)) raiseMb(kMbFloatDomain, "Floating point error: invalid operation.");
    if (std::isinf(value)) raiseMb(kMbFloatRange, "Floating point overflow.");
    return MbValue::number(value);
}

// Whole-number arithmetic stays Integer while it fits, as the host's does.
MbValue wholeResult(std::int64_t value) {
    if (value >= std::numeric_limits<std::int32_t>::min() &&
        value <= std::numeric_limits<std::int32_t>::max()) {
        return MbValue::integer(static_cast<std::int32_t>(value));
    }
    return MbValue::number(static_cast<double>(value));
}

MbValue numberLiteral(const Token& token) {
    const double v = token.number;
    const bool plainDigits =
        token.text.find_first_of(".eE") == std::string::npos ||
        (token.text.size() > 1 && (token.text[1] == 'h' || token.text[1] == 'H'));
    if (plainDigits && v <= std::numeric_limits<std::int32_t>::max()) {
        return MbValue::integer(static_cast<std::int32_t>(v));
    }
    return MbValue::number(v);
}

class Parser {
public:
    Parser(Engine& engine, const std::vector<Token>& tokens, std::size_t& at,
           const NameResolver* resolver)
        : engine_(engine), tokens_(tokens), at_(at), resolver_(resolver) {}

    MbValue parse() { return parseOr(); }

private:
    class DepthGuard {
    public:
        explicit DepthGuard(int& depth) : depth_(depth) {
            if (++depth_ > kMaxDepth) {
                --depth_;
                raiseMb(kMbSyntax, "Expression too complex.");
            }
        }
        ~DepthGuard() { --depth_; }
        DepthGuard(const DepthGuard&) = delete;
        DepthGuard& operator=(const DepthGuard&) = delete;

    private:
        int& depth_;
    };

    const Token& peek(std::size_t ahead = 0) const {
        const std::size_t i = at_ + ahead;
        return i < tokens_.size() ? tokens_[i] : tokens_.back();
    }
    void advance() {
        if (at_ + 1 < tokens_.size()) ++at_;
    }
    bool isWord(std::string_view lower, std::size_t ahead = 0) const {
        const Token& t = peek(ahead);
        return t.kind == Kind::Identifier && t.lower == lower;
    }
    bool isSymbol(std::string_view symbol, std::size_t ahead = 0) const {
        const Token& t = peek(ahead);
        return t.kind == Kind::Symbol && t.text == symbol;
    }
    [[noreturn]] void expected(std::string_view what) const {
        raiseMb(kMbSyntax, "Found [" + describeToken(peek()) + "] while searching for [" +
                               std::string(what) + "].");
    }

    MbValue parseOr() {
        DepthGuard guard(depth_);
        MbValue left = parseAnd();
        while (isWord("or")) {
            advance();
            const MbValue right = parseAnd();
            left = MbValue::logical(left.asLogical() || right.asLogical());
        }
        return left;
    }

    MbValue parseAnd() {
        MbValue left = parseNot();
        while (isWord("and")) {
            advance();
            const MbValue right = parseNot();
            left = MbValue::logical(left.asLogical() && right.asLogical());
        }
        return left;
    }

    MbValue parseNot() {
        if (isWord("not")) {
            DepthGuard guard(depth_);
            advance();
            return MbValue::logical(!parseNot().asLogical());
        }
        return parseComparison();
    }

    MbValue parseComparison() {
        MbValue left = parseConcat();
        while (peek().kind == Kind::Symbol) {
            const std::string& op = peek().text;
            if (op != "=" && op != "<>" && op != "<" && op != ">" && op != "<=" && op != ">=") {
                break;
            }
            const std::string oper = op;
            advance();
            const MbValue right = parseConcat();
            const int order = compare(left, right);
            bool result = false;
            if (oper == "=")
                result = order == 0;
            else if (oper == "<>")
                result = order != 0;
            else if (oper == "<")
                result = order < 0;
            else if (oper == ">")
                result = order > 0;
            else if (oper == "<=")
                result = order <= 0;
            else
                result = order >= 0;
            left = MbValue::logical(result);
        }
        return left;
    }

    static int compare(const MbValue& a, const MbValue& b) {
        if (a.type() == MbType::String && b.type() == MbType::String) {
            return compareIgnoringCase(a.asString(), b.asString());
        }
        if (a.type() == MbType::Logical && b.type() == MbType::Logical) {
            return static_cast<int>(a.asLogical()) - static_cast<int>(b.asLogical());
        }
        if (a.isStyle() || b.isStyle()) {
            if (a.type() != b.type()) {
                raiseMb(kMbTypeMismatch, "Type mismatch: values of different types compared.");
            }
            return compareIgnoringCase(a.styleClause(), b.styleClause());
        }
        if (a.type() == MbType::Object || b.type() == MbType::Object) {
            raiseMb(kMbTypeMismatch, "Type mismatch: objects cannot be compared.");
        }
        // Numbers, and a string beside a number read as a number.
        const double x = a.asNumber();
        const double y = b.asNumber();
        if (x == y) return 0;
        return x < y ? -1 : 1;
    }

    MbValue parseConcat() {
        MbValue left = parseAdditive();
        while (isSymbol("&")) {
            advance();
            const MbValue right = parseAdditive();
            left = MbValue::string(left.asString() + right.asString());
        }
        return left;
    }

    MbValue parseAdditive() {
        MbValue left = parseMultiplicative();
        while (isSymbol("+") || isSymbol("-")) {
            const bool plus = peek().text == "+";
            advance();
            const MbValue right = parseMultiplicative();
            if (plus && (left.type() == MbType::String || right.type() == MbType::String)) {
                left = MbValue::string(left.asString() + right.asString());
            } else if (isWholeNumber(left) && isWholeNumber(right)) {
                const std::int64_t a = left.asInteger();
                const std::int64_t b = right.asInteger();
                left = wholeResult(plus ? a + b : a - b);
            } else {
                const double a = left.asNumber();
                const double b = right.asNumber();
                left = numberResult(plus ? a + b : a - b);
            }
        }
        return left;
    }

    MbValue parseMultiplicative() {
        MbValue left = parseUnary();
        while (true) {
            if (isSymbol("*")) {
                advance();
                const MbValue right = parseUnary();
                if (isWholeNumber(left) && isWholeNumber(right)) {
                    left = wholeResult(left.asInteger() * right.asInteger());
                } else {
                    left = numberResult(left.asNumber() * right.asNumber());
                }
            } else if (isSymbol("/")) {
                advance();
                const MbValue right = parseUnary();
                const double divisor = right.asNumber();
                const double dividend = left.asNumber();
                if (divisor == 0) divisionByZero();
                left = numberResult(dividend / divisor);
            } else if (isSymbol("\\") || isWord("mod")) {
                const bool modulo = peek().kind == Kind::Identifier;
                advance();
                const MbValue right = parseUnary();
                const std::int64_t a = left.asInteger();
                const std::int64_t b = right.asInteger();
                if (b == 0) divisionByZero();
                // INT64_MIN / -1 overflows; asInteger never yields INT64_MIN.
                left = wholeResult(modulo ? a % b : a / b);
            } else {
                return left;
            }
        }
    }

    [[noreturn]] static void divisionByZero() {
        raiseMb(kMbFloatDomain, "Floating point error: division by zero.");
    }

    MbValue parseUnary() {
        if (isSymbol("-") || isSymbol("+")) {
            DepthGuard guard(depth_);
            const bool minus = peek().text == "-";
            advance();
            MbValue operand = parseUnary();
            if (!minus) return isWholeNumber(operand) ? operand : numberResult(operand.asNumber());
            if (isWholeNumber(operand)) return wholeResult(-operand.asInteger());
            return numberResult(-operand.asNumber());
        }
        return parsePower();
    }

    MbValue parsePower() {
        MbValue left = parsePrimary();
        while (isSymbol("^")) {
            advance();
            // The exponent may carry its own sign: 2 ^ -1.
            MbValue right = parseExponentOperand();
            left = numberResult(std::pow(left.asNumber(), right.asNumber()));
        }
        return left;
    }

    MbValue parseExponentOperand() {
        if (isSymbol("-") || isSymbol("+")) {
            DepthGuard guard(depth_);
            const bool minus = peek().text == "-";
            advance();
            const double value = parseExponentOperand().asNumber();
            return MbValue::number(minus ? -value : value);
        }
        return parsePrimary();
    }

    MbValue parsePrimary() {
        const Token& token = peek();
        switch (token.kind) {
        case Kind::Number: {
            MbValue value = numberLiteral(token);
            advance();
            return value;
        }
        case Kind::String: {
            MbValue value = MbValue::string(token.text);
            advance();
            return value;
        }
        case Kind::Symbol:
            if (token.text == "(") {
                DepthGuard guard(depth_);
                advance();
                MbValue value = parseOr();
                if (!isSymbol(")")) expected(")");
                advance();
                return value;
            }
            expected("expression");
        case Kind::Identifier:
            return parseName();
        case Kind::End:
            expected("expression");
        }
        expected("expression");
    }

    MbValue parseName() {
        const Token& name = peek();
        if (isSymbol("(", 1)) {
            if (const Registry::Function* function = engine_.registry().findFunction(name.lower)) {
                return callFunction(*function);
            }
        }
        if (isSymbol(".", 1) && peek(2).kind == Kind::Identifier) {
            const std::string& table = name.text;
            const std::string& column = peek(2).text;
            at_ += 3;
            return engine_.catalog().columnValue(table, column);
        }
        if (resolver_ != nullptr && *resolver_) {
            if (std::optional<MbValue> value = (*resolver_)(name.lower)) {
                advance();
                return std::move(*value);
            }
        }
        if (const Variable* variable = engine_.variables().find(name.lower)) {
            advance();
            if (variable->type == VariableType::Alias) return readAlias(*variable);
            return variable->value;
        }
        // A bare table name stands for the table, as in TableInfo(World, 1) or EOT(points).
        if (const Table* table = engine_.catalog().find(name.text)) {
            advance();
            return MbValue::string(table->name());
        }
        if (isSymbol("(", 1)) {
            raiseMb(kMbUnknownFunction, "Unrecognized function " + name.text + ".");
        }
        raiseMb(kMbUnknownVariable, "Variable or Field " + name.text + " not defined.");
    }

    MbValue readAlias(const Variable& variable) {
        const std::string reference = variable.value.asString();
        const std::size_t dot = reference.find('.');
        if (dot == std::string::npos) {
            raiseMb(kMbUnknownVariable, "Variable or Field " +
                                            (reference.empty() ? variable.name : reference) +
                                            " not defined.");
        }
        return engine_.catalog().columnValue(std::string_view(reference).substr(0, dot),
                                             std::string_view(reference).substr(dot + 1));
    }

    MbValue callFunction(const Registry::Function& function) {
        DepthGuard guard(depth_);
        advance(); // name
        advance(); // (
        std::vector<MbValue> args;
        if (!isSymbol(")")) {
            while (true) {
                args.push_back(parseOr());
                if (isSymbol(",")) {
                    advance();
                    continue;
                }
                if (!isSymbol(")")) expected(")");
                break;
            }
        }
        advance(); // )
        const auto count = static_cast<int>(args.size());
        if (count < function.minArgs || count > function.maxArgs) {
            raiseMb(kMbWrongArgCount,
                    "Wrong number of arguments for function " + function.name + ".");
        }
        return function.handler(engine_, args);
    }

    Engine& engine_;
    const std::vector<Token>& tokens_;
    std::size_t& at_;
    const NameResolver* resolver_;
    int depth_ = 0;
};

} // namespace

MbValue evaluateExpression(Engine& engine, const std::vector<Token>& tokens, std::size_t& at,
                           const NameResolver* resolver) {
    return Parser(engine, tokens, at, resolver).parse();
}

std::string describeToken(const Token& token) {
    switch (token.kind) {
    case Token::Kind::End:
        return "end of statement";
    case Token::Kind::String:
        return "\"" + token.text + "\"";
    default:
        return token.text;
    }
}

} // namespace vellant::engine
