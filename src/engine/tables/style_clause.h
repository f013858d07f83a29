#pragma once
// MapBasic style clauses: Pen, Brush, Symbol and Font, read from the text a statement or a
// workspace gives and written in the one canonical form the host hands back through eval:
// the keyword, one blank, then the values in parentheses without blanks, e.g. "Pen (1,2,0)",
// "Brush (2,16777215,16777215)", "Symbol (35,0,12)", "Font (\"Arial\",0,9,0)".
//
// Reading accepts any letter case, free spacing and leading zeros ("brush (01, 0, 0)"), and
// "Line" for "Pen" (the Global Line clause of Set Map). A clause that cannot be read raises
// MbError 1 "Invalid <Kind> clause: <text>".

#include "engine/mb_value.h"

#include <optional>
#include <string>
#include <string_view>

namespace vellant::engine {

struct PenStyle {
    int width = 1;   // 1-7 pixels; 11-2047 points as 10 + points * 10; 0 only with pattern 1
    int pattern = 2; // 1 none, 2 solid, 3-118 dashes and complex lines; +128 interleaved
    int color = 0;   // R * 65536 + G * 256 + B
    bool operator==(const PenStyle&) const = default;
};

struct BrushStyle {
    int pattern = 2; // 1 none, 2 solid, others hatches
    int foreColor = 16777215;
    std::optional<int> backColor = 16777215; // none: the background is transparent
    bool operator==(const BrushStyle&) const = default;
};

// StyleAttr(symbol, 7) numbering.
enum class SymbolKind : int { Vector = 1, TrueType = 2, Bitmap = 3 };

struct SymbolStyle {
    SymbolKind kind = SymbolKind::Vector;
    int shape = 35; // Vector: 31-67; TrueType: the character code
    int color = 0;
    int size = 12;        // points
    std::string fontName; // TrueType
    int fontStyle = 0;    // TrueType: 1 bold, 16 border, 32 shadow, 256 halo
    double rotation = 0;  // TrueType, degrees
    std::string fileName; // Bitmap
    int customStyle = 0;  // Bitmap: 1 opaque background, 2 apply colour
    bool operator==(const SymbolStyle&) const = default;
};

struct FontStyle {
    std::string name = "Arial";
    int style = 0;   // 1 bold, 2 italic, 4 underline, 8 strikeout, 32 shadow, 256 halo, ...
    double size = 9; // points; 0 for the font of a text object
    int foreColor = 0;
    std::optional<int> backColor; // halo or box colour
    bool operator==(const FontStyle&) const = default;
};

PenStyle parsePen(std::string_view clause);
BrushStyle parseBrush(std::string_view clause);
SymbolStyle parseSymbol(std::string_view clause);
FontStyle parseFont(std::string_view clause);

std::string formatPen(const PenStyle& pen);
std::string formatBrush(const BrushStyle& brush);
std::string formatSymbol(const SymbolStyle& symbol);
std::string formatFont(const FontStyle& font);

// The kind of clause a text begins with (Pen or Line, Brush, Symbol, Font); nullopt for none.
std::optional<MbType> styleClauseType(std::string_view clause);

// Any clause in canonical form, as a style MbValue of its kind.
MbValue styleValue(std::string_view clause);

// StyleAttr(style, attribute) with MapBasic's codes: Pen 1 width, 2 pattern, 4 color,
// 5 index, 6 interleaved; Brush 1 pattern, 2 fore, 3 back; Font 1 name, 2 style, 3 size,
// 4 fore, 5 back; Symbol 1 code, 2 color, 3 size, 4 angle, 5 font name, 6 font style, 7 kind,
// 8 file name, 9 custom style. Raises 644 "Argument 2 of StyleAttr out of range." for a code
// the style kind does not have.
MbValue styleAttribute(const MbValue& style, int attribute);

} // namespace vellant::engine
