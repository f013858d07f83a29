// Shade: a thematic layer of a map.
//
//   Shade [Window id] {layer_number | layer_name} With expression [, ...] <method and styles>
//
// The thematic layer goes directly above the layer it shades and takes its number, the layers
// below moving down one, as in the host's layer list. It draws its table's objects and reports
// itself as thematic (LayerInfo 24 = 3) in Display Value (LayerInfo 9 = 3); the method and its
// ranges, values and styles are kept as written, from With to the end, so that a workspace
// saved later writes the same Shade statement back.
//
// Errors: 313/590 for the window as Set Map has them; "Invalid layer" for a number the map
// lacks, the cosmetic layer or a thematic layer; 1 for a statement without With or without a
// method (Ranges, Values, Graduated, Density, Bar, Pie).

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_errors.h"
#include "engine/windows/window_language_parts.h"
#include "engine/windows/window_manager.h"

#include <cmath>
#include <string>

namespace vellant::engine {

namespace {

bool isMethodWord(const Token& token) {
    if (token.kind != Token::Kind::Identifier) return false;
    for (const char* method : {"ranges", "values", "graduated", "density", "bar", "pie"})
        if (token.lower == method) return true;
    return false;
}

int readShadedLayer(Cursor& cursor, const MapState& map) {
    if (cursor.peek().kind == Token::Kind::Number) {
        const double number = cursor.numberExpression();
        if (number != std::floor(number) || number < 1 || number > map.layerCount())
            raiseInvalidLayer(std::to_string(static_cast<long long>(number)));
        return static_cast<int>(number);
    }
    // By name, the table's own layer: a thematic layer above it bears the same name.
    const std::string name = cursor.nameOrString();
    for (int n = 1; n <= map.layerCount(); ++n) {
        const Layer& layer = map.layers[static_cast<std::size_t>(n - 1)];
        if (layer.kind != LayerKind::Thematic && LCase(layer.name) == LCase(name)) return n;
    }
    raiseInvalidLayer(name);
}

void shade(Engine& engine, Cursor& cursor) {
    WindowManager& windows = engine.windows();
    Window& window =
        cursor.acceptWord("window") ? windows.getMap(readWindowId(cursor)) : windows.topMap();
    MapState& map = *window.map;
    const int number = readShadedLayer(cursor, map);
    const Layer& base = map.layers[static_cast<std::size_t>(number - 1)];
    if (base.kind == LayerKind::Thematic) raiseInvalidLayer(base.name);
    if (!cursor.peekWord("with")) cursor.syntaxError("With");
    const std::string clauses(cursor.source().substr(cursor.peek().position));
    bool method = false;
    while (!cursor.atEnd()) {
        method = method || isMethodWord(cursor.peek());
        cursor.advance();
    }
    if (!method) cursor.syntaxError("Ranges, Values, Graduated, Density, Bar or Pie");

    Layer thematic;
    thematic.name = base.name;
    thematic.kind = LayerKind::Thematic;
    thematic.display = LayerDisplay::Value;
    thematic.label.expression = base.label.expression;
    thematic.thematicClauses = clauses;
    map.layers.insert(map.layers.begin() + (number - 1), std::move(thematic));
    windows.mapChanged(window.id(), true);
    engine.windowContentsChanged(window.id());
}

} // namespace

void registerThematicStatements(Registry& registry) {
    registry.addStatement({"shade"}, shade);
}

} // namespace vellant::engine
