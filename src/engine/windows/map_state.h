#pragma once
// What a map window shows: its layers (1 the top, 0 the cosmetic layer), the view, the window's
// coordinate system and units. The view is kept in the window's own coordinate system with the
// zoom in metres; statements and functions convert to and from the session's units.

#include "engine/map_object.h"
#include "engine/windows/coordsys.h"
#include "engine/windows/layer.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

// Set Map Preserve: what stays when the window changes size.
enum class MapPreserve { Zoom, Scale };
// MapperInfo(..., 15): what the status bar shows for the map.
enum class MapStatusDisplay : int { Scale = 0, Zoom = 1, Position = 2 };

struct MapState {
    std::vector<Layer> layers; // layers[0] is layer 1, the top
    Layer cosmetic;
    // The rows of the cosmetic table, in order; a deleted row leaves nullptr so that the rows
    // after it keep their numbers.
    std::vector<std::shared_ptr<const MapObject>> cosmeticObjects;

    // Whether the cosmetic layer holds any object (deleted rows do not count).
    bool hasCosmeticObjects() const;

    CoordSys coordSys;
    double centreX = 0;
    double centreY = 0;
    double zoomMetres = 1000;

    std::string distanceUnits = "mi";
    std::string areaUnits = "sq mi";
    std::optional<std::string> xyUnits; // none: the unit of the coordinate system
    bool redraw = true;
    MapPreserve preserve = MapPreserve::Zoom;
    MapStatusDisplay statusDisplay = MapStatusDisplay::Zoom;
    bool cartesianDistance = false; // MapperInfo 20: Distance Type
    int displayDms = 0;             // MapperInfo 21
    int clipType = 0;               // MapperInfo 23
    bool clipOn = false;            // MapperInfo 24

    int layerCount() const { return static_cast<int>(layers.size()); }
    // 0 is the cosmetic layer; nullptr for a number that is no layer.
    Layer* layerAt(int number);
    const Layer* layerAt(int number) const;
    // The number of the top layer of that name (any letter case), 0 for the cosmetic layer's
    // name, -1 for none.
    int findLayer(std::string_view name) const;

    // MapperInfo 10: the editable layer, 0 the cosmetic one, -1 none.
    int editableLayer() const;
    // At most one layer of a map is editable: making one editable clears the others.
    void setEditable(int number, bool on);

    std::string xyUnitName() const { return xyUnits ? *xyUnits : coordSys.coordinateUnit(); }
};

} // namespace vellant::engine
