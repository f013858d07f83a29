#pragma once
// A MapX style in the host's own terms: the MapBasic Pen, Brush, Symbol and Font values the
// renderer draws with and the style dialogs speak, and back. Each direction keeps what the
// other can hold: a symbol's back colour and a text's rotation have no place in a clause, so
// taking a clause leaves them as they were.

#include "engine/tables/style_clause.h"
#include "mapx/style_data.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace vellant::engine {
class Engine;
}

namespace vellant::mapx {

// Colours: OLE 0x00BBGGRR and MapInfo's R * 65536 + G * 256 + B.
std::int32_t oleToRgb(std::int32_t ole);
std::int32_t rgbToOle(std::int32_t rgb);

engine::PenStyle linePen(const StyleData& style);
engine::PenStyle borderPen(const StyleData& style);
engine::BrushStyle regionBrush(const StyleData& style);
// bitmapFolder: where a bitmap symbol's file is looked for when drawing; empty keeps the name.
engine::SymbolStyle pointSymbol(const StyleData& style,
                                const std::filesystem::path& bitmapFolder = {});
engine::FontStyle textFont(const StyleData& style);

void takeLinePen(StyleData& style, const engine::PenStyle& pen);
void takeBorderPen(StyleData& style, const engine::PenStyle& pen);
void takeRegionBrush(StyleData& style, const engine::BrushStyle& brush);
void takePointSymbol(StyleData& style, const engine::SymbolStyle& symbol);
void takeTextFont(StyleData& style, const engine::FontStyle& font);

// The style kinds a picker offers, numbered as feature types.
enum class PickKind : int { Region = 0, Line = 1, Symbol = 2, Text = 5 };

// The clauses a picker of the kind opens with: "Brush (..) Pen (..)" for a region (its fill
// and border), "Pen (..)", "Symbol (..)" or "Font (..)" for the others.
std::string pickerClauses(const StyleData& style, PickKind kind);
// Applies every clause of a picker's answer as the kind reads it (a region's Pen is its
// border); a clause the kind has no use for is passed over. Raises a run-time error for text
// that is no run of style clauses.
void takePickerClauses(engine::Engine& engine, StyleData& style, PickKind kind,
                       const std::string& clauses);

} // namespace vellant::mapx
