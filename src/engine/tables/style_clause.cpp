#include "engine/tables/style_clause.h"

#include "engine/mb_error.h"
#include "engine/mb_value_text.h"

#include <cctype>
#include <cmath>
#include <variant>
#include <vector>

namespace vellant::engine {

namespace {

using ClauseValue = std::variant<double, std::string>;

struct Clause {
    std::string keyword; // lower case
    std::vector<ClauseValue> values;
};

[[noreturn]] void invalidClause(std::string_view kind, std::string_view text) {
    raiseMb(kMbSyntax, "Invalid " + std::string(kind) + " clause: " + std::string(text));
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// keyword ( value , value ... ) with nothing but blanks after the closing parenthesis.
std::optional<Clause> readClause(std::string_view text) {
    std::size_t at = 0;
    auto skipBlanks = [&] {
        while (at < text.size() && isBlank(text[at]))
            ++at;
    };
    skipBlanks();
    Clause clause;
    while (at < text.size() && std::isalpha(static_cast<unsigned char>(text[at]))) {
        clause.keyword += static_cast<char>(std::tolower(static_cast<unsigned char>(text[at])));
        ++at;
    }
    skipBlanks();
    if (clause.keyword.empty() || at >= text.size() || text[at] != '(') return std::nullopt;
    ++at;
    while (true) {
        skipBlanks();
        if (at >= text.size()) return std::nullopt;
        if (text[at] == '"') {
            std::string value;
            ++at;
            while (true) {
                if (at >= text.size()) return std::nullopt;
                if (text[at] == '"') {
                    if (at + 1 < text.size() && text[at + 1] == '"') {
                        value += '"';
                        at += 2;
                        continue;
                    }
                    ++at;
                    break;
                }
                value += text[at++];
            }
            clause.values.emplace_back(std::move(value));
        } else {
            const std::size_t start = at;
            while (at < text.size() && text[at] != ',' && text[at] != ')')
                ++at;
            const std::optional<double> number = parseMbNumber(text.substr(start, at - start));
            if (!number || text.substr(start, at - start).find_first_not_of(" \t\r\n") ==
                               std::string_view::npos) {
                return std::nullopt;
            }
            clause.values.emplace_back(*number);
        }
        skipBlanks();
        if (at >= text.size()) return std::nullopt;
        if (text[at] == ')') {
            ++at;
            break;
        }
        if (text[at] != ',') return std::nullopt;
        ++at;
    }
    skipBlanks();
    if (at != text.size()) return std::nullopt;
    return clause;
}

bool isNumber(const ClauseValue& value) {
    return std::holds_alternative<double>(value);
}

// Whole numbers within the range of a MapBasic Integer; anything else makes the clause invalid.
std::optional<int> wholeNumber(const ClauseValue& value) {
    if (!isNumber(value)) return std::nullopt;
    const double number = std::round(std::get<double>(value));
    if (number < -2147483648.0 || number > 2147483647.0) return std::nullopt;
    return static_cast<int>(number);
}

std::string joined(const std::vector<std::string>& parts) {
    std::string out;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) out += ',';
        out += parts[i];
    }
    return out;
}

[[noreturn]] void styleAttrOutOfRange() {
    raiseMb(kMbArgRange, "Argument 2 of StyleAttr out of range.");
}

bool validColor(int color) {
    return color >= 0 && color <= 0xFFFFFF;
}

} // namespace

PenStyle parsePen(std::string_view text) {
    const std::optional<Clause> clause = readClause(text);
    if (!clause || (clause->keyword != "pen" && clause->keyword != "line") ||
        clause->values.size() != 3) {
        invalidClause("Pen", text);
    }
    const auto width = wholeNumber(clause->values[0]);
    const auto pattern = wholeNumber(clause->values[1]);
    const auto color = wholeNumber(clause->values[2]);
    if (!width || !pattern || !color || *width < 0 || *width > 2047 || *pattern < 1 ||
        *pattern > 255 || !validColor(*color)) {
        invalidClause("Pen", text);
    }
    return PenStyle{*width, *pattern, *color};
}

BrushStyle parseBrush(std::string_view text) {
    const std::optional<Clause> clause = readClause(text);
    if (!clause || clause->keyword != "brush" || clause->values.size() < 2 ||
        clause->values.size() > 3) {
        invalidClause("Brush", text);
    }
    const auto pattern = wholeNumber(clause->values[0]);
    const auto fore = wholeNumber(clause->values[1]);
    if (!pattern || !fore || *pattern < 1 || *pattern > 255 || !validColor(*fore)) {
        invalidClause("Brush", text);
    }
    BrushStyle brush{*pattern, *fore, std::nullopt};
    if (clause->values.size() == 3) {
        const auto back = wholeNumber(clause->values[2]);
        if (!back || !validColor(*back)) invalidClause("Brush", text);
        brush.backColor = *back;
    }
    return brush;
}

