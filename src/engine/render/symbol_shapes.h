#pragma once
// Point symbols: MapInfo's classic vector set (codes 31-67), TrueType font symbols and bitmap
// symbols, drawn centred on a pixel at the symbol's size in points.

#include "engine/tables/style_clause.h"

#include <QPointF>

class QPainter;

namespace vellant::engine {

// The symbol's height in pixels at that resolution.
double symbolPixelSize(const SymbolStyle& symbol, double dpi);

// Draws the symbol centred on at. A bitmap whose file does not open draws as a small square
// in the symbol's colour.
void drawSymbol(QPainter& painter, QPointF at, const SymbolStyle& symbol, double dpi);

} // namespace vellant::engine
