#pragma once
// Where the objects of a map's layers lie, in the map's coordinate system: what Zoom Entire
// fits the view to.

#include "engine/tables/catalog.h"
#include "engine/windows/map_state.h"

#include <optional>

namespace vellant::engine {

// The box of one layer (0 the cosmetic layer's objects); nullopt for a layer with no objects
// or whose table is no longer open.
std::optional<Bounds> layerExtent(const Catalog& catalog, const MapState& map, int number);

// The box of a table's objects, or of its image for a raster table, in the map's coordinate
// system; nullopt for a table with neither.
std::optional<Bounds> tableExtent(const Table& table, const CoordSys& mapSystem);

// The box of the cosmetic layer's objects; nullopt when it has none.
std::optional<Bounds> cosmeticExtent(const MapState& map);

// The box of all layers together.
std::optional<Bounds> mapExtent(const Catalog& catalog, const MapState& map);

} // namespace vellant::engine