SymbolStyle parseSymbol(std::string_view text) {
    const std::optional<Clause> clause = readClause(text);
    if (!clause || clause->keyword != "symbol" || clause->values.size() < 3) {
        invalidClause("Symbol", text);
    }
    const std::vector<ClauseValue>& v = clause->values;
    SymbolStyle symbol;
    const auto color = wholeNumber(v[1]);
    const auto size = wholeNumber(v[2]);
    if (!color || !size || !validColor(*color) || *size < 0 || *size > 240) {
        invalidClause("Symbol", text);
    }
    symbol.color = *color;
    symbol.size = *size;
    if (!isNumber(v[0])) {
        if (v.size() != 4) invalidClause("Symbol", text);
        const auto custom = wholeNumber(v[3]);
        if (!custom || *custom < 0 || *custom > 255) invalidClause("Symbol", text);
        symbol.kind = SymbolKind::Bitmap;
        symbol.shape = 0;
        symbol.fileName = std::get<std::string>(v[0]);
        symbol.customStyle = *custom;
        return symbol;
    }
    const auto shape = wholeNumber(v[0]);
    if (!shape || *shape < 0 || *shape > 65535) invalidClause("Symbol", text);
    symbol.shape = *shape;
    if (v.size() == 3) return symbol;
    if (v.size() != 6 || isNumber(v[3]) || !isNumber(v[5])) invalidClause("Symbol", text);
    const auto fontStyle = wholeNumber(v[4]);
    if (!fontStyle || *fontStyle < 0) invalidClause("Symbol", text);
    symbol.kind = SymbolKind::TrueType;
    symbol.fontName = std::get<std::string>(v[3]);
    symbol.fontStyle = *fontStyle;
    symbol.rotation = std::get<double>(v[5]);
    return symbol;
}

FontStyle parseFont(std::string_view text) {
    const std::optional<Clause> clause = readClause(text);
    if (!clause || clause->keyword != "font" || clause->values.size() < 4 ||
        clause->values.size() > 5 || isNumber(clause->values[0]) || !isNumber(clause->values[2])) {
        invalidClause("Font", text);
    }
    const std::vector<ClauseValue>& v = clause->values;
    const auto style = wholeNumber(v[1]);
    const auto fore = wholeNumber(v[3]);
    const double size = std::get<double>(v[2]);
    if (!style || *style < 0 || !fore || !validColor(*fore) || size < 0 || size > 999) {
        invalidClause("Font", text);
    }
    FontStyle font{std::get<std::string>(v[0]), *style, size, *fore, std::nullopt};
    if (v.size() == 5) {
        const auto back = wholeNumber(v[4]);
        if (!back || !validColor(*back)) invalidClause("Font", text);
        font.backColor = *back;
    }
    return font;
}

std::string formatPen(const PenStyle& pen) {
    return "Pen (" +
           joined({std::to_string(pen.width), std::to_string(pen.pattern),
                   std::to_string(pen.color)}) +
           ")";
}

std::string formatBrush(const BrushStyle& brush) {
    std::vector<std::string> parts{std::to_string(brush.pattern), std::to_string(brush.foreColor)};
    if (brush.backColor) parts.push_back(std::to_string(*brush.backColor));
    return "Brush (" + joined(parts) + ")";
}

std::string formatSymbol(const SymbolStyle& symbol) {
    std::vector<std::string> parts;
    switch (symbol.kind) {
    case SymbolKind::Bitmap:
        parts = {quotedMbString(symbol.fileName), std::to_string(symbol.color),
                 std::to_string(symbol.size), std::to_string(symbol.customStyle)};
        break;
    case SymbolKind::TrueType:
        parts = {std::to_string(symbol.shape),     std::to_string(symbol.color),
                 std::to_string(symbol.size),      quotedMbString(symbol.fontName),
                 std::to_string(symbol.fontStyle), formatMbFloat(symbol.rotation)};
        break;
    case SymbolKind::Vector:
        parts = {std::to_string(symbol.shape), std::to_string(symbol.color),
                 std::to_string(symbol.size)};
        break;
    }
    return "Symbol (" + joined(parts) + ")";
}

