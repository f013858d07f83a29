#include "engine/windows/window_clauses.h"

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/variables.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"
#include "engine/windows/units.h"
#include "engine/windows/window_errors.h"
#include "engine/windows/window_manager.h"

#include <cmath>

namespace vellant::engine {

namespace {

bool isSymbol(const Token& t, std::string_view symbol) {
    return t.kind == Token::Kind::Symbol && t.text == symbol;
}

bool isBinaryOperator(const Token& t) {
    if (t.kind == Token::Kind::Symbol) {
        static constexpr std::string_view kOperators[] = {"+", "-",  "*", "/", "\\", "^", "&",
                                                          "=", "<>", "<", ">", "<=", ">="};
        for (std::string_view op : kOperators)
            if (t.text == op) return true;
        return false;
    }
    return t.kind == Token::Kind::Identifier &&
           (t.lower == "and" || t.lower == "or" || t.lower == "mod" || t.lower == "like" ||
            t.lower == "contains" || t.lower == "within" || t.lower == "intersects");
}

void skipBalanced(Cursor& cursor) {
    int depth = 0;
    do {
        if (cursor.atEnd()) cursor.syntaxError(")");
        if (isSymbol(cursor.peek(), "(")) ++depth;
        if (isSymbol(cursor.peek(), ")")) --depth;
        cursor.advance();
    } while (depth > 0);
}

void skipOperand(Cursor& cursor) {
    while (isSymbol(cursor.peek(), "-") || isSymbol(cursor.peek(), "+") || cursor.peekWord("not")) {
        cursor.advance();
    }
    const Token& t = cursor.peek();
    if (isSymbol(t, "(")) {
        skipBalanced(cursor);
        return;
    }
    if (t.kind == Token::Kind::Number || t.kind == Token::Kind::String) {
        cursor.advance();
        return;
    }
    if (t.kind != Token::Kind::Identifier) cursor.syntaxError("expression");
    cursor.advance();
    if (isSymbol(cursor.peek(), ".") && cursor.peek(1).kind == Token::Kind::Identifier) {
        cursor.advance();
        cursor.advance();
    }
    if (isSymbol(cursor.peek(), "(")) skipBalanced(cursor);
}

int windowIdOf(double value) {
    if (value != std::floor(value) || std::fabs(value) > 2147483647.0) raiseInvalidWindowId(value);
    return static_cast<int>(value);
}

} // namespace

int readWindowId(Cursor& cursor) {
    return windowIdOf(cursor.numberExpression());
}

std::optional<std::string> readUnits(Cursor& cursor) {
    if (!cursor.acceptWord("units")) return std::nullopt;
    return cursor.nameOrString();
}

double readPaperLength(Cursor& cursor) {
    const double value = cursor.numberExpression();
    const std::optional<std::string> units = readUnits(cursor);
    return value * paperUnitInches(units ? *units : cursor.engine().settings().paperUnits);
}

MapPoint readPoint(Cursor& cursor) {
    MapPoint p;
    cursor.expectSymbol("(");
    p.x = cursor.numberExpression();
    cursor.expectSymbol(",");
    p.y = cursor.numberExpression();
    cursor.expectSymbol(")");
    return p;
}

int readLayerRef(Cursor& cursor, const MapState& map) {
    const Token& t = cursor.peek();
    if (t.kind == Token::Kind::Identifier && !isSymbol(cursor.peek(1), "(")) {
        const int byName = map.findLayer(t.text);
        if (byName >= 0) {
            cursor.advance();
            return byName;
        }
        // Not a layer's name: only a variable can still name one.
        if (!cursor.engine().variables().find(t.lower)) raiseInvalidLayer(t.text);
    }
    const MbValue value = cursor.expression();
    if (value.type() == MbType::String) {
        const int byName = map.findLayer(value.asString());
        if (byName < 0) raiseInvalidLayer(value.asString());
        return byName;
    }
    const double number = value.asNumber();
    if (number != std::floor(number) || !map.layerAt(static_cast<int>(number))) {
        raiseInvalidLayer(value.toEvalText());
    }
    return static_cast<int>(number);
}

std::string readExpressionText(Cursor& cursor) {
    const std::size_t start = cursor.peek().position;
    skipOperand(cursor);
    while (isBinaryOperator(cursor.peek())) {
        cursor.advance();
        skipOperand(cursor);
    }
    const std::size_t end = cursor.peek().position;
    std::string_view text = cursor.source().substr(start, end - start);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r' ||
                             text.back() == '\n')) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

double readWindowSize(Cursor& cursor, const char* what) {
    const double inches = readPaperLength(cursor);
    if (!(inches > 0 && inches <= kMaxWindowInches)) raiseValueOutOfRange(what, inches);
    return inches;
}

MapPoint readWindowPosition(Cursor& cursor) {
    MapPoint p = readPoint(cursor);
    const std::optional<std::string> units = readUnits(cursor);
    const double inches = paperUnitInches(units ? *units : cursor.engine().settings().paperUnits);
    p.x *= inches;
    p.y *= inches;
    for (double v : {p.x, p.y})
        if (!(std::fabs(v) <= kMaxWindowInches)) raiseValueOutOfRange("Position", v);
    return p;
}

double readMargin(Cursor& cursor) {
    const double inches = readPaperLength(cursor);
    if (!(inches >= 0 && inches <= kMaxWindowInches)) raiseValueOutOfRange("Margin", inches);
    return inches;
}

NewWindowOptions readNewWindowOptions(Cursor& cursor) {
    NewWindowOptions options;
    while (true) {
        if (cursor.acceptWord("position")) {
            const MapPoint p = readWindowPosition(cursor);
            options.x = p.x;
            options.y = p.y;
        } else if (cursor.acceptWord("width")) {
            options.width = readWindowSize(cursor, "Width");
        } else if (cursor.acceptWord("height")) {
            options.height = readWindowSize(cursor, "Height");
        } else if (cursor.acceptWord("min")) {
            options.state = WindowState::Minimized;
        } else if (cursor.acceptWord("max")) {
            options.state = WindowState::Maximized;
        } else {
            return options;
        }
    }
}

CoordSys readCoordSys(Cursor& cursor) {
    Engine& engine = cursor.engine();
    if (cursor.acceptWord("table")) {
        const Table& table = engine.catalog().get(cursor.nameOrString());
        if (!table.isMappable()) raiseTableNotMappable(table.name());
        return parseCoordSys(table.coordSysClause());
    }
    if (cursor.acceptWord("window")) {
        const Window& window = engine.windows().getMap(readWindowId(cursor));
        return window.map->coordSys;
    }
    // The clause is plain tokens; read it from a copy and move the cursor past what it took.
    std::vector<Token> tokens;
    for (std::size_t i = 0;; ++i) {
        tokens.push_back(cursor.peek(i));
        if (tokens.back().kind == Token::Kind::End) break;
    }
    std::size_t at = 0;
    CoordSys cs = readCoordSysTokens(tokens, at);
    for (std::size_t i = 0; i < at; ++i)
        cursor.advance();
    return cs;
}

} // namespace vellant::engine
