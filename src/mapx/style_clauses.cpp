#include "mapx/style_clauses.h"

#include "engine/lang/cursor.h"
#include "engine/lang/lexer.h"
#include "engine/lang/style_clause.h"
#include "mapx/mapx_errors.h"

#include <algorithm>
#include <cmath>

namespace vellant::mapx {

namespace {

// MapInfo pen widths: 1..7 pixels, or 10 + tenths of a point from 11 up.
constexpr int kPointWidthBase = 10;
constexpr int kLargestPixelWidth = 7;
constexpr int kInterleaved = 128;

// Font style bits of MapInfo's Font and Symbol clauses.
constexpr int kBold = 1;
constexpr int kItalic = 2;
constexpr int kUnderline = 4;
constexpr int kStrikeout = 8;
constexpr int kSymbolBorder = 16;
constexpr int kShadow = 32;
constexpr int kHalo = 256;
constexpr int kAllCaps = 512;
constexpr int kExpanded = 1024;

// Bitmap symbols: 1 shows the white ground, 2 paints the bitmap in the symbol's colour.
constexpr int kBitmapOpaque = 1;
constexpr int kBitmapApplyColour = 2;

int penWidth(std::int16_t width, std::int16_t unit) {
    if (unit == mx::miStyleUnitTenthsOfPoint) return kPointWidthBase + std::max<int>(width, 1);
    return std::clamp<int>(width, 0, kLargestPixelWidth);
}

void takeWidth(int width, std::int16_t& value, std::int16_t& unit) {
    if (width > kPointWidthBase) {
        value = static_cast<std::int16_t>(width - kPointWidthBase);
        unit = mx::miStyleUnitTenthsOfPoint;
    } else {
        value = static_cast<std::int16_t>(width);
        unit = mx::miStyleUnitPixel;
    }
}

engine::PenStyle pen(std::int16_t pattern, bool interleaved, std::int32_t color, std::int16_t width,
                     std::int16_t unit) {
    engine::PenStyle out;
    out.pattern = std::clamp<int>(pattern, 1, kInterleaved - 1) + (interleaved ? kInterleaved : 0);
    out.width = penWidth(width, unit);
    // A line of no width shows nothing, as MapInfo writes it.
    if (out.width == 0) out.pattern = mx::miPenNone;
    out.color = oleToRgb(color);
    return out;
}

int fontBits(const FontData& font) {
    int bits = 0;
    if (font.weight >= kBoldFromWeight) bits |= kBold;
    if (font.italic) bits |= kItalic;
    if (font.underline) bits |= kUnderline;
    if (font.strikethrough) bits |= kStrikeout;
    return bits;
}

void takeFontBits(FontData& font, int bits) {
    font.weight = (bits & kBold) != 0 ? kBoldWeight : kNormalWeight;
    font.italic = (bits & kItalic) != 0;
    font.underline = (bits & kUnderline) != 0;
    font.strikethrough = (bits & kStrikeout) != 0;
}

std::int16_t toShort(double value) {
    return static_cast<std::int16_t>(std::clamp(std::lround(value), -32768L, 32767L));
}

} // namespace

std::int32_t oleToRgb(std::int32_t ole) {
    const auto c = static_cast<std::uint32_t>(ole) & 0xFFFFFFu;
    return static_cast<std::int32_t>(((c & 0xFFu) << 16) | (c & 0xFF00u) | ((c >> 16) & 0xFFu));
}

std::int32_t rgbToOle(std::int32_t rgb) {
    // The swap of red and blue is its own inverse.
    return oleToRgb(rgb);
}

engine::PenStyle linePen(const StyleData& style) {
    return pen(style.lineStyle, style.lineInterleaved, style.lineColor, style.lineWidth,
               style.lineWidthUnit);
}

engine::PenStyle borderPen(const StyleData& style) {
    return pen(style.regionBorderStyle, false, style.regionBorderColor, style.regionBorderWidth,
               style.regionBorderWidthUnit);
}

engine::BrushStyle regionBrush(const StyleData& style) {
    engine::BrushStyle out;
    out.pattern =
        style.regionPattern <= mx::miPatternHollow ? mx::miPatternHollow : style.regionPattern;
    out.foreColor = oleToRgb(style.regionColor);
    if (style.regionTransparent)
        out.backColor.reset();
    else
        out.backColor = oleToRgb(style.regionBackColor);
    return out;
}

engine::SymbolStyle pointSymbol(const StyleData& style, const std::filesystem::path& bitmapFolder) {
    engine::SymbolStyle out;
    switch (style.symbolType) {
    case mx::miSymbolTypeBitmap:
        out.kind = engine::SymbolKind::Bitmap;
        out.fileName = bitmapFolder.empty() || style.symbolBitmapName.empty()
                           ? style.symbolBitmapName
                           : (bitmapFolder / style.symbolBitmapName).string();
        out.color = oleToRgb(style.symbolBitmapColor);
        out.size = style.symbolBitmapSize;
        out.customStyle = (style.symbolBitmapTransparent ? 0 : kBitmapOpaque) |
                          (style.symbolBitmapOverrideColor ? kBitmapApplyColour : 0);
        break;
    case mx::miSymbolTypeTrueTypeFont:
        out.kind = engine::SymbolKind::TrueType;
        out.shape = style.symbolCharacter;
        out.color = oleToRgb(style.symbolFontColor);
        out.size = toShort(style.symbolFont.size);
        out.fontName = style.symbolFont.name;
        out.fontStyle = (style.symbolFont.weight >= kBoldFromWeight ? kBold : 0) |
                        (style.symbolFontOpaque ? kSymbolBorder : 0) |
                        (style.symbolFontShadow ? kShadow : 0) | (style.symbolFontHalo ? kHalo : 0);
        out.rotation = style.symbolFontRotation;
        break;
    default:
        out.kind = engine::SymbolKind::Vector;
        out.shape = style.symbolCharacter;
        out.color = oleToRgb(style.symbolVectorColor);
        out.size = style.symbolVectorSize;
        break;
    }
    return out;
}

engine::FontStyle textFont(const StyleData& style) {
    engine::FontStyle out;
    out.name = style.textFont.name;
    out.size = style.textFont.size;
    out.style = fontBits(style.textFont) | (style.textFontShadow ? kShadow : 0) |
                (style.textFontHalo ? kHalo : 0) | (style.textFontAllCaps ? kAllCaps : 0) |
                (style.textFontDblSpace ? kExpanded : 0);
    out.foreColor = oleToRgb(style.textFontColor);
    // The back colour is the halo's, or the box's when the text is opaque.
    if (style.textFontHalo || style.textFontOpaque)
        out.backColor = oleToRgb(style.textFontBackColor);
    return out;
}

void takeLinePen(StyleData& style, const engine::PenStyle& pen) {
    style.lineStyle = static_cast<std::int16_t>(pen.pattern & (kInterleaved - 1));
    style.lineInterleaved = (pen.pattern & kInterleaved) != 0;
    style.lineColor = rgbToOle(pen.color);
    takeWidth(pen.width, style.lineWidth, style.lineWidthUnit);
}

void takeBorderPen(StyleData& style, const engine::PenStyle& pen) {
    style.regionBorderStyle = static_cast<std::int16_t>(pen.pattern & (kInterleaved - 1));
    style.regionBorderColor = rgbToOle(pen.color);
    takeWidth(pen.width, style.regionBorderWidth, style.regionBorderWidthUnit);
}

void takeRegionBrush(StyleData& style, const engine::BrushStyle& brush) {
    style.regionPattern = static_cast<std::int16_t>(brush.pattern);
    style.regionColor = rgbToOle(brush.foreColor);
    style.regionTransparent = !brush.backColor.has_value();
    if (brush.backColor) style.regionBackColor = rgbToOle(*brush.backColor);
}

void takePointSymbol(StyleData& style, const engine::SymbolStyle& symbol) {
    switch (symbol.kind) {
    case engine::SymbolKind::Bitmap:
        style.symbolType = mx::miSymbolTypeBitmap;
        style.symbolBitmapName = symbol.fileName;
        style.symbolBitmapColor = rgbToOle(symbol.color);
        style.symbolBitmapSize = static_cast<std::int16_t>(symbol.size);
        style.symbolBitmapTransparent = (symbol.customStyle & kBitmapOpaque) == 0;
        style.symbolBitmapOverrideColor = (symbol.customStyle & kBitmapApplyColour) != 0;
        break;
    case engine::SymbolKind::TrueType:
        style.symbolType = mx::miSymbolTypeTrueTypeFont;
        style.symbolCharacter = static_cast<std::int16_t>(symbol.shape);
        style.symbolFontColor = rgbToOle(symbol.color);
        style.symbolFont.size = symbol.size;
        style.symbolFont.name = symbol.fontName;
        style.symbolFont.weight = (symbol.fontStyle & kBold) != 0 ? kBoldWeight : kNormalWeight;
        style.symbolFontOpaque = (symbol.fontStyle & kSymbolBorder) != 0;
        style.symbolFontShadow = (symbol.fontStyle & kShadow) != 0;
        style.symbolFontHalo = (symbol.fontStyle & kHalo) != 0;
        style.symbolFontRotation = symbol.rotation;
        break;
    case engine::SymbolKind::Vector:
        style.symbolType = mx::miSymbolTypeVector;
        style.symbolCharacter = static_cast<std::int16_t>(symbol.shape);
        style.symbolVectorColor = rgbToOle(symbol.color);
        style.symbolVectorSize = static_cast<std::int16_t>(symbol.size);
        break;
    }
}

void takeTextFont(StyleData& style, const engine::FontStyle& font) {
    style.textFont.name = font.name;
    // A text object's own size (0) keeps the style's.
    if (font.size > 0) style.textFont.size = font.size;
    takeFontBits(style.textFont, font.style);
    style.textFontShadow = (font.style & kShadow) != 0;
    style.textFontHalo = (font.style & kHalo) != 0;
    style.textFontAllCaps = (font.style & kAllCaps) != 0;
    style.textFontDblSpace = (font.style & kExpanded) != 0;
    style.textFontColor = rgbToOle(font.foreColor);
    style.textFontOpaque = font.backColor.has_value() && !style.textFontHalo;
    if (font.backColor) style.textFontBackColor = rgbToOle(*font.backColor);
}

std::string pickerClauses(const StyleData& style, PickKind kind) {
    switch (kind) {
    case PickKind::Region:
        return engine::formatBrush(regionBrush(style)) + " " + engine::formatPen(borderPen(style));
    case PickKind::Line:
        return engine::formatPen(linePen(style));
    case PickKind::Symbol:
        return engine::formatSymbol(pointSymbol(style));
    case PickKind::Text:
        return engine::formatFont(textFont(style));
    }
    return {};
}

void takePickerClauses(engine::Engine& engine, StyleData& style, PickKind kind,
                       const std::string& clauses) {
    engineCall([&] {
        engine::Cursor cursor(engine, clauses, engine::tokenize(clauses));
        // Taken into a copy, so that an answer with a bad clause changes nothing.
        StyleData taken = style;
        while (!cursor.atEnd()) {
            const std::optional<engine::MbValue> clause = engine::acceptStyleClause(cursor, true);
            if (!clause) cursor.syntaxError("a style clause");
            const std::string& text = clause->styleClause();
            switch (clause->type()) {
            case engine::MbType::Pen:
                if (kind == PickKind::Region) takeBorderPen(taken, engine::parsePen(text));
                if (kind == PickKind::Line) takeLinePen(taken, engine::parsePen(text));
                break;
            case engine::MbType::Brush:
                if (kind == PickKind::Region) takeRegionBrush(taken, engine::parseBrush(text));
                break;
            case engine::MbType::Symbol:
                if (kind == PickKind::Symbol) takePointSymbol(taken, engine::parseSymbol(text));
                break;
            case engine::MbType::Font:
                if (kind == PickKind::Text) takeTextFont(taken, engine::parseFont(text));
                break;
            default:
                break;
            }
        }
        style = std::move(taken);
    });
}

} // namespace vellant::mapx