std::string formatFont(const FontStyle& font) {
    std::vector<std::string> parts{quotedMbString(font.name), std::to_string(font.style),
                                   formatMbFloat(font.size), std::to_string(font.foreColor)};
    if (font.backColor) parts.push_back(std::to_string(*font.backColor));
    return "Font (" + joined(parts) + ")";
}

std::optional<MbType> styleClauseType(std::string_view clause) {
    std::size_t at = 0;
    while (at < clause.size() && isBlank(clause[at]))
        ++at;
    std::string word;
    while (at < clause.size() && std::isalpha(static_cast<unsigned char>(clause[at]))) {
        word += static_cast<char>(std::tolower(static_cast<unsigned char>(clause[at++])));
    }
    if (word == "pen" || word == "line") return MbType::Pen;
    if (word == "brush") return MbType::Brush;
    if (word == "symbol") return MbType::Symbol;
    if (word == "font") return MbType::Font;
    return std::nullopt;
}

MbValue styleValue(std::string_view clause) {
    const std::optional<MbType> type = styleClauseType(clause);
    if (!type) raiseMb(kMbSyntax, "Invalid style clause: " + std::string(clause));
    switch (*type) {
    case MbType::Pen:
        return MbValue::style(MbType::Pen, formatPen(parsePen(clause)));
    case MbType::Brush:
        return MbValue::style(MbType::Brush, formatBrush(parseBrush(clause)));
    case MbType::Symbol:
        return MbValue::style(MbType::Symbol, formatSymbol(parseSymbol(clause)));
    default:
        return MbValue::style(MbType::Font, formatFont(parseFont(clause)));
    }
}

MbValue styleAttribute(const MbValue& style, int attribute) {
    switch (style.type()) {
    case MbType::Pen: {
        const PenStyle pen = parsePen(style.styleClause());
        const bool interleaved = pen.pattern > 128;
        switch (attribute) {
        case 1:
            return MbValue::smallInt(static_cast<std::int16_t>(pen.width));
        case 2:
            return MbValue::smallInt(
                static_cast<std::int16_t>(interleaved ? pen.pattern - 128 : pen.pattern));
        case 4:
            return MbValue::integer(pen.color);
        case 5:
            return MbValue::smallInt(static_cast<std::int16_t>(pen.pattern));
        case 6:
            return MbValue::logical(interleaved);
        default:
            styleAttrOutOfRange();
        }
    }
    case MbType::Brush: {
        const BrushStyle brush = parseBrush(style.styleClause());
        switch (attribute) {
        case 1:
            return MbValue::smallInt(static_cast<std::int16_t>(brush.pattern));
        case 2:
            return MbValue::integer(brush.foreColor);
        // A transparent background answers -1, as the host reports "no colour".
        case 3:
            return MbValue::integer(brush.backColor.value_or(-1));
        default:
            styleAttrOutOfRange();
        }
    }
    case MbType::Font: {
        const FontStyle font = parseFont(style.styleClause());
        switch (attribute) {
        case 1:
            return MbValue::string(font.name);
        case 2:
            return MbValue::smallInt(static_cast<std::int16_t>(font.style));
        case 3:
            return MbValue::smallInt(static_cast<std::int16_t>(std::lround(font.size)));
        case 4:
            return MbValue::integer(font.foreColor);
        case 5:
            return MbValue::integer(font.backColor.value_or(-1));
        default:
            styleAttrOutOfRange();
        }
    }
    case MbType::Symbol: {
        const SymbolStyle symbol = parseSymbol(style.styleClause());
        switch (attribute) {
        case 1:
            return MbValue::smallInt(static_cast<std::int16_t>(symbol.shape));
        case 2:
            return MbValue::integer(symbol.color);
        case 3:
            return MbValue::smallInt(static_cast<std::int16_t>(symbol.size));
        case 4:
            return MbValue::number(symbol.rotation);
        case 5:
            return MbValue::string(symbol.fontName);
        case 6:
            return MbValue::smallInt(static_cast<std::int16_t>(symbol.fontStyle));
        case 7:
            return MbValue::smallInt(static_cast<std::int16_t>(symbol.kind));
        case 8:
            return MbValue::string(symbol.fileName);
        case 9:
            return MbValue::smallInt(static_cast<std::int16_t>(symbol.customStyle));
        default:
            styleAttrOutOfRange();
        }
    }
    default:
        raiseMb(kMbTypeMismatch, "Type mismatch: StyleAttr needs a Pen, Brush, Font or Symbol.");
    }
}

} // namespace vellant::engine
