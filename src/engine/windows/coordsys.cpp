#include "engine/windows/coordsys.h"

#include "engine/mb_error.h"
#include "engine/mb_value_text.h"
#include "engine/windows/units.h"

#include <cmath>

namespace vellant::engine {

namespace {

[[noreturn]] void invalidClause(std::string_view detail) {
    raiseMb(kMbSyntax, "Invalid CoordSys clause: " + std::string(detail));
}

bool isWord(const Token& t, std::string_view lower) {
    return t.kind == Token::Kind::Identifier && t.lower == lower;
}

bool isSymbol(const Token& t, std::string_view symbol) {
    return t.kind == Token::Kind::Symbol && t.text == symbol;
}

class Reader {
public:
    Reader(const std::vector<Token>& tokens, std::size_t& at) : tokens_(tokens), at_(at) {}

    CoordSys read() {
        CoordSys cs;
        if (acceptWord("earth")) {
            cs.earth = true;
            if (acceptWord("projection")) cs.projection = parameters();
        } else if (acceptWord("nonearth")) {
            cs.earth = false;
            if (!acceptWord("units")) invalidClause("NonEarth needs Units");
            if (peek().kind != Token::Kind::String) invalidClause("NonEarth Units needs a name");
            cs.nonEarthUnits = coordinateUnitName(peek().text);
            advance();
        } else {
            invalidClause("expected Earth or NonEarth, found " + peek().text);
        }
        if (acceptWord("bounds")) {
            Bounds b;
            point(b.minX, b.minY);
            point(b.maxX, b.maxY);
            cs.bounds = b;
        }
        return cs;
    }

private:
    const Token& peek(std::size_t ahead = 0) const {
        const std::size_t i = at_ + ahead;
        return i < tokens_.size() ? tokens_[i] : tokens_.back();
    }
    void advance() {
        if (at_ + 1 < tokens_.size()) ++at_;
    }
    bool acceptWord(std::string_view lower) {
        if (!isWord(peek(), lower)) return false;
        advance();
        return true;
    }
    bool acceptSymbol(std::string_view symbol) {
        if (!isSymbol(peek(), symbol)) return false;
        advance();
        return true;
    }

    double number() {
        double sign = 1;
        if (acceptSymbol("-"))
            sign = -1;
        else
            acceptSymbol("+");
        if (peek().kind != Token::Kind::Number)
            invalidClause("expected a number, found " + peek().text);
        const double value = sign * peek().number;
        advance();
        return value;
    }

    std::vector<CoordSys::Parameter> parameters() {
        std::vector<CoordSys::Parameter> values;
        do {
            if (peek().kind == Token::Kind::String) {
                values.emplace_back(coordinateUnitName(peek().text));
                advance();
            } else {
                values.emplace_back(number());
            }
        } while (acceptSymbol(","));
        return values;
    }

    void point(double& x, double& y) {
        if (!acceptSymbol("(")) invalidClause("Bounds needs (x, y)");
        x = number();
        if (!acceptSymbol(",")) invalidClause("Bounds needs (x, y)");
        y = number();
        if (!acceptSymbol(")")) invalidClause("Bounds needs (x, y)");
    }

    const std::vector<Token>& tokens_;
    std::size_t& at_;
};

std::string formatParameter(const CoordSys::Parameter& p) {
    if (const auto* text = std::get_if<std::string>(&p)) return "\"" + *text + "\"";
    return formatMbFloat(std::get<double>(p));
}

} // namespace

bool CoordSys::isLongLat() const {
    if (!earth) return false;
    if (projection.empty()) return true;
    const auto* type = std::get_if<double>(&projection.front());
    // Types above 1000 carry flags for affine and bounds in the thousands.
    return type && std::fmod(*type, 1000.0) == 1.0;
}

std::string CoordSys::coordinateUnit() const {
    if (!earth) return nonEarthUnits;
    if (isLongLat()) return "degree";
    for (const Parameter& p : projection)
        if (const auto* text = std::get_if<std::string>(&p)) return *text;
    return "m";
}

std::string CoordSys::clause(bool withBounds) const {
    std::string text = "CoordSys ";
    if (earth) {
        text += "Earth";
        if (!projection.empty()) {
            text += " Projection ";
            for (std::size_t i = 0; i < projection.size(); ++i) {
                if (i) text += ", ";
                text += formatParameter(projection[i]);
            }
        }
    } else {
        text += "NonEarth Units \"" + nonEarthUnits + "\"";
    }
    if (withBounds && bounds) {
        text += " Bounds (" + formatMbFloat(bounds->minX) + ", " + formatMbFloat(bounds->minY) +
                ") (" + formatMbFloat(bounds->maxX) + ", " + formatMbFloat(bounds->maxY) + ")";
    }
    return text;
}

bool CoordSys::sameSystem(const CoordSys& other) const {
    return earth == other.earth && projection == other.projection &&
           nonEarthUnits == other.nonEarthUnits;
}

CoordSys longLatCoordSys() {
    return parseCoordSys("CoordSys Earth Projection 1, 104");
}

CoordSys parseCoordSys(std::string_view text) {
    const std::vector<Token> tokens = tokenize(text);
    std::size_t at = 0;
    if (isWord(tokens[at], "coordsys")) ++at;
    CoordSys cs = readCoordSysTokens(tokens, at);
    if (tokens[at].kind != Token::Kind::End) invalidClause(std::string(text));
    return cs;
}

CoordSys readCoordSysTokens(const std::vector<Token>& tokens, std::size_t& at) {
    Reader reader(tokens, at);
    return reader.read();
}

} // namespace vellant::engine
