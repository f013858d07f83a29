#pragma once
// The statements that bring back one map's view and layers after its Map From: a Set Map of the
// view (coordinate system, centre, zoom, units) and a Set Map of every layer with its labels.

#include <string>
#include <vector>

namespace vellant::engine {

struct MapState;
struct Layer;

// The map's view; the centre goes in the session's coordinate system (sessionCoordSys).
std::string mapViewText(const MapState& map, const std::string& sessionCoordSys);

// The layers kept (layer numbers of the map, in their order) become layers 1, 2, ... of the
// statement; the cosmetic layer is written as layer 0.
std::string mapLayersText(const MapState& map, const std::vector<int>& keptLayers);

} // namespace vellant::engine
