// Map From, Set Map, Add Map and Remove Map.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/windows/set_map_parts.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_errors.h"
#include "engine/windows/window_language_parts.h"
#include "engine/windows/window_manager.h"

#include <algorithm>
#include <optional>

namespace vellant::engine {

namespace {

std::vector<std::string> readTableList(Cursor& cursor) {
    std::vector<std::string> tables;
    do {
        tables.push_back(cursor.nameOrString());
    } while (cursor.acceptSymbol(","));
    return tables;
}

void mapFrom(Engine& engine, Cursor& cursor) {
    cursor.expectWord("from");
    const std::vector<std::string> tables = readTableList(cursor);
    const NewWindowOptions options = readNewWindowOptions(cursor);
    cursor.expectEnd();
    engine.windows().openMap(engine.catalog(), tables, options);
}

// Does a clause of this statement change layers other than the one it names? Order moves them
// all, and making one layer editable clears the others.
bool touchesOtherLayers(const Cursor& cursor) {
    for (std::size_t i = 0; cursor.peek(i).kind != Token::Kind::End; ++i) {
        const std::string& word = cursor.peek(i).lower;
        if (word == "order" || word == "editable") return true;
    }
    return false;
}

// A statement with an error changes nothing. The clauses change the live map, and what they
// change is saved first so that a failure can put it back: the map's own fields at the start,
// and each layer before its first change. Copying every layer of a large map for each
// statement would cost more than the statement itself.
void setMap(Engine& engine, Cursor& cursor) {
    WindowManager& windows = engine.windows();
    Window& window =
        cursor.acceptWord("window") ? windows.getMap(readWindowId(cursor)) : windows.topMap();
    MapState& map = *window.map;

    // The map's own fields (and the cosmetic layer among them) are saved only when a clause
    // is about to change them.
    std::optional<MapState> fieldsBefore;
    auto saveFields = [&] {
        if (fieldsBefore) return;
        std::vector<Layer> layers = std::move(map.layers);
        fieldsBefore = map;
        map.layers = std::move(layers);
    };
    std::optional<std::vector<Layer>> allLayersBefore;
    if (touchesOtherLayers(cursor)) allLayersBefore = map.layers;
    std::vector<std::pair<int, Layer>> layersBefore;

    try {
        while (!cursor.atEnd()) {
            if (cursor.acceptWord("layer")) {
                const int number = readLayerRef(cursor, map);
                const bool saved =
                    std::any_of(layersBefore.begin(), layersBefore.end(),
                                [&](const auto& entry) { return entry.first == number; });
                if (number == 0)
                    saveFields();
                else if (!allLayersBefore && !saved)
                    layersBefore.emplace_back(number, *map.layerAt(number));
                readLayerClauses(cursor, map, number);
            } else {
                saveFields();
                if (!readMapClause(cursor, window, map)) cursor.syntaxError();
            }
        }
    } catch (...) {
        if (allLayersBefore) {
            map.layers = std::move(*allLayersBefore);
        } else {
            for (auto& [number, layer] : layersBefore)
                *map.layerAt(number) = std::move(layer);
        }
        if (fieldsBefore) {
            fieldsBefore->layers = std::move(map.layers);
            map = std::move(*fieldsBefore);
        }
        throw;
    }
    // Only Order moves layers, and with them the made title.
    windows.mapChanged(window.id(), allLayersBefore.has_value());
    engine.windowContentsChanged(window.id());
}

void addMap(Engine& engine, Cursor& cursor) {
    WindowManager& windows = engine.windows();
    bool automatic = cursor.acceptWord("auto");
    int id = 0;
    if (cursor.acceptWord("window")) id = readWindowId(cursor);
    automatic = cursor.acceptWord("auto") || automatic;
    cursor.expectWord("layer");
    const std::vector<std::string> tables = readTableList(cursor);
    cursor.acceptWord("animate");
    cursor.expectEnd();
    if (id == 0) id = windows.topMap().id();
    windows.addLayers(engine.catalog(), id, tables, automatic);
    engine.windowContentsChanged(id);
}

void removeMap(Engine& engine, Cursor& cursor) {
    WindowManager& windows = engine.windows();
    Window& window =
        cursor.acceptWord("window") ? windows.getMap(readWindowId(cursor)) : windows.topMap();
    cursor.expectWord("layer");
    std::vector<int> numbers;
    do {
        const int number = readLayerRef(cursor, *window.map);
        if (number == 0) raiseInvalidLayer("0");
        numbers.push_back(number);
    } while (cursor.acceptSymbol(","));
    cursor.acceptWord("interactive");
    cursor.expectEnd();
    windows.removeLayers(window.id(), numbers);
    engine.windowContentsChanged(window.id());
}

} // namespace

void registerMapStatements(Registry& registry) {
    registry.addStatement({"map"}, mapFrom);
    registry.addStatement({"set", "map"}, setMap);
    registry.addStatement({"add", "map"}, addMap);
    registry.addStatement({"remove", "map"}, removeMap);
}

} // namespace vellant::engine
