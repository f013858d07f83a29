#pragma once
// Style clauses as statements write them: "Pen (1, 2, 255)", "Brush (2,16777215)",
// "Symbol (35,0,12)", "Symbol (64,255,12,\"MapInfo Symbols\",0,0)",
// "Symbol (\"pin.bmp\",0,24,0)", "Font (\"Arial\",0,9,0)", or the keyword followed by a style
// expression ("Pen myPen", "Brush MakeBrush(2,255,0)"). Values become the canonical text the
// engine keeps and eval shows: keyword, one blank, fields without blanks: "Pen (1,2,255)".
// Errors: 1 "Found [..] while searching for [..]." for a malformed clause;
//         1045 "Type mismatch: ..." for a string where a number belongs and the reverse.

#include "engine/mb_value.h"

#include <optional>
#include <vector>

namespace vellant::engine {

class Cursor;

// The host's styles before any Set Style: what new objects and Dim'd style variables get.
inline constexpr const char* kInitialPen = "Pen (1,2,0)";
inline constexpr const char* kInitialBrush = "Brush (2,16777215,16777215)";
inline constexpr const char* kInitialSymbol = "Symbol (35,0,12)";
inline constexpr const char* kInitialFont = "Font (\"Arial\",0,9,0)";

// A clause beginning with Pen, Brush, Symbol or Font (and Line, read as a Pen, when
// lineIsPen is set, as Set Map's Global Line does); nullopt when the next word is none of them.
std::optional<MbValue> acceptStyleClause(Cursor& cursor, bool lineIsPen = false);

// The style value of a clause's fields (Pen: 3; Brush: 2 or 3; Symbol: 3, 4 or 6; Font: 4
// or 5); raises as the clause would. type is Pen, Brush, Symbol or Font.
MbValue makeStyle(MbType type, const std::vector<MbValue>& fields);

} // namespace vellant::engine
