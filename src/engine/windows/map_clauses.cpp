#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/windows/coord_transform.h"
#include "engine/windows/map_extent.h"
#include "engine/windows/map_layers.h"
#include "engine/windows/map_view.h"
#include "engine/windows/set_map_parts.h"
#include "engine/windows/units.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_errors.h"
#include "engine/windows/window_manager.h"

#include <cmath>

namespace vellant::engine {

namespace {

double sessionDistanceMetres(Cursor& cursor, double value,
                             const std::optional<std::string>& units) {
    return value * distanceUnitMetres(units ? *units : cursor.engine().settings().distanceUnits);
}

void readCenter(Cursor& cursor, MapState& map) {
    MapPoint centre = readPoint(cursor);
    const CoordSys session = parseCoordSys(cursor.engine().settings().coordSys);
    const CoordTransform& toMap =
        cursor.engine().windows().transforms().between(session, map.coordSys);
    if (!toMap.apply(centre.x, centre.y)) {
        raiseValueOutOfRange("Center", centre.x);
    }
    map.centreX = centre.x;
    map.centreY = centre.y;
}

void readZoom(Cursor& cursor, const Window& window, MapState& map) {
    if (cursor.acceptWord("entire")) {
        std::optional<Bounds> box;
        if (cursor.acceptWord("layer")) {
            box = layerExtent(cursor.engine().catalog(), map, readLayerRef(cursor, map));
        } else {
            box = mapExtent(cursor.engine().catalog(), map);
        }
        if (box) fitView(map, *box, window.placement.width, window.placement.height);
        return;
    }
    const double zoom = cursor.numberExpression();
    const double metres = sessionDistanceMetres(cursor, zoom, readUnits(cursor));
    if (!(metres > 0) || !std::isfinite(metres)) raiseValueOutOfRange("Zoom", zoom);
    map.zoomMetres = metres;
}

// Scale s [Units paper] For m [Units distance]: s of paper shows m of ground.
void readScale(Cursor& cursor, const Window& window, MapState& map) {
    const double paper = readPaperLength(cursor);
    cursor.expectWord("for");
    const double ground = cursor.numberExpression();
    const double metres = sessionDistanceMetres(cursor, ground, readUnits(cursor));
    if (!(paper > 0)) raiseValueOutOfRange("Scale", paper);
    if (!(metres > 0)) raiseValueOutOfRange("Scale", ground);
    map.zoomMetres = window.placement.width / paper * metres;
}

void readPan(Cursor& cursor, MapState& map) {
    const double distance = cursor.numberExpression();
    const double metres = sessionDistanceMetres(cursor, distance, readUnits(cursor));
    if (cursor.acceptWord("north")) {
        panView(map, 0, metres);
    } else if (cursor.acceptWord("south")) {
        panView(map, 0, -metres);
    } else if (cursor.acceptWord("east")) {
        panView(map, metres, 0);
    } else if (cursor.acceptWord("west")) {
        panView(map, -metres, 0);
    } else {
        cursor.syntaxError("North, South, East or West");
    }
}

// A new projection keeps the same place in the middle of the window and the same zoom.
void changeCoordSys(MapState& map, const CoordSys& next) {
    double x = map.centreX;
    double y = map.centreY;
    if (CoordTransform(map.coordSys, next).apply(x, y)) {
        map.centreX = x;
        map.centreY = y;
    }
    map.coordSys = next;
}

void readOrder(Cursor& cursor, MapState& map) {
    std::vector<int> numbers;
    do {
        numbers.push_back(readLayerRef(cursor, map));
    } while (cursor.acceptSymbol(","));
    reorderLayers(map, numbers);
}

} // namespace

bool readMapClause(Cursor& cursor, const Window& window, MapState& map) {
    if (cursor.acceptWord("center") || cursor.acceptWord("centre")) {
        readCenter(cursor, map);
    } else if (cursor.acceptWord("zoom")) {
        readZoom(cursor, window, map);
    } else if (cursor.acceptWord("scale")) {
        readScale(cursor, window, map);
    } else if (cursor.acceptWord("pan")) {
        readPan(cursor, map);
    } else if (cursor.acceptWord("preserve")) {
        if (cursor.acceptWord("scale")) {
            map.preserve = MapPreserve::Scale;
        } else {
            cursor.expectWord("zoom");
            map.preserve = MapPreserve::Zoom;
        }
    } else if (cursor.acceptWord("display")) {
        if (cursor.acceptWord("scale")) {
            map.statusDisplay = MapStatusDisplay::Scale;
        } else if (cursor.acceptWord("zoom")) {
            map.statusDisplay = MapStatusDisplay::Zoom;
        } else {
            cursor.expectWord("position");
            map.statusDisplay = MapStatusDisplay::Position;
        }
    } else if (cursor.acceptWord("coordsys")) {
        changeCoordSys(map, readCoordSys(cursor));
    } else if (cursor.acceptWord("distance")) {
        if (cursor.acceptWord("type")) {
            if (cursor.acceptWord("cartesian")) {
                map.cartesianDistance = true;
            } else {
                cursor.expectWord("spherical");
                map.cartesianDistance = false;
            }
        } else {
            cursor.expectWord("units");
            map.distanceUnits = distanceUnitName(cursor.nameOrString());
        }
    } else if (cursor.acceptWord("area")) {
        cursor.expectWord("units");
        map.areaUnits = areaUnitName(cursor.nameOrString());
    } else if (cursor.acceptWord("xy")) {
        cursor.expectWord("units");
        map.xyUnits = coordinateUnitName(cursor.nameOrString());
    } else if (cursor.acceptWord("redraw")) {
        map.redraw = cursor.onOff();
    } else if (cursor.acceptWord("order")) {
        readOrder(cursor, map);
    } else {
        return false;
    }
    return true;
}

} // namespace vellant::engine
