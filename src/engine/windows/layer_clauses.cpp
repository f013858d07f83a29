#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/style_clause.h"
#include "engine/windows/set_map_parts.h"
#include "engine/windows/units.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_errors.h"

#include <cmath>

namespace vellant::engine {

namespace {

LayerDisplay readDisplay(Cursor& cursor) {
    if (cursor.acceptWord("off")) return LayerDisplay::Off;
    if (cursor.acceptWord("graphic")) return LayerDisplay::Graphic;
    if (cursor.acceptWord("global")) return LayerDisplay::Global;
    if (cursor.acceptWord("value")) return LayerDisplay::Value;
    cursor.syntaxError("Off, Graphic, Global or Value");
}

// Global takes one or more style clauses; Line and Pen are both pens, for lines and for the
// borders of closed objects.
void readGlobalStyles(Cursor& cursor, Layer& layer) {
    bool any = false;
    while (true) {
        const bool line = cursor.peekWord("line");
        const std::optional<MbValue> style = acceptStyleClause(cursor, true);
        if (!style) break;
        any = true;
        switch (style->type()) {
        case MbType::Pen:
            (line ? layer.globalLine : layer.globalPen) = style->styleClause();
            break;
        case MbType::Brush:
            layer.globalBrush = style->styleClause();
            break;
        case MbType::Symbol:
            layer.globalSymbol = style->styleClause();
            break;
        default:
            layer.globalFont = style->styleClause();
            break;
        }
    }
    if (!any) cursor.syntaxError("Pen, Line, Brush, Symbol or Font");
}

void readZoomRange(Cursor& cursor, Layer& layer) {
    const MapPoint range = readPoint(cursor);
    const std::optional<std::string> units = readUnits(cursor);
    const double metres =
        distanceUnitMetres(units ? *units : cursor.engine().settings().distanceUnits);
    if (range.x < 0) raiseValueOutOfRange("Zoom minimum", range.x);
    if (range.y < range.x) raiseValueOutOfRange("Zoom maximum", range.y);
    layer.zoom.minMetres = range.x * metres;
    layer.zoom.maxMetres = range.y * metres;
    // A range given without On or Off turns zoom layering on.
    layer.zoom.on = true;
    if (cursor.peekWord("on") || cursor.peekWord("off")) layer.zoom.on = cursor.onOff();
}

int readPercentLike(Cursor& cursor, const char* what, int max) {
    const double value = cursor.numberExpression();
    if (value < 0 || value > max) raiseValueOutOfRange(what, value);
    return static_cast<int>(std::lround(value));
}

} // namespace

void readLayerClauses(Cursor& cursor, MapState& map, int number) {
    Layer& layer = *map.layerAt(number);
    while (true) {
        if (cursor.peekWord("display") &&
            (cursor.peekWord("off", 1) || cursor.peekWord("graphic", 1) ||
             cursor.peekWord("global", 1) || cursor.peekWord("value", 1))) {
            cursor.advance();
            layer.display = readDisplay(cursor);
        } else if (cursor.acceptWord("global")) {
            readGlobalStyles(cursor, layer);
        } else if (cursor.acceptWord("selectable")) {
            layer.selectable = cursor.onOff();
        } else if (cursor.acceptWord("editable")) {
            map.setEditable(number, cursor.onOff());
        } else if (cursor.peekWord("zoom") && cursor.peek(1).kind == Token::Kind::Symbol &&
                   cursor.peek(1).text == "(") {
            cursor.advance();
            readZoomRange(cursor, layer);
        } else if (cursor.peekWord("zoom") &&
                   (cursor.peekWord("on", 1) || cursor.peekWord("off", 1))) {
            cursor.advance();
            layer.zoom.on = cursor.onOff();
        } else if (cursor.acceptWord("arrows")) {
            layer.arrows = cursor.onOff();
        } else if (cursor.acceptWord("nodes")) {
            layer.nodes = cursor.onOff();
        } else if (cursor.acceptWord("centroids")) {
            layer.centroids = cursor.onOff();
        } else if (cursor.acceptWord("label")) {
            readLabelClauses(cursor, layer);
        } else if (cursor.acceptWord("alpha")) {
            layer.alpha = readPercentLike(cursor, "Layer alpha", 255);
        } else if (cursor.acceptWord("translucency")) {
            layer.translucency = readPercentLike(cursor, "Layer translucency", 100);
        } else {
            return;
        }
    }
}

} // namespace vellant::engine
