#pragma once
// Pictures of the host's style choices for the style dialogs' lists and buttons, drawn with the
// map renderer's own painters so that a choice looks as the map will draw it. Colours are
// MapInfo's R * 65536 + G * 256 + B.

#include "engine/tables/style_clause.h"

#include <QPixmap>
#include <QSize>
#include <optional>
#include <vector>

namespace vellant::qtui {

// The host's fill patterns as its dialog lists them: none, solid, the hatches, then the screens
// and textures (9 to 11 are unused).
const std::vector<int>& brushPatterns();
// The line patterns: none, solid, then the dotted and dashed lines.
const std::vector<int>& penPatterns();
// MapInfo's own symbol set.
const std::vector<int>& vectorSymbols();

QPixmap brushSwatch(int pattern, int foreColor, std::optional<int> backColor, QSize size);
QPixmap penSwatch(const engine::PenStyle& pen, QSize size);
QPixmap symbolSwatch(const engine::SymbolStyle& symbol, QSize size);
QPixmap colorSwatch(int rgb, QSize size);

} // namespace vellant::qtui
